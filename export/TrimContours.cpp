#include "export/TrimContours.h"

#include <cstddef>

#include "toolkit/HostCallback.h"

namespace {

template <typename Element>
void freeArray(Element*& array) {
    if (array) ProArrayFree(reinterpret_cast<ProArray*>(&array));
}

// The side of the edge that lies on this surface: its curve and direction.
struct PickedSide {
    ProCurvedata curve = nullptr;
    int direction = 0;
};

PickedSide pickSide(int edgeId, const int surfaceIds[2], const int directions[2], ProCurvedata curves[2],
                    int surfaceId, const std::set<int>& visitedSurfaceIds) {
    PickedSide picked;
    if (surfaceIds[0] == surfaceId) picked = {curves[0], directions[0]};
    else if (surfaceIds[1] == surfaceId) picked = {curves[1], directions[1]};
    else picked.direction = edgeId;  // no side matches: the edge's id stands in
    if (picked.curve) return picked;
    if (!visitedSurfaceIds.contains(surfaceIds[0])) picked.curve = curves[0];
    else if (!visitedSurfaceIds.contains(surfaceIds[1])) picked.curve = curves[1];
    return picked;
}

void freeCurves(ProCurvedata curves[2]) {
    for (int side = 0; side < 2; ++side) {
        if (curves[side]) ProCurvedataMemoryFree(curves[side]);
    }
}

void readContourEdge(ProEdge edge, ContourVisitData& data) {
    int edgeId = 0;
    ProEdgeIdGet(edge, &edgeId);
    const int index = (*data.edgeIndexById)[edgeId];
    ProEdgedata edgeData = nullptr;
    if (ProIntfDataEdgeGet(data.interfaceData, index, &edgeData) != PRO_TK_NO_ERROR) return;

    ProCurvedata curves[2] = {nullptr, nullptr};
    ProCurvedataAlloc(&curves[0]);
    ProCurvedataAlloc(&curves[1]);
    int id = 0, surfaceIds[2] = {-1, -1}, directions[2] = {0, 0};
    ProEdgedataGet(edgeData, &id, surfaceIds, directions, nullptr, curves, nullptr);
    int surfaceId = 0;
    ProSurfaceIdGet(*data.surface, &surfaceId);

    const PickedSide picked = pickSide(edgeId, surfaceIds, directions, curves, surfaceId, *data.visitedSurfaceIds);
    int type = 0;
    TrimCurve curve;
    if (picked.curve && ProCurvedataTypeGet(picked.curve, &type) == PRO_TK_NO_ERROR && type == PRO_ENT_B_SPLINE &&
        readTrimCurve(picked.curve, curve)) {
        data.curves.push_back(picked.direction == PRO_EDGE_DIRECTION_REVERSED ? reverseTrimCurve(curve)
                                                                              : std::move(curve));
    }
    freeCurves(curves);
    ProEdgedataMemoryFree(edgeData);
}

ProError visitContourEdge(ProEdge edge, ProError, ProAppData appData) {
    return toolkit::guardVisit([&] {
        readContourEdge(edge, *static_cast<ContourVisitData*>(appData));
        return PRO_TK_NO_ERROR;
    });
}

ProError visitContour(ProContour contour, ProError, ProAppData appData) {
    return toolkit::guardVisit([&] {
        auto& data = *static_cast<ContourVisitData*>(appData);
        int traversal = PRO_CONTOUR_TRAV_NONE;
        ProContourTraversalGet(contour, &traversal);
        beginTrimContour(*data.buffers);
        data.curves.clear();
        ProContourEdgeVisit(*data.surface, contour, visitContourEdge, nullptr, appData);
        toolkit::rethrowVisitFailure();
        std::vector<TrimCurve> chained = chainTrimCurves(std::move(data.curves));
        data.curves.clear();
        orientTrimCurves(chained, traversal);
        for (const TrimCurve& curve : chained) appendTrimCurve(*data.buffers, curve);
        endTrimContour(*data.buffers, traversal);
        return PRO_TK_NO_ERROR;
    });
}

}  // namespace

bool readTrimCurve(ProCurvedata curve, TrimCurve& result) {
    int degree = 0, knotCount = 0, pointCount = 0;
    double* knots = nullptr;
    double* weights = nullptr;
    Pro3dPnt* points = nullptr;
    if (ProBsplinedataGet(curve, &degree, &knots, &weights, &points, &knotCount, &pointCount) != PRO_TK_NO_ERROR)
        return false;
    result.degree = degree;
    if (knots) result.knots.assign(knots, knots + knotCount);
    if (weights) result.weights.assign(weights, weights + pointCount);
    result.points.resize(points ? static_cast<std::size_t>(pointCount) : 0);
    for (std::size_t i = 0; i < result.points.size(); ++i) result.points[i] = {points[i][0], points[i][1], points[i][2]};
    freeArray(knots);
    freeArray(weights);
    freeArray(points);
    return true;
}

void readTrimContours(ContourVisitData& data) {
    ProSurfaceContourVisit(*data.surface, visitContour, nullptr, &data);
    toolkit::rethrowVisitFailure();
}
