// The exact surfaces that an export sends beside the meshes: a "nurbs"
// object for each exact surface of a visited surface, before the row's
// triangles, with its B-spline and its trim curves in the surface's
// parameters. The interface data is written by hand, so each expected value
// is worked out from the rules in the comments.
#include <gtest/gtest.h>

#include "host/testing/InterfaceDataBuilder.h"
#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"
#include "tests/exporthost/ExportScenario.h"

namespace exporttest {
namespace {

using namespace host::fixtures;
using scenereader::Block;

const Block& geometryOf(const Block& object) {
    const Block* geometry = object.child("geometry");
    if (!geometry) throw std::runtime_error("object without geometry");
    return *geometry;
}

std::vector<std::string> geometryKinds(const Block& block) {
    std::vector<std::string> kinds;
    for (const Block* object : objectsOf(block)) kinds.push_back(geometryOf(*object).name());
    return kinds;
}

double scalarOf(const Block& geometry, std::string_view name) {
    const scenereader::Statement* statement = geometry.statement(name);
    if (!statement || statement->numbers().empty()) throw std::runtime_error("no scalar " + std::string(name));
    return statement->numbers().front();
}

// Exports the model as a part with NURBS on (the default) and reads the
// scene back, checked by the reader unless a test leaves a contour open on
// purpose; the host must have logged nothing and kept nothing.
scenereader::Document exportPart(ExportScenario& run, host::Model& model, bool checked = true) {
    run.open(model, PRO_MODE_PART);
    run.pressExport();
    EXPECT_TRUE(run.session.errors().empty());
    EXPECT_EQ(run.session.handles().outstanding(), 0u) << "interface data, edges, quilts and curves are freed";
    EXPECT_EQ(run.session.arrays().outstanding(), 1u) << "only the saved views' names are kept";
    return checked ? run.readScene() : scenereader::readSceneFile(run.path("scene.vnz").string());
}

TEST(ExactExport, EachSurfaceSendsItsNurbsObjectBeforeTheRowsMesh) {
    ExportScenario run;
    host::Model& plate = run.session.addModel(part(u"plate", 2));
    giveExactSquares(plate);
    const scenereader::Document scene = exportPart(run, plate);

    const Block& solid = *topGroup(scene).child("group");
    const std::vector<const Block*> rows = solid.children("group");
    ASSERT_EQ(rows.size(), 1u) << "both squares share the default appearance";
    EXPECT_EQ(rows[0]->name(), "plate");
    EXPECT_EQ(geometryKinds(*rows[0]), (std::vector<std::string>{"nurbs", "nurbs", "triangles"}));

    // The second square, corner (1, 0, 0): host points U outer (1,0,0)
    // (1,1,0) (2,0,0) (2,1,0); "Pw" runs U fastest, w = 1.
    const Block& second = geometryOf(*objectsOf(*rows[0])[1]);
    EXPECT_EQ(scalarOf(second, "uorder"), 2.0);
    EXPECT_EQ(scalarOf(second, "vorder"), 2.0);
    EXPECT_EQ(scalarOf(second, "umin"), 0.0);
    EXPECT_EQ(scalarOf(second, "umax"), 1.0);
    EXPECT_EQ(doublesOf(second, "uknot"), (std::vector<double>{0, 0, 1, 1}));
    EXPECT_EQ(doublesOf(second, "Pw"), (std::vector<double>{1, 0, 0, 1, 2, 0, 0, 1, 1, 1, 0, 1, 2, 1, 0, 1}));

    // Edges 1 to 4 counter-clockwise from (0,0). The chain takes 1, puts 2
    // after it and 3 after 2, and 4, which meets no end of 1 but its start,
    // before 1: 4 1 2 3. Every turn of straight edges is 0, a tie counts as
    // clockwise, so the outer contour has each curve reversed in place.
    EXPECT_EQ(intsOf(second, "trim_nedges"), (std::vector<int32_t>{4}));
    EXPECT_EQ(intsOf(second, "trim_inside"), (std::vector<int32_t>{1}));
    EXPECT_EQ(intsOf(second, "edge_order"), (std::vector<int32_t>{2, 2, 2, 2}));
    EXPECT_EQ(intsOf(second, "edge_nknots"), (std::vector<int32_t>{4, 4, 4, 4}));
    EXPECT_EQ(doublesOf(second, "edge_min"), (std::vector<double>{0, 0, 0, 0}));
    EXPECT_EQ(doublesOf(second, "edge_max"), (std::vector<double>{1, 1, 1, 1}));
    EXPECT_EQ(doublesOf(second, "edge_uvw"),
              (std::vector<double>{0, 0, 1, 0, 1, 1, 1, 0, 1, 0, 0, 1, 1, 1, 1, 1, 0, 1, 0, 1, 1, 1, 1, 1}));
    EXPECT_EQ(materialKeys(*rows[0]).size(), 3u) << "each object carries the row's material";
}

TEST(ExactExport, EdgesAreTurnedByTheirDirectionAndOnlyBsplinesCount) {
    // Square 101: edge 1012 gives its curve backwards with direction 1, so it
    // is reversed back to (1,0)->(1,1); edge 1014 is no B-spline and gives
    // none. The chain (0,0)->(1,0), (1,0)->(1,1), (1,1)->(0,1) has the flat
    // points (0,0) (1,0) (1,0) (1,1) (1,1) (0,1): only the triples at (0,1)
    // and at (0,0) turn, each by -1, so turns = 2 laps x -2 = -4 and the
    // outer contour stays as it is.
    ExportScenario run;
    host::Model& plate = run.session.addModel(part(u"plate", 1));
    plate.surfaces[0].contours = {squareContour(101)};
    InterfaceDataBuilder exact;
    exact.addSquare(101);
    host::InterfaceData& data = exact.data();
    data.edges[1].sides[0].curve = lineIn({1, 1}, {1, 0});
    data.edges[1].sides[0].direction = PRO_EDGE_DIRECTION_REVERSED;
    data.edges[3].sides[0].curveType = 17;
    plate.exactGeometry = exact.source();
    const scenereader::Document scene = exportPart(run, plate, false);

    const Block& nurbs = geometryOf(*objectsOf(topGroup(scene)).front());
    EXPECT_EQ(intsOf(nurbs, "trim_nedges"), (std::vector<int32_t>{3}));
    EXPECT_EQ(doublesOf(nurbs, "edge_uvw"), (std::vector<double>{0, 0, 1, 1, 0, 1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 0, 1, 1}));
    EXPECT_EQ(scenereader::checkScene(scene).size(), 1u) << "the reader names the contour left open";
}

TEST(ExactExport, SplitSurfacesJoinTheVisitedSurfaceThatHoldsTheirEdges) {
    // Square 101's own twin, then 900, a piece whose contour {1012, 1013}
    // lies in 101's contour, then 901, whose edge 7777 lies in no contour
    // and is dropped. Square 102 has no twin and gets no exact object.
    ExportScenario run;
    host::Model& plate = run.session.addModel(part(u"plate", 2));
    giveExactSquares(plate);
    InterfaceDataBuilder exact;
    exact.addSquare(101);
    exact.addSurface({900, squarePatch({0, 0, 0}), {{PRO_CONTOUR_TRAV_EXTERNAL, {1012, 1013}}}});
    exact.addSurface({901, squarePatch({0, 0, 0}), {{PRO_CONTOUR_TRAV_EXTERNAL, {7777}}}});
    plate.exactGeometry = exact.source();
    const scenereader::Document scene = exportPart(run, plate, false);

    EXPECT_EQ(geometryKinds(topGroup(scene)), (std::vector<std::string>{"nurbs", "nurbs", "triangles"}))
        << "101 and the piece 900 stand before the mesh; 901 and 102 send none";
    const auto problems = scenereader::checkScene(scene);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_NE(problems[0].find("mesh vertex"), std::string::npos) << "the mesh of 102 lies on no exact surface";
}

TEST(ExactExport, QuiltSurfacesCountAndNullsInAQuiltAreSkipped) {
    ExportScenario run;
    host::Model& sheet = run.session.addModel(part(u"sheet", 0));
    addQuilt(sheet, 2);
    giveExactSquares(sheet);
    // The block of twins with the quilt's first surface taken out.
    InterfaceDataBuilder exact;
    exact.data() = *sheet.exactGeometry->interfaceData();
    exact.data().quilts[0].surfaces[0].reset();
    sheet.exactGeometry = exact.source();
    const scenereader::Document scene = exportPart(run, sheet, false);

    EXPECT_EQ(geometryKinds(topGroup(scene)), (std::vector<std::string>{"nurbs", "triangles"}));
    const auto problems = scenereader::checkScene(scene);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_NE(problems[0].find("mesh vertex"), std::string::npos) << "the first square's mesh has no exact surface";
}

TEST(ExactExport, AFailedConversionStillSendsTheMeshesInTheirRowGroups) {
    ExportScenario run;
    host::Model& plate = run.session.addModel(part(u"plate", 2));
    giveExactSquares(plate);
    run.session.faults().add({"ProPartToProIntfData", 0, nullptr, PRO_TK_GENERAL_ERROR});
    const scenereader::Document scene = exportPart(run, plate);

    const Block& solid = *topGroup(scene).child("group");
    ASSERT_EQ(solid.children("group").size(), 1u) << "the row's group is still opened";
    EXPECT_EQ(geometryKinds(solid), (std::vector<std::string>{"triangles"}));
}

TEST(ExactExport, WithoutNurbsNoInterfaceDataIsAskedFor) {
    ExportScenario run;
    run.setSetting("includeNURBS", "false");
    host::Model& plate = run.session.addModel(part(u"plate", 1));
    giveExactSquares(plate);
    const scenereader::Document scene = exportPart(run, plate);

    const Block& solid = *topGroup(scene).child("group");
    EXPECT_TRUE(solid.children("group").empty());
    EXPECT_EQ(geometryKinds(solid), (std::vector<std::string>{"triangles"}));
}

}  // namespace
}  // namespace exporttest
