// The pure rules of the exact road: reversing, chaining and orienting trim
// curves, the flat trim buffers, the layout of a NURBS surface, and the
// edge-subset match of exact surfaces that no visited surface's id names.
// Every expected value is worked out by hand in the comments.
#include <gtest/gtest.h>

#include <vector>

#include "export/InterfaceData.h"
#include "export/NurbsSurfaces.h"
#include "export/TrimCurves.h"

namespace {

using Point = std::array<double, 3>;

// A curve through the given control points (u, v), knots of a clamped
// curve of that degree spread 0, 1, 2, ...
TrimCurve curveThrough(std::vector<std::array<double, 2>> uv, int degree = 1) {
    TrimCurve curve;
    curve.degree = degree;
    for (const auto& p : uv) curve.points.push_back({p[0], p[1], 0.0});
    const int spans = static_cast<int>(uv.size()) - degree;
    for (int i = 0; i < degree; ++i) curve.knots.push_back(0.0);
    for (int i = 0; i <= spans; ++i) curve.knots.push_back(i);
    for (int i = 0; i < degree; ++i) curve.knots.push_back(spans);
    return curve;
}

std::vector<Point> endsOf(const std::vector<TrimCurve>& curves) {
    std::vector<Point> ends;
    for (const TrimCurve& curve : curves) {
        ends.push_back(curve.points.front());
        ends.push_back(curve.points.back());
    }
    return ends;
}

// The unit square as one closed curve: counter-clockwise (0,0) (1,0) (1,1)
// (0,1) (0,0), and the same run clockwise.
TrimCurve counterClockwiseSquare() { return curveThrough({{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}}, 2); }
TrimCurve clockwiseSquare() { return curveThrough({{0, 0}, {0, 1}, {1, 1}, {1, 0}, {0, 0}}, 2); }

// The unit square as four straight edges, counter-clockwise.
std::vector<TrimCurve> squareEdges() {
    return {curveThrough({{0, 0}, {1, 0}}), curveThrough({{1, 0}, {1, 1}}), curveThrough({{1, 1}, {0, 1}}),
            curveThrough({{0, 1}, {0, 0}})};
}

TEST(TrimCurveReversal, MirrorsKnotSpansKeepingTheStart) {
    // new[0] = 0; new[1] = 3 - 3 + 0 = 0; new[2] = 3 - 1 + 0 = 2;
    // new[3] = 1 - 0 + 2 = 3; new[4] = 0 - 0 + 3 = 3.
    TrimCurve curve;
    curve.degree = 1;
    curve.knots = {0, 0, 1, 3, 3};
    curve.weights = {1.0, 0.5, 0.25};
    curve.points = {{0, 0, 7}, {1, 0, 8}, {1, 1, 9}};
    TrimCurve reversed = reverseTrimCurve(curve);
    EXPECT_EQ(reversed.knots, (std::vector<double>{0, 0, 2, 3, 3}));
    EXPECT_EQ(reversed.weights, (std::vector<double>{0.25, 0.5, 1.0}));
    EXPECT_EQ(reversed.points, (std::vector<Point>{{1, 1, 9}, {1, 0, 8}, {0, 0, 7}}));
    EXPECT_EQ(reversed.degree, 1);

    // A range that starts at 2 keeps its start: 2, 2, 2 + (5 - 3), 5, 5.
    curve.knots = {2, 2, 3, 5, 5};
    EXPECT_EQ(reverseTrimCurve(curve).knots, (std::vector<double>{2, 2, 4, 5, 5}));
    curve.weights.clear();
    EXPECT_TRUE(reverseTrimCurve(curve).weights.empty()) << "an unweighted curve stays unweighted";
}

TEST(TrimCurveChain, InsertsEachCurveNextToTheCurveItMeets) {
    // Given 1, 3, 2, 4. Pass 1: 1 starts the chain; 3 meets nothing yet;
    // 2 starts where 1 ends -> [1, 2]; 4 ends where 1 starts -> [4, 1, 2].
    // Pass 2: 3 ends where 4 starts -> [3, 4, 1, 2], a rotation of 1..4.
    std::vector<TrimCurve> edges = squareEdges();
    std::vector<TrimCurve> chained = chainTrimCurves({edges[0], edges[2], edges[1], edges[3]});
    EXPECT_EQ(endsOf(chained), endsOf({edges[2], edges[3], edges[0], edges[1]}));
}

TEST(TrimCurveChain, EndsMeetOnlyWithinTheTolerance) {
    struct Case {
        double gap;
        size_t expected;
    };
    // 5e-11 in both coordinates connects; 2e-10 doesn't, and the lone curve
    // survives one pass without progress and is dropped in the next.
    for (Case c : {Case{5e-11, 2}, Case{2e-10, 1}}) {
        TrimCurve a = curveThrough({{0, 0}, {1, 0}});
        TrimCurve b = curveThrough({{1 + c.gap, c.gap}, {2, 0}});
        std::vector<TrimCurve> chained = chainTrimCurves({a, b});
        ASSERT_EQ(chained.size(), c.expected) << "gap " << c.gap;
        EXPECT_EQ(chained.front().points.front(), (Point{0, 0, 0}));
    }
}

TEST(TrimCurveTurns, CountsSignedCornersOverTwoLaps) {
    // One closed curve (0,0) (1,0) (1,1) (0,1) (0,0): 5 points, n = 10, so
    // the walk takes each of the 5 consecutive triples twice. The three
    // corners give cross = -1 each, the triples with the repeated (0,0) give
    // 0: turns = 2 x -3 = -6. Run the other way: +6.
    EXPECT_EQ(contourTurns({counterClockwiseSquare()}), -6);
    EXPECT_EQ(contourTurns({clockwiseSquare()}), 6);
    // Four straight edges: each end point stands twice in the flat sequence,
    // so every triple holds two equal neighbours and every cross is 0.
    EXPECT_EQ(contourTurns(squareEdges()), 0);
    EXPECT_EQ(contourTurns({}), 0);
}

TEST(TrimCurveOrientation, OuterContoursEndCounterClockwiseHolesClockwiseTiesCountAsClockwise) {
    struct Case {
        const char* name;
        std::vector<TrimCurve> curves;
        int traversal;
        bool reversed;
    };
    const Case cases[] = {
        {"outer, counter-clockwise", {counterClockwiseSquare()}, 1, false},
        {"outer, clockwise", {clockwiseSquare()}, 1, true},
        {"hole, counter-clockwise", {counterClockwiseSquare()}, -1, true},
        {"hole, clockwise", {clockwiseSquare()}, -1, false},
        {"no traversal, clockwise", {clockwiseSquare()}, 0, false},
        {"outer, straight edges (tie)", squareEdges(), 1, true},
        {"hole, straight edges (tie)", squareEdges(), -1, false},
    };
    for (const Case& c : cases) {
        std::vector<TrimCurve> curves = c.curves;
        orientTrimCurves(curves, c.traversal);
        std::vector<Point> expected;
        for (const TrimCurve& curve : c.curves) {
            const TrimCurve& oriented = c.reversed ? reverseTrimCurve(curve) : curve;
            expected.push_back(oriented.points.front());
            expected.push_back(oriented.points.back());
        }
        EXPECT_EQ(endsOf(curves), expected) << c.name << ": only each curve's direction changes, never the order";
    }
}

TEST(TrimBuffers, FlattenContoursWithWeightedPointsAndKnotRanges) {
    ScratchArrays buffers;
    buffers.meshVertices = {1, 2, 3};
    buffers.edgeKnots = {99};
    buffers.clearTrim();
    EXPECT_TRUE(buffers.edgeKnots.empty());
    EXPECT_EQ(buffers.meshVertices.size(), 3u) << "the mesh buffers are left alone";

    // A hole of one weighted quadratic arc; the host's third coordinate (9)
    // is not sent, and u, v are not multiplied by the weight.
    TrimCurve arc;
    arc.degree = 2;
    arc.knots = {0, 0, 0, 1, 1, 1};
    arc.weights = {1.0, 0.5, 1.0};
    arc.points = {{0, 0, 9}, {0.5, 1, 9}, {1, 0, 9}};
    TrimCurve line = curveThrough({{1, 0}, {0, 0}});
    line.knots = {2, 2, 5, 5};
    beginTrimContour(buffers);
    appendTrimCurve(buffers, arc);
    appendTrimCurve(buffers, line);
    endTrimContour(buffers, -1);
    // An outer contour whose edges gave no curve still counts.
    beginTrimContour(buffers);
    endTrimContour(buffers, 1);

    EXPECT_EQ(buffers.trimEdgeCounts, (std::vector<int>{2, 0}));
    EXPECT_EQ(buffers.trimInside, (std::vector<int>{0, 1}));
    EXPECT_EQ(buffers.edgeOrders, (std::vector<int>{3, 2}));
    EXPECT_EQ(buffers.edgeKnotCounts, (std::vector<int>{6, 4}));
    EXPECT_EQ(buffers.edgeMins, (std::vector<double>{0, 2}));
    EXPECT_EQ(buffers.edgeMaxs, (std::vector<double>{1, 5}));
    EXPECT_EQ(buffers.edgeKnots, (std::vector<double>{0, 0, 0, 1, 1, 1, 2, 2, 5, 5}));
    EXPECT_EQ(buffers.edgeUvws, (std::vector<double>{0, 0, 1, 0.5, 1, 0.5, 1, 0, 1, 1, 0, 1, 0, 0, 1}));
}

TEST(NurbsSurfaceLayout, ControlNetRunsUFastestWithWeights) {
    // 2 x 3 points: U degree 1 with 4 knots (4 - 1 - 1 = 2), V degree 1 with
    // 5 knots (5 - 1 - 1 = 3). The host's point (u, v) stands at u * 3 + v;
    // here it is (u, v, 10u + v) with weight u * 3 + v + 1.
    const double knotsU[] = {0, 0, 1, 1};
    const double knotsV[] = {0, 0, 0.5, 1, 1};
    const Pro3dPnt points[] = {{0, 0, 0}, {0, 1, 1}, {0, 2, 2}, {1, 0, 10}, {1, 1, 11}, {1, 2, 12}};
    const double weights[] = {1, 2, 3, 4, 5, 6};
    auto layout = layoutNurbsSurface(1, 1, knotsU, knotsV, weights, points);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->uorder, 2);
    EXPECT_EQ(layout->vorder, 2);
    // umin = U knot 1, umax = U knot 4 - 1 - 1 = 2; vmin = V knot 1, vmax = V knot 3.
    EXPECT_EQ(layout->umin, 0.0);
    EXPECT_EQ(layout->umax, 1.0);
    EXPECT_EQ(layout->vmin, 0.0);
    EXPECT_EQ(layout->vmax, 1.0);
    EXPECT_EQ(layout->vknots, (std::vector<double>{0, 0, 0.5, 1, 1}));
    // (0,0) (1,0) (0,1) (1,1) (0,2) (1,2).
    EXPECT_EQ(layout->pw, (std::vector<double>{0, 0, 0, 1, 1, 0, 10, 4, 0, 1, 1, 2, 1, 1, 11, 5, 0, 2, 2, 3, 1, 2,
                                               12, 6}));
}

