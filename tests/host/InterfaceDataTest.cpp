// The interface-data operations over a hand-written block: what a block
// holds and when its arrays go, quilts with missing surfaces, curves filled
// into the plug-in's storage, and what the host refuses.
#include "host/testing/InterfaceDataBuilder.h"
#include "tests/host/HostOperationsTest.h"

namespace {

using namespace host::fixtures;
using namespace host::shims;

class InterfaceDataOperations : public HostOperations {
protected:
    // A part of one square whose block holds the square's twin, a quilt with
    // a missing surface, and, from the test, whatever it adds.
    void SetUp() override {
        model = &session().addModel(part(u"plate", 1));
        exact.addSquare(101);
        exact.addQuilt(7, {std::nullopt, ExactSurfaceOf(202)});
        model->exactGeometry = exact.source();
        solid = handle(*model);
    }

    static host::ExactSurface ExactSurfaceOf(int id) { return {id, squarePatch({}), {squareContour(id)}}; }

    ProIntfData filled() {
        ProIntfData data = nullptr;
        EXPECT_EQ(ProIntfDataAlloc(context, &data), PRO_TK_NO_ERROR);
        ProIntfDataOptions options{PRO_INTF_UV_POINTS | PRO_INTF_UV_CURVES, PRO_PART_CURVES_AS_BSPLINES,
                                   PRO_PART_SURFACES_AS_BSPL_SURFACES};
        EXPECT_EQ(ProPartToProIntfData(context, solid, &options, data), PRO_TK_NO_ERROR);
        return data;
    }

