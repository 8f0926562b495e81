// The contours and edges of a visited surface, and the curves in surface
// parameters that the plug-in allocates and the host fills.
#include "host/ops/OperationSupport.h"
#include "host/ops/Operations.h"
#include "host/ops/Visits.h"

namespace host {

ProError ops::ProSurfaceContourVisit(Session&, ProSurface surface, ProContourVisitAction action,
                                     ProContourFilterAction filter, ProAppData data) {
    if (!surface || !action) return PRO_TK_BAD_INPUTS;
    return visitEach(objectOf<Surface>(surface)->contours, handleMaker<ProContour>(), filter, action, data);
}

ProError ops::ProContourTraversalGet(Session&, ProContour contour, int* traversal) {
    if (!contour || !traversal) return PRO_TK_BAD_INPUTS;
    *traversal = objectOf<EdgeContour>(contour)->traversal;
    return PRO_TK_NO_ERROR;
}

ProError ops::ProContourEdgeVisit(Session&, ProSurface surface, ProContour contour, ProEdgeVisitAction action,
                                  ProEdgeFilterAction filter, ProAppData data) {
    if (!surface || !contour || !action) return PRO_TK_BAD_INPUTS;
    return visitEach(objectOf<EdgeContour>(contour)->edgeIds, handleMaker<ProEdge>(), filter, action, data);
}

// An edge handle points at the edge's id in its contour.
ProError ops::ProEdgeIdGet(Session&, ProEdge edge, int* id) {
    if (!edge || !id) return PRO_TK_BAD_INPUTS;
    *id = *objectOf<int>(edge);
    return PRO_TK_NO_ERROR;
}

ProError ops::ProCurvedataAlloc(Session& session, ProCurvedata* curve) {
    if (!curve) return PRO_TK_BAD_INPUTS;
    *curve = handleOf<ProCurvedata>(*session.handles().curves.make());
    return PRO_TK_NO_ERROR;
}

ProError ops::ProCurvedataMemoryFree(Session& session, ProCurvedata curve) {
    if (!session.handles().curves.release(curve)) {
        session.errors().add("ProCurvedataMemoryFree: the handle is no curve storage that is out");
        return PRO_TK_BAD_INPUTS;
    }
    return PRO_TK_NO_ERROR;
}

ProError ops::ProCurvedataTypeGet(Session& session, ProCurvedata curve, int* type) {
    const CurveStorage* storage = session.handles().curves.find(curve);
    if (!storage || !type) {
        session.errors().add("ProCurvedataTypeGet: the handle is no curve storage that is out");
        return PRO_TK_BAD_INPUTS;
    }
    *type = storage->type;
    return PRO_TK_NO_ERROR;
}

// Copies of the curve's data as host arrays that the plug-in frees; weights
// null for a non-rational curve. A curve that is no B-spline fails.
ProError ops::ProBsplinedataGet(Session& session, ProCurvedata curve, int* degree, double** knots, double** weights,
                                Pro3dPnt** points, int* knotCount, int* pointCount) {
    static_assert(sizeof(Pro3dPnt) == sizeof(Point3), "the host's point has the toolkit's layout");
    const CurveStorage* storage = session.handles().curves.find(curve);
    if (!storage) {
        session.errors().add("ProBsplinedataGet: the handle is no curve storage that is out");
        return PRO_TK_BAD_INPUTS;
    }
    if (!degree || !knots || !weights || !points || !knotCount || !pointCount) return PRO_TK_BAD_INPUTS;
    if (storage->type != PRO_ENT_B_SPLINE || !storage->curve) return PRO_TK_GENERAL_ERROR;
    const BsplineCurveData& source = *storage->curve;
    *degree = source.degree;
    *knots = session.arrays().copyOf<double>(source.knots, "curve knots");
    *weights = source.weights.empty() ? nullptr : session.arrays().copyOf<double>(source.weights, "curve weights");
    *points = reinterpret_cast<Pro3dPnt*>(session.arrays().copyOf<Point3>(source.points, "curve points"));
    *knotCount = static_cast<int>(source.knots.size());
    *pointCount = static_cast<int>(source.points.size());
    return PRO_TK_NO_ERROR;
}

}  // namespace host
