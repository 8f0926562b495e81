#pragma once
// What the host hands out for the interface data of a solid: the block, with
// a handle for each of its exact surfaces; edges, quilts and curve storage
// that the plug-in frees; and the exact data of visited surfaces. Host arrays
// made for a block or a record are freed with it.
#include <deque>
#include <memory>
#include <unordered_map>
#include <vector>

#include "host/geometry/ExactGeometry.h"
#include "toolkit/ProToolkit.h"

namespace host {

// What a ProSurfacedata handle points at: an exact surface, and the list of
// host arrays that its contour array goes to.
struct SurfacedataHandle {
    const ExactSurface* surface = nullptr;
    std::vector<void*>* arrays = nullptr;
    ProContourdata* contours = nullptr;  // made on first request
};

struct IntfDataBlock {
    std::shared_ptr<const InterfaceData> data;  // null until filled
    std::deque<SurfacedataHandle> surfaces;     // the solid's own, then those of each quilt
    std::vector<std::vector<SurfacedataHandle*>> quiltSurfaces;  // null for a missing surface
    std::vector<void*> arrays;
};

struct EdgedataHandle {
    const ExactEdge* edge = nullptr;
};

struct QuiltdataHandle {
    const ExactQuilt* quilt = nullptr;
    const std::vector<SurfacedataHandle*>* surfaces = nullptr;
    ProSurfacedata* surfaceArray = nullptr;  // a host array, freed with the quilt
};

struct CurveStorage {
    int type = 0;
    std::optional<BsplineCurveData> curve;
};

// The exact data of a visited surface: the record the plug-in sees first.
struct GeomitemRecord {
    ProGeomitemdata data{};
    ExactSurface surface;
    SurfacedataHandle handle;
    std::vector<void*> arrays;
};

class GeomitemRecords {
public:
    GeomitemRecord* make() {
        auto record = std::make_unique<GeomitemRecord>();
        GeomitemRecord* address = record.get();
        records_.emplace(&address->data, std::move(record));
        return address;
    }
    std::unique_ptr<GeomitemRecord> take(const ProGeomitemdata* data) {
        auto found = records_.find(data);
        if (found == records_.end()) return nullptr;
        auto record = std::move(found->second);
        records_.erase(found);
        return record;
    }
    size_t outstanding() const { return records_.size(); }

private:
    std::unordered_map<const ProGeomitemdata*, std::unique_ptr<GeomitemRecord>> records_;
};

}  // namespace host
