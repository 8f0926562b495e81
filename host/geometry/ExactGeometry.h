#pragma once
// A solid's exact geometry as the host's interface data gives it: every
// surface as a B-spline with its contours of edge ids, every edge with the
// curves that it has in the parameters of the surfaces beside it, and the
// quilts. Tests write it by hand; real models convert their faces with the
// geometry kernel.
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "host/geometry/SurfaceGeometry.h"
#include "toolkit/ProConstants.h"

namespace host {

// Control points with U as the outer index: (u, v) at u * countV + v.
// Weights are empty for a non-rational surface.
struct BsplineSurfaceData {
    int degreeU = 0;
    int degreeV = 0;
    std::vector<double> knotsU;
    std::vector<double> knotsV;
    std::vector<double> weights;
    std::vector<Point3> points;
};

// A curve in surface parameters: u, v and a third coordinate of 0.
struct BsplineCurveData {
    int degree = 0;
    std::vector<double> knots;
    std::vector<double> weights;
    std::vector<Point3> points;
};

// A contour: its traversal (1 outer, -1 a hole, 0 none) and its edge ids in
// the order the contour runs.
struct EdgeContour {
    int traversal = PRO_CONTOUR_TRAV_EXTERNAL;
    std::vector<int> edgeIds;
};

struct ExactSurface {
    int id = 0;
    std::optional<BsplineSurfaceData> shape;  // none: the surface is no B-spline
    std::vector<EdgeContour> contours;
};

// One side of an edge: the surface, the direction in which that surface's
// contour uses the edge, and the edge's curve in that surface's parameters.
struct EdgeSide {
    int surfaceId = -1;  // -1: no surface on this side
    int direction = 0;
    int curveType = PRO_ENT_B_SPLINE;
    std::optional<BsplineCurveData> curve;
};

struct ExactEdge {
    int id = 0;
    std::array<EdgeSide, 2> sides;
};

// A quilt's surfaces; a missing one stands as a null in the host's array.
struct ExactQuilt {
    int id = 0;
    std::vector<std::optional<ExactSurface>> surfaces;
};

struct InterfaceData {
    std::vector<ExactSurface> surfaces;  // the solid's own
    std::vector<ExactEdge> edges;
    std::vector<ExactQuilt> quilts;
    int datumCount = 0;
};

// Gives a solid's interface data; null when the conversion fails.
class InterfaceDataSource {
public:
    virtual ~InterfaceDataSource() = default;
    virtual std::shared_ptr<const InterfaceData> interfaceData() const = 0;
};

// Interface data given outright (null: the conversion fails).
class FixedInterfaceData : public InterfaceDataSource {
public:
    explicit FixedInterfaceData(std::shared_ptr<const InterfaceData> data) : data_(std::move(data)) {}
    std::shared_ptr<const InterfaceData> interfaceData() const override { return data_; }

private:
    std::shared_ptr<const InterfaceData> data_;
};

}  // namespace host