    InterfaceDataBuilder exact;
    host::Model* model = nullptr;
    ProSolid solid = nullptr;
};

TEST_F(InterfaceDataOperations, ABlockHoldsSurfacesEdgesAndQuiltsAndFreesItsArraysWithItself) {
    ProIntfData data = filled();
    int surfaces = 0, edges = 0, quilts = 0;
    ProIntfDataSurfaceCount(context, data, &surfaces);
    ProIntfDataEdgeCount(context, data, &edges);
    ProIntfDataQuiltCount(context, data, &quilts);
    EXPECT_EQ(surfaces, 1);
    EXPECT_EQ(edges, 4);
    EXPECT_EQ(quilts, 1);

    ProSurfacedata surface = nullptr;
    ASSERT_EQ(ProIntfDataSurfaceGet(context, data, 0, &surface), PRO_TK_NO_ERROR);
    int type = 0, id = 0;
    ProSurfaceshapedata shape = nullptr;
    ProSurfacedataGet(context, surface, &type, &shape, &id);
    EXPECT_EQ(id, 101);
    ProContourdata* contours = nullptr;
    ASSERT_EQ(ProSurfacedataContourArrayGet(context, surface, &contours), PRO_TK_NO_ERROR);
    int contourCount = 0, edgeCount = 0;
    ProArraySizeGet(context, contours, &contourCount);
    ProArraySizeGet(context, contours[0].edgeIds, &edgeCount);
    EXPECT_EQ(contourCount, 1);
    EXPECT_EQ(std::vector<int>(contours[0].edgeIds, contours[0].edgeIds + edgeCount),
              (std::vector<int>{1011, 1012, 1013, 1014}));

    int degrees[2] = {}, knotCountU = 0, knotCountV = 0, pointCount = 0;
    double *knotsU = nullptr, *knotsV = nullptr, *weights = nullptr;
    Pro3dPnt* points = nullptr;
    ASSERT_EQ(ProBsplinesrfdataGet(context, shape, degrees, &knotsU, &knotsV, &weights, &points, &knotCountU,
                                   &knotCountV, &pointCount),
              PRO_TK_NO_ERROR);
    EXPECT_EQ(pointCount, 4);
    EXPECT_EQ(weights, nullptr) << "a non-rational surface gives no weights";
    EXPECT_EQ(points[2][0], 1.0) << "U outer: point (1, 0) stands third";

    ProQuiltdata quilt = nullptr;
    ASSERT_EQ(ProIntfDataQuiltGet(context, data, 0, &quilt), PRO_TK_NO_ERROR);
    ProSurfacedata* quiltSurfaces = nullptr;
    ProQuiltdataGet(context, quilt, &id, &quiltSurfaces);
    int size = 0;
    ProArraySizeGet(context, quiltSurfaces, &size);
    ASSERT_EQ(size, 2);
    EXPECT_EQ(quiltSurfaces[0], nullptr) << "the missing surface stands as a null";
    ProSurfacedataGet(context, quiltSurfaces[1], &type, &shape, &id);
    EXPECT_EQ(id, 202);
    EXPECT_EQ(ProQuiltdataMemoryFree(context, quilt), PRO_TK_NO_ERROR);

    EXPECT_EQ(session().arrays().outstanding(), 2u) << "the contour array and its edge ids stay the block's";
    EXPECT_EQ(ProIntfDataFree(context, data), PRO_TK_NO_ERROR);
    EXPECT_EQ(session().arrays().outstanding(), 0u);
    EXPECT_EQ(session().handles().outstanding(), 0u);
    EXPECT_TRUE(log().empty());
}

TEST_F(InterfaceDataOperations, EdgesFillThePluginsCurvesAndCopiesAreThePluginsToFree) {
    exact.data().edges[1].sides[1] = {555, PRO_EDGE_DIRECTION_REVERSED, PRO_ENT_B_SPLINE, lineIn({0, 0}, {0, 2})};
    exact.data().edges[1].sides[1].curve->weights = {1.0, 0.5};
    model->exactGeometry = exact.source();
    ProIntfData data = filled();
    ProEdgedata edge = nullptr;
    ASSERT_EQ(ProIntfDataEdgeGet(context, data, 1, &edge), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProIntfDataEdgeGet(context, data, 4, &edge), PRO_TK_E_NOT_FOUND) << "no edge at that index";
    ProCurvedata curves[2] = {};
    ProCurvedataAlloc(context, &curves[0]);
    ProCurvedataAlloc(context, &curves[1]);
    int id = 0, surfaceIds[2] = {}, directions[2] = {};
    ASSERT_EQ(ProEdgedataGet(context, edge, &id, surfaceIds, directions, nullptr, curves, nullptr), PRO_TK_NO_ERROR);
    EXPECT_EQ(id, 1012);
    EXPECT_EQ(surfaceIds[0], 101);
    EXPECT_EQ(surfaceIds[1], 555);
    EXPECT_EQ(directions[1], PRO_EDGE_DIRECTION_REVERSED);
    int type = 0, degree = 0, knotCount = 0, pointCount = 0;
    ProCurvedataTypeGet(context, curves[1], &type);
    EXPECT_EQ(type, PRO_ENT_B_SPLINE);
    double *knots = nullptr, *weights = nullptr;
    Pro3dPnt* points = nullptr;
    ASSERT_EQ(ProBsplinedataGet(context, curves[1], &degree, &knots, &weights, &points, &knotCount, &pointCount),
              PRO_TK_NO_ERROR);
    EXPECT_EQ(weights[1], 0.5);
    EXPECT_EQ(points[1][1], 2.0);
    EXPECT_EQ(session().arrays().outstanding("curve points"), 1u);
    for (void* array : {static_cast<void*>(knots), static_cast<void*>(weights), static_cast<void*>(points)})
        ProArrayFree(context, &array);
    ProCurvedataMemoryFree(context, curves[0]);
    ProCurvedataMemoryFree(context, curves[1]);
    ProEdgedataMemoryFree(context, edge);
    ProIntfDataFree(context, data);
    EXPECT_EQ(session().handles().outstanding(), 0u);
    EXPECT_EQ(session().arrays().outstanding(), 0u);
    EXPECT_TRUE(log().empty());
}

TEST_F(InterfaceDataOperations, AConversionThatFailsLeavesTheBlockEmpty_bad_) {
    model->exactGeometry = nullptr;
    ProIntfData data = nullptr;
    ProIntfDataAlloc(context, &data);
    ProIntfDataOptions options{PRO_INTF_UV_POINTS | PRO_INTF_UV_CURVES, PRO_PART_CURVES_AS_BSPLINES,
                               PRO_PART_SURFACES_AS_BSPL_SURFACES};
    EXPECT_EQ(ProPartToProIntfData(context, solid, &options, data), PRO_TK_GENERAL_ERROR);
    options.curveOption = 1;
    EXPECT_EQ(ProPartToProIntfData(context, solid, &options, data), PRO_TK_BAD_INPUTS) << "curves not as B-splines";
    EXPECT_EQ(ProIntfDataFree(context, data), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProIntfDataFree(context, data), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProEdgedataMemoryFree(context, reinterpret_cast<ProEdgedata>(&options)), PRO_TK_BAD_INPUTS);
    ASSERT_EQ(log().size(), 2u);
    EXPECT_EQ(log()[0], "ProIntfDataFree: the handle is no interface data that is out");
}

}  // namespace
