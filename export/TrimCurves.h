#pragma once
// The curves that trim an exact surface, in the surface's own parameters:
// each contour's curves chained end to end, outer contours turned one way
// and holes the other, and flattened into the eight trim buffers that the
// "nurbs" object carries.
#include <array>
#include <vector>

#include "importers/sceneapi/nvxScene_api.h"
#include "export/ScratchArrays.h"

// A B-spline curve in surface parameters: u and v of each control point (the
// host's third coordinate is kept but never sent), weights empty for an
// unweighted curve.
struct TrimCurve {
    int degree = 0;
    std::vector<double> knots;
    std::vector<double> weights;
    std::vector<std::array<double, 3>> points;
};

// The same curve run the other way: knot spans mirrored with the start of
// the parameter range kept, weights and control points in reverse order.
TrimCurve reverseTrimCurve(const TrimCurve& curve);

// Chains curves end to end by their first and last control points (u and v,
// each within 1e-10). A curve is put after the first chained curve whose end
// it meets, or before the first whose start meets its end; one that meets
// nothing is kept for one more pass and then dropped.
std::vector<TrimCurve> chainTrimCurves(std::vector<TrimCurve> curves);

// The turn count of a contour: walks the flat sequence of all control points'
// u and v, n numbers, for n steps, taking each step's three points at the
// offsets 2i, 2i + 2 and 2i + 4 modulo n, and counts +1 for a positive cross
// product and -1 for a negative one. Positive means clockwise.
int contourTurns(const std::vector<TrimCurve>& curves);

// Reverses every curve of an external contour (traversal 1) whose turn count
// is 0 or more, and of a hole (traversal -1) whose count is below 0; the
// order of the curves stays. Traversal 0 is never reversed.
void orientTrimCurves(std::vector<TrimCurve>& curves, int traversal);

// Starts a contour: a 0 curve count, to which appendTrimCurve adds.
void beginTrimContour(ScratchArrays& buffers);
// Appends one curve of the current contour.
void appendTrimCurve(ScratchArrays& buffers, const TrimCurve& curve);
// Ends a contour: 0 for a hole (traversal -1), else 1.
void endTrimContour(ScratchArrays& buffers, int traversal);

// The eight trim attributes, written only if the contour counts, the inside
// flags, the orders and the knot counts all have an element.
void emitTrimAttributes(nvxScene_api& scene, const ScratchArrays& buffers);
