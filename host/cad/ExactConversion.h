#pragma once
// A part's exact geometry as the host's interface data: every face converted
// to a B-spline surface by the kernel's NURBS conversion, under the face's
// id, with its contours; every edge with its curve in the parameters of each
// face that uses it, as a 2D B-spline; the quilts as the part's shells.
#include <memory>

#include "host/cad/CadModel.h"
#include "host/geometry/ExactGeometry.h"

namespace host::cad {

// Converts the part at `partIndex`; faces the kernel can't convert stand
// without a shape, and edge uses without a curve in parameters without one.
std::shared_ptr<const InterfaceData> convertToInterfaceData(const CadModel& model, int partIndex);

}  // namespace host::cad
