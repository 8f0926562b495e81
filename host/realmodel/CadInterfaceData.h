#pragma once
// The interface data of a part of a loaded CAD model: converted by the
// kernel on the first request and kept, so that every occurrence of the part
// gets the same block.
#include <memory>
#include <mutex>

#include "host/cad/CadModel.h"
#include "host/geometry/ExactGeometry.h"

namespace host::realmodel {

class CadInterfaceData : public InterfaceDataSource {
public:
    CadInterfaceData(std::shared_ptr<const cad::CadModel> model, int partIndex)
        : model_(std::move(model)), partIndex_(partIndex) {}

    std::shared_ptr<const InterfaceData> interfaceData() const override;

private:
    std::shared_ptr<const cad::CadModel> model_;
    int partIndex_;
    mutable std::once_flag converted_;
    mutable std::shared_ptr<const InterfaceData> data_;
};

// The contours of a face by edge ids, as the host's surface visits give them.
std::vector<EdgeContour> contoursOf(const cad::CadFace& face);

}  // namespace host::realmodel