TEST(NurbsSurfaceLayout, DomainComesFromTheKnotsAtTheDegreeWhateverTheEnds) {
    // A bicubic patch with 8 knots each way: 4 x 4 points, 64 numbers of Pw,
    // w = 1 without weights. Knots -3 .. 4 look periodic: the domain is still
    // knot 3 (0) to knot 8 - 3 - 1 = 4 (1).
    const double uniform[] = {-3, -2, -1, 0, 1, 2, 3, 4};
    const double clamped[] = {0, 0, 0, 0, 1, 1, 1, 1};
    Pro3dPnt net[16];
    for (auto& point : net) point[0] = point[1] = point[2] = 1.0;
    auto layout = layoutNurbsSurface(3, 3, uniform, clamped, nullptr, net);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->uorder, 4);
    EXPECT_EQ(layout->umin, 0.0);
    EXPECT_EQ(layout->umax, 1.0);
    EXPECT_EQ(layout->vmax, 1.0);
    ASSERT_EQ(layout->pw.size(), 64u);
    EXPECT_EQ(layout->pw[3], 1.0);
    EXPECT_EQ(layout->pw[63], 1.0);
    // Too few points for the knots: no surface.
    EXPECT_FALSE(layoutNurbsSurface(3, 3, uniform, clamped, nullptr, std::span<const Pro3dPnt>(net, 15)));
}

