#include "export/TrimCurves.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <list>

#include "export/SceneArrays.h"
#include "toolkit/ProToolkit.h"

TrimCurve reverseTrimCurve(const TrimCurve& curve) {
    TrimCurve reversed;
    reversed.degree = curve.degree;
    const std::vector<double>& old = curve.knots;
    const size_t count = old.size();
    reversed.knots.resize(count);
    if (count > 0) reversed.knots[0] = old[0];
    for (size_t i = 1; i < count; ++i)
        reversed.knots[i] = old[count - i] - old[count - i - 1] + reversed.knots[i - 1];
    reversed.weights.assign(curve.weights.rbegin(), curve.weights.rend());
    reversed.points.assign(curve.points.rbegin(), curve.points.rend());
    return reversed;
}

namespace {

constexpr double endTolerance = 1e-10;

bool meets(const std::array<double, 3>& a, const std::array<double, 3>& b) {
    return std::fabs(a[0] - b[0]) < endTolerance && std::fabs(a[1] - b[1]) < endTolerance;
}

// Puts `curve` next to the first chained curve that it meets; false if it
// meets none. A curve without control points meets nothing.
bool insertIntoChain(std::list<TrimCurve>& chain, TrimCurve& curve) {
    if (curve.points.empty()) return false;
    for (auto k = chain.begin(); k != chain.end(); ++k) {
        if (k->points.empty()) continue;
        if (meets(k->points.back(), curve.points.front())) {
            chain.insert(std::next(k), std::move(curve));
            return true;
        }
        if (meets(k->points.front(), curve.points.back())) {
            chain.insert(k, std::move(curve));
            return true;
        }
    }
    return false;
}

}  // namespace

std::vector<TrimCurve> chainTrimCurves(std::vector<TrimCurve> curves) {
    std::list<TrimCurve> input(std::make_move_iterator(curves.begin()), std::make_move_iterator(curves.end()));
    std::list<TrimCurve> chain;
    bool stalled = false;
    while (!input.empty()) {
        const size_t before = chain.size();
        for (auto c = input.begin(); c != input.end();) {
            if (chain.empty()) {
                chain.push_back(std::move(*c));
                c = input.erase(c);
            } else if (insertIntoChain(chain, *c) || stalled) {
                c = input.erase(c);
            } else {
                ++c;
            }
        }
        stalled = chain.size() == before;
    }
    return {std::make_move_iterator(chain.begin()), std::make_move_iterator(chain.end())};
}

int contourTurns(const std::vector<TrimCurve>& curves) {
    std::vector<double> flat;
    for (const TrimCurve& curve : curves) {
        for (const auto& point : curve.points) {
            flat.push_back(point[0]);
            flat.push_back(point[1]);
        }
    }
    const size_t n = flat.size();
    int turns = 0;
    for (size_t i = 0; i < n; ++i) {
        const size_t a = (2 * i) % n, b = (2 * i + 2) % n, c = (2 * i + 4) % n;
        const double cross =
            (flat[c + 1] - flat[b + 1]) * (flat[a] - flat[b]) - (flat[c] - flat[b]) * (flat[a + 1] - flat[b + 1]);
        if (cross > 0) ++turns;
        else if (cross < 0) --turns;
    }
    return turns;
}

void orientTrimCurves(std::vector<TrimCurve>& curves, int traversal) {
    const int turns = contourTurns(curves);
    const bool reverse = (traversal == PRO_CONTOUR_TRAV_EXTERNAL && turns >= 0) ||
                         (traversal == PRO_CONTOUR_TRAV_INTERNAL && turns < 0);
    if (!reverse) return;
    for (TrimCurve& curve : curves) curve = reverseTrimCurve(curve);
}

void beginTrimContour(ScratchArrays& buffers) { buffers.trimEdgeCounts.push_back(0); }

void appendTrimCurve(ScratchArrays& buffers, const TrimCurve& curve) {
    buffers.edgeOrders.push_back(curve.degree + 1);
    double smallest = std::numeric_limits<double>::max();
    double largest = std::numeric_limits<double>::lowest();
    for (double knot : curve.knots) {
        buffers.edgeKnots.push_back(knot);
        smallest = std::min(smallest, knot);
        largest = std::max(largest, knot);
    }
    buffers.edgeKnotCounts.push_back(static_cast<int>(curve.knots.size()));
    buffers.trimEdgeCounts.back() += 1;
    buffers.edgeMins.push_back(smallest);
    buffers.edgeMaxs.push_back(largest);
    for (size_t i = 0; i < curve.points.size(); ++i) {
        buffers.edgeUvws.push_back(curve.points[i][0]);
        buffers.edgeUvws.push_back(curve.points[i][1]);
        buffers.edgeUvws.push_back(i < curve.weights.size() ? curve.weights[i] : 1.0);
    }
}

void endTrimContour(ScratchArrays& buffers, int traversal) {
    buffers.trimInside.push_back(traversal == PRO_CONTOUR_TRAV_INTERNAL ? 0 : 1);
}

void emitTrimAttributes(nvxScene_api& scene, const ScratchArrays& buffers) {
    if (buffers.trimEdgeCounts.empty() || buffers.trimInside.empty() || buffers.edgeOrders.empty() ||
        buffers.edgeKnotCounts.empty())
        return;
    setInts(scene, "trim_nedges", buffers.trimEdgeCounts);
    setInts(scene, "trim_inside", buffers.trimInside);
    setInts(scene, "edge_order", buffers.edgeOrders);
    setInts(scene, "edge_nknots", buffers.edgeKnotCounts);
    setDoubles(scene, "edge_min", buffers.edgeMins);
    setDoubles(scene, "edge_max", buffers.edgeMaxs);
    setDoubles(scene, "edge_knot", buffers.edgeKnots);
    setDoubles(scene, "edge_uvw", buffers.edgeUvws);
}
