#pragma once
// Interface data written by hand, so that tests can give the plug-in exact
// surfaces as no geometry kernel would: split or renumbered surfaces, odd
// contours, quilts with missing surfaces, edges without curves.
//
//     InterfaceDataBuilder exact;
//     exact.addSquare(101);                       // the twin of a unit square
//     exact.addSurface({900, squarePatch({}), {{1, {1011, 1012}}}});  // a split piece
//     model.exactGeometry = exact.source();
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "host/Model.h"
#include "host/geometry/ExactGeometry.h"

namespace host::fixtures {

// A degree-1 patch over the parameters 0..1 each way, the unit square at
// `corner` in the plane z = corner z.
BsplineSurfaceData squarePatch(Point3 corner);
// A straight curve in surface parameters, degree 1, knots 0 0 1 1.
BsplineCurveData lineIn(Point2 from, Point2 to);
// The ids of a unit square's four edges: 10 x the surface id + 1 to 4,
// counter-clockwise from the parameters (0, 0).
std::array<int, 4> squareEdgeIds(int surfaceId);
// The outer contour of those four edges.
EdgeContour squareContour(int surfaceId);

class InterfaceDataBuilder {
public:
    // The exact twin of a unit square: its patch, one outer contour of its
    // four edges, and the edges, each with this surface on its first side
    // and its straight curve in parameters running counter-clockwise.
    ExactSurface& addSquare(int surfaceId, Point3 corner = {0.0, 0.0, 0.0});
    ExactSurface& addSurface(ExactSurface surface);
    ExactEdge& addEdge(ExactEdge edge);
    ExactQuilt& addQuilt(int id, std::vector<std::optional<ExactSurface>> surfaces);

    InterfaceData& data() { return data_; }
    // A source that gives a copy of the data as it stands now.
    std::shared_ptr<const InterfaceDataSource> source() const;

private:
    void addSquareEdges(int surfaceId);

    InterfaceData data_;
};

// Gives each unit square of the model, its own and those of its quilts, an
// exact twin of the same id in the model's interface data, with the square's
// contour on the visited surface too.
void giveExactSquares(Model& model);

}  // namespace host::fixtures