TEST(ExactSurfaceMatch, AContourMustLieWithinOneVisitedContour) {
    struct Case {
        const char* name;
        EdgeContours exact;
        EdgeContours visited;
        bool held;
    };
    const Case cases[] = {
        {"subset of one contour", {{1, 2}}, {{3, 1, 2, 4}}, true},
        {"edges split over two contours", {{1, 5}}, {{1, 2}, {5, 6}}, false},
        {"the second contour is held", {{7, 8}, {1}}, {{1, 2}}, true},
        {"one way only: a superset is not held", {{1, 2, 3}}, {{1, 2}}, false},
        {"an empty contour is held by the first", {{}}, {{9}}, true},
        {"an empty contour needs a first contour", {{}}, {}, false},
        {"no contours", {}, {{1}}, false},
    };
    for (const Case& c : cases) EXPECT_EQ(contoursHeldBy(c.exact, c.visited), c.held) << c.name;
}

TEST(ExactSurfaceMatch, TheFirstHoldingVisitedSurfaceWinsAndLaterOnesAreNotRead) {
    const std::vector<EdgeContours> visited = {{{1, 2}}, {{10, 11, 12}}, {{10, 11}}};
    std::vector<size_t> read;
    auto contoursOf = [&](size_t i) {
        read.push_back(i);
        return visited[i];
    };
    EXPECT_EQ(firstHoldingSurface({{11, 10}}, visited.size(), contoursOf), std::optional<size_t>(1));
    EXPECT_EQ(read, (std::vector<size_t>{0, 1}));
    EXPECT_EQ(firstHoldingSurface({{40}}, visited.size(), contoursOf), std::nullopt) << "dropped";
}

}  // namespace
