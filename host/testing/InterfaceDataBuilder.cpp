#include "host/testing/InterfaceDataBuilder.h"

#include <limits>

namespace host::fixtures {

BsplineSurfaceData squarePatch(Point3 corner) {
    BsplineSurfaceData patch;
    patch.degreeU = 1;
    patch.degreeV = 1;
    patch.knotsU = {0, 0, 1, 1};
    patch.knotsV = {0, 0, 1, 1};
    const double x = corner[0], y = corner[1], z = corner[2];
    // U outer: (0,0) (0,1) (1,0) (1,1).
    patch.points = {{x, y, z}, {x, y + 1, z}, {x + 1, y, z}, {x + 1, y + 1, z}};
    return patch;
}

BsplineCurveData lineIn(Point2 from, Point2 to) {
    BsplineCurveData line;
    line.degree = 1;
    line.knots = {0, 0, 1, 1};
    line.points = {{from[0], from[1], 0.0}, {to[0], to[1], 0.0}};
    return line;
}

std::array<int, 4> squareEdgeIds(int surfaceId) {
    const int base = 10 * surfaceId;
    return {base + 1, base + 2, base + 3, base + 4};
}

EdgeContour squareContour(int surfaceId) {
    const auto ids = squareEdgeIds(surfaceId);
    return {PRO_CONTOUR_TRAV_EXTERNAL, {ids.begin(), ids.end()}};
}

void InterfaceDataBuilder::addSquareEdges(int surfaceId) {
    const auto ids = squareEdgeIds(surfaceId);
    const Point2 corners[] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    for (size_t k = 0; k < 4; ++k) {
        ExactEdge edge;
        edge.id = ids[k];
        edge.sides[0] = {surfaceId, 0, PRO_ENT_B_SPLINE, lineIn(corners[k], corners[(k + 1) % 4])};
        addEdge(std::move(edge));
    }
}

ExactSurface& InterfaceDataBuilder::addSquare(int surfaceId, Point3 corner) {
    addSquareEdges(surfaceId);
    return addSurface({surfaceId, squarePatch(corner), {squareContour(surfaceId)}});
}

ExactSurface& InterfaceDataBuilder::addSurface(ExactSurface surface) {
    data_.surfaces.push_back(std::move(surface));
    return data_.surfaces.back();
}

ExactEdge& InterfaceDataBuilder::addEdge(ExactEdge edge) {
    data_.edges.push_back(std::move(edge));
    return data_.edges.back();
}

ExactQuilt& InterfaceDataBuilder::addQuilt(int id, std::vector<std::optional<ExactSurface>> surfaces) {
    data_.quilts.push_back({id, std::move(surfaces)});
    return data_.quilts.back();
}

std::shared_ptr<const InterfaceDataSource> InterfaceDataBuilder::source() const {
    return std::make_shared<FixedInterfaceData>(std::make_shared<const InterfaceData>(data_));
}

namespace {

Point3 lowCorner(const Surface& surface) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    Point3 low{infinity, infinity, infinity}, high{-infinity, -infinity, -infinity};
    if (surface.geometry) surface.geometry->extend(low, high);
    return low[0] <= high[0] ? low : Point3{0.0, 0.0, 0.0};
}

}  // namespace

void giveExactSquares(Model& model) {
    InterfaceDataBuilder exact;
    for (Surface& surface : model.surfaces) {
        exact.addSquare(surface.id, lowCorner(surface));
        surface.contours = {squareContour(surface.id)};
    }
    for (Quilt& quilt : model.quilts) {
        std::vector<std::optional<ExactSurface>> twins;
        for (Surface& surface : quilt.surfaces) {
            ExactSurface twin = exact.addSquare(surface.id, lowCorner(surface));
            exact.data().surfaces.pop_back();
            twins.push_back(std::move(twin));
            surface.contours = {squareContour(surface.id)};
        }
        exact.addQuilt(quilt.id, std::move(twins));
    }
    model.exactGeometry = exact.source();
}

}  // namespace host::fixtures
