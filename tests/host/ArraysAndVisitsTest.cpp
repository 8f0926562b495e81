#include <vector>

#include "tests/host/HostOperationsTest.h"

namespace {

using namespace host::fixtures;

TEST_F(HostOperations, ArrayOperationsRefuseWhatIsNoLiveArray) {
    int elements[] = {7, 8};
    ProArray array = session().arrays().copyOf<int>(elements, "ints");
    int size = -1;
    EXPECT_EQ(host::shims::ProArraySizeGet(context, array, &size), PRO_TK_NO_ERROR);
    EXPECT_EQ(size, 2);
    EXPECT_EQ(static_cast<int*>(array)[1], 8);
    EXPECT_EQ(session().arrays().outstanding("ints"), 1u);
    ProArray alias = array;
    EXPECT_EQ(host::shims::ProArrayFree(context, &array), PRO_TK_NO_ERROR);
    EXPECT_EQ(array, nullptr);
    EXPECT_EQ(host::shims::ProArrayFree(context, &alias), PRO_TK_BAD_INPUTS);
    EXPECT_NE(alias, nullptr) << "a refused pointer is left as it was";
    size = -1;
    EXPECT_EQ(host::shims::ProArraySizeGet(context, alias, &size), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(size, -1);
    ProArray foreign = elements;
    EXPECT_EQ(host::shims::ProArrayFree(context, &foreign), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(session().arrays().outstanding(), 0u);
    ASSERT_EQ(log().size(), 3u);
    EXPECT_EQ(log()[0], "ProArrayFree: the pointer is no live host array");
}

// Records what a visit passed to its callbacks.
struct VisitLog {
    std::vector<int> filtered;
    std::vector<std::pair<int, ProError>> visited;
    int skipId = -1;    // the filter passes over this one
    int statusId = -1;  // the filter answers 5 for this one
    int stopId = -1;    // the action answers 9 for this one
};

ProError filterSurface(ProSurface surface, ProAppData data) {
    auto& record = *static_cast<VisitLog*>(data);
    int id = host::ops::objectOf<host::Surface>(surface)->id;
    record.filtered.push_back(id);
    if (id == record.skipId) return PRO_TK_CONTINUE;
    return id == record.statusId ? 5 : PRO_TK_NO_ERROR;
}

ProError visitSurface(ProSurface surface, ProError status, ProAppData data) {
    auto& record = *static_cast<VisitLog*>(data);
    int id = host::ops::objectOf<host::Surface>(surface)->id;
    record.visited.emplace_back(id, status);
    return id == record.stopId ? 9 : PRO_TK_NO_ERROR;
}

TEST_F(HostOperations, VisitsFilterEachItemInOrderAndStopAtAnActionsAnswer) {
    host::Model& model = session().addModel(part(u"p", 4));
    VisitLog record;
    record.skipId = 102;
    record.statusId = 103;
    EXPECT_EQ(host::shims::ProSolidSurfaceVisit(context, handle(model), visitSurface, filterSurface, &record), 0);
    EXPECT_EQ(record.filtered, (std::vector<int>{101, 102, 103, 104}));
    EXPECT_EQ(record.visited, (std::vector<std::pair<int, ProError>>{{101, 0}, {103, 5}, {104, 0}}));

    VisitLog stopping;
    stopping.stopId = 102;
    EXPECT_EQ(host::shims::ProSolidSurfaceVisit(context, handle(model), visitSurface, nullptr, &stopping), 9);
    EXPECT_EQ(stopping.visited.size(), 2u);

    // The same rules for the surfaces of a quilt.
    host::Quilt& quilt = addQuilt(model, 2);
    VisitLog quiltRecord;
    quiltRecord.skipId = quilt.surfaces[0].id;
    EXPECT_EQ(host::shims::ProQuiltSurfaceVisit(context, handle(quilt), visitSurface, filterSurface, &quiltRecord), 0);
    ASSERT_EQ(quiltRecord.visited.size(), 1u);
    EXPECT_EQ(quiltRecord.visited[0].first, quilt.surfaces[1].id);
    EXPECT_EQ(host::shims::ProSolidSurfaceVisit(context, nullptr, visitSurface, nullptr, &record), PRO_TK_BAD_INPUTS);
}

ProError collectFacet(ProFacet facet, ProError, ProAppData data) {
    static_cast<std::vector<ProFacet>*>(data)->push_back(facet);
    return PRO_TK_NO_ERROR;
}

ProError visitFacetSet(ProFacetset set, ProError, ProAppData data) {
    return host::shims::ProFacetsetFacetVisit(host::applicationContext, set, collectFacet, nullptr, data);
}

TEST_F(HostOperations, FacetsGiveTheirVertexHandlesInABlockThatIsFreedOnce) {
    host::Model& model = session().addModel(part(u"mesh", 0));
    addFacetSet(model, 2);
    std::vector<ProFacet> facets;
    EXPECT_EQ(host::shims::ProSolidFacetsetVisit(context, handle(model), visitFacetSet, nullptr, &facets), 0);
    ASSERT_EQ(facets.size(), 2u);
    ProFacetVertex* vertices = nullptr;
    ASSERT_EQ(host::shims::ProFacetVerticesGet(context, facets[1], &vertices), PRO_TK_NO_ERROR);
    Pro3dPnt point;
    host::shims::ProFacetvertexPointGet(context, vertices[1], point);
    EXPECT_EQ(point[0], 2.0);
    EXPECT_EQ(point[1], 0.0);
    ProVector normal;
    host::shims::ProFacetNormalGet(context, facets[1], normal);
    EXPECT_EQ(normal[2], 1.0);
    EXPECT_EQ(session().handles().outstanding(), 1u);
    EXPECT_EQ(host::shims::ProFacetverticesFree(context, vertices), PRO_TK_NO_ERROR);
    EXPECT_EQ(host::shims::ProFacetverticesFree(context, vertices), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(session().handles().outstanding(), 0u);
}

TEST_F(HostOperations, OutlineIsGivenComputedFromGeometryOrFails) {
    host::Model& model = session().addModel(part(u"p", 2));
    addFacetSet(model, 1).facets[0].points[2] = {0.0, 0.0, -4.0};
    Pro3dPnt outline[2];
    ASSERT_EQ(host::shims::ProSolidOutlineGet(context, handle(model), outline), PRO_TK_NO_ERROR);
    EXPECT_EQ((std::vector<double>{outline[0][0], outline[0][1], outline[0][2]}), (std::vector<double>{0, 0, -4}));
    EXPECT_EQ((std::vector<double>{outline[1][0], outline[1][1], outline[1][2]}), (std::vector<double>{2, 1, 0}));
    model.outline = std::array<host::Point3, 2>{{{-1, -2, -3}, {4, 5, 6}}};
    host::shims::ProSolidOutlineGet(context, handle(model), outline);
    EXPECT_EQ(outline[1][2], 6.0);
    session().faults().add({"ProSolidOutlineGet", 3});
    EXPECT_NE(host::shims::ProSolidOutlineGet(context, handle(model), outline), PRO_TK_NO_ERROR);
}

}  // namespace
