// Export of a part through the real plug-in in the headless host: the scene
// a user gets, read back with the project's reader.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "host/geometry/TestSurface.h"
#include "scenereader/SceneReader.h"
#include "tests/exporthost/ExportScenario.h"
#include "tests/support/NativeForms.h"

namespace exporttest {
namespace {

using namespace host::fixtures;
using scenereader::Block;
using testsupport::native;


std::vector<std::string> namesOf(const std::vector<const Block*>& blocks) {
    std::vector<std::string> names;
    for (const Block* block : blocks) names.push_back(block->name());
    return names;
}

// The part's own group inside the model's group.
const Block& solidGroup(const scenereader::Document& scene) {
    const Block* group = topGroup(scene).child("group");
    if (!group) throw std::runtime_error("no solid group");
    return *group;
}

// The hand-built geometry of a surface, to set how it answers.
host::TestSurface& testSurface(host::Surface& surface) {
    auto geometry = std::make_shared<host::TestSurface>(static_cast<const host::TestSurface&>(*surface.geometry));
    surface.geometry = geometry;
    return *geometry;
}

const Block& geometryOf(const Block& object) {
    const Block* geometry = object.child("geometry");
    if (!geometry) throw std::runtime_error("object without geometry");
    return *geometry;
}

TEST(PartExport, SceneHoldsOptionsCamerasOneMeshPerAppearanceAndMaterials) {
    ExportScenario run;
    run.setSetting("includeNURBS", "false");
    host::Model& bracket = run.session.addModel(part(u"BRACKET", 3));
    bracket.surfaces[0].appearance = appearance(u"steel", {0.5, 0.5, 0.5}, 1.0, u"Steel");
    bracket.surfaces[1].appearance = appearance(u"steel", {0.5, 0.5, 0.5}, 1.0, u"Steel");
    bracket.surfaces[2].appearance = appearance(u"paint", {1.0, 0.6, 0.2}, 1.0, u"Paint");
    // Views carry the user's pan and zoom: a translation, and a scale of 2 in the current view.
    bracket.currentView = {{{0, 2, 0, 0}, {-2, 0, 0, 0}, {0, 0, 2, 0}, {10, 20, 30, 1}}};
    addView(bracket, u"FRONT", host::identityMatrix());
    addView(bracket, u"TOP", {{{1, 0, 0, 0}, {0, 0, 1, 0}, {0, -1, 0, 0}, {-4, 6, 8, 1}}});
    run.openAndExport(bracket, PRO_MODE_PART);

    scenereader::Document scene = run.readScene();
    ASSERT_FALSE(scene.comments.empty());
    EXPECT_EQ(scene.comments.front(), "//---norvex:dal:7---");
    const std::pair<const char*, const char*> options[] = {
        {"import_mode", "on"},           {"import_merge_groups", "off"},   {"import_merge_objects", "off"},
        {"import_up_vector", "1"},       {"meter_scale", "1000"},          {"import_keep_original", "on"},
        {"import_center_geometry", "on"}, {"import_snap_to_ground", "on"}, {"import_adjust_camera", "on"},
        {"import_adjust_environment", "on"}, {"ext", "off"}};
    for (const auto& [name, value] : options) EXPECT_EQ(importerOption(scene, name), value) << name;

    const Block& model = topGroup(scene);
    EXPECT_EQ(model.name(), "BRACKET");
    EXPECT_EQ(model.statement("flags"), nullptr) << "the file road sets no flags on the model's group";
    EXPECT_EQ(namesOf(model.children("camera")), (std::vector<std::string>{"Current Creo camera", "FRONT", "TOP"}));
    const Block& current = *model.child("camera");
    EXPECT_EQ(current.statement("projection")->values.front().text, "orthographic");
    EXPECT_EQ(current.statement("position")->numbers(), (std::vector<double>{0, 0, 2000}));
    // Each camera holds the inverse of its view's rotation and scale, without the translation.
    const std::vector<std::vector<double>> orientations = {
        {0, -0.5, 0, 0, 0.5, 0, 0, 0, 0, 0, 0.5, 0, 0, 0, 0, 1},
        {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1},
        {1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1}};
    for (size_t i = 0; i < orientations.size(); ++i)
        EXPECT_EQ(model.children("camera")[i]->statement("transform")->numbers(), orientations[i]) << "camera " << i;

    const Block& solid = solidGroup(scene);
    EXPECT_EQ(solid.name(), "BRACKET");
    EXPECT_EQ(solid.statement("flags")->numbers(), std::vector<double>{1024});
    ASSERT_TRUE(std::holds_alternative<scenereader::Statement>(solid.items.back()));
    EXPECT_EQ(std::get<scenereader::Statement>(solid.items.back()).name, "transform")
        << "the transform comes after the objects";
    std::vector<const Block*> objects = solid.children("object");
    ASSERT_EQ(objects.size(), 2u) << "one mesh per appearance";
    EXPECT_EQ(objects[0]->name(), "BRACKET");
    // Less red sorts first: the steel mesh of two squares comes first.
    const Block& steel = geometryOf(*objects[0]);
    EXPECT_EQ(steel.name(), "triangles");
    EXPECT_EQ(floatsOf(steel, "vertices").size(), 24u);
    EXPECT_EQ(floatsOf(steel, "normals").size(), 24u);
    EXPECT_EQ(floatsOf(steel, "uv_tex").size(), 16u);
    std::vector<int32_t> triangles = intsOf(steel, "triangles");
    ASSERT_EQ(triangles.size(), 12u);
    for (size_t i = 0; i < 6; ++i) EXPECT_EQ(triangles[i + 6], triangles[i] + 4) << "the second square's base is 4";
    EXPECT_EQ(floatsOf(geometryOf(*objects[1]), "vertices").size(), 12u);
    EXPECT_EQ(materialKeys(solid), (std::vector<std::string>{"bracket:steel:128:128:128", "bracket:paint:255:153:51"}));
    const Block& paintShader = *solid.descendants("material")[1]->statement("surface")->shader();
    std::vector<double> diffuse = paintShader.statement("diffuse")->numbers();
    ASSERT_EQ(diffuse.size(), 3u);
    for (size_t i = 0; i < 3; ++i) EXPECT_NEAR(diffuse[i], (std::array<double, 3>{1.0, 0.6, 0.2})[i], 1e-6);

    ASSERT_EQ(run.session.dialogs().history().size(), 1u);
    const host::ShownDialog& finished = run.session.dialogs().history().front();
    EXPECT_EQ(finished.name, "ExportFinished");
    EXPECT_EQ(finished.exitStatus, 0);
    ASSERT_NE(finished.find("ExportFinishedLabel"), nullptr);
    EXPECT_FALSE(finished.find("ExportFinishedLabel")->text.empty()) << "the label's text is found";
    EXPECT_NE(run.settingsFile().find(run.path("scene.vnz").string()), std::string::npos) << "the path is saved";
    EXPECT_TRUE(run.session.errors().empty());
    EXPECT_EQ(run.session.handles().outstanding(), 0u) << "inputs and tessellations are freed";
    EXPECT_EQ(run.session.arrays().outstanding(), 1u) << "only the saved views' names are kept";
}

// Chord heights of a part whose outline has the diagonal d: coarse is
// d x 0.0005, fine d x 0.0000001, and quality q takes t = 1 + 0.2 ln q of the
// way from coarse to fine.
TEST(PartExport, RetryLadderClimbsThenDescends) {
    // Two squares side by side: d = sqrt 5. Chord heights by quality:
    const double q02 = 3.6003289e-4, q03 = 2.6938627e-4, q035 = 2.3492402e-4, q04 = 2.0507147e-4;
    const double q08 = 5.0110042e-5, q085 = 3.6556676e-5, q09 = 2.3778222e-5, q10 = 2.2360680e-7;
    auto expectHeights = [](ExportScenario& run, const std::vector<double>& expected) {
        const auto& requests = run.session.tessellationRequests();
        ASSERT_GE(requests.size(), expected.size());
        for (size_t i = 0; i < expected.size(); ++i)
            EXPECT_NEAR(requests[i].chordHeight, expected[i], 1e-11) << "request " << i;
    };
    {
        // Refuses the coarse chord heights of 0.2 and 0.3; the next surface
        // starts again from the setting.
        ExportScenario run;
        host::Model& plate = run.session.addModel(part(u"plate", 2));
        testSurface(plate.surfaces[0]).failAbove(q035);
        run.openAndExport(plate, PRO_MODE_PART);
        EXPECT_EQ(run.session.tessellationRequests().size(), 4u);
        expectHeights(run, {q02, q03, q04, q02});
        EXPECT_EQ(floatsOf(geometryOf(*objectsOf(solidGroup(run.readScene())).at(0)), "vertices").size(), 24u);
    }
    {
        // At 0.9 the climb starts at 1.0 and is skipped; the descent starts
        // there and passes through the setting.
        ExportScenario run;
        run.setSetting("tessellationQuality", "0.9");
        host::Model& plate = run.session.addModel(part(u"plate", 2));
        testSurface(plate.surfaces[0]).failBelow(q085);
        run.openAndExport(plate, PRO_MODE_PART);
        expectHeights(run, {q09, q10, q09, q08});
    }
}

TEST(PartExport, SurfacesLeftOutAndTheIndexBase) {
    {
        // A null tessellation is final: no retry, the surface is left out.
        ExportScenario run;
        host::Model& plate = run.session.addModel(part(u"plate", 2));
        testSurface(plate.surfaces[0]).answerNullHandle();
        run.openAndExport(plate, PRO_MODE_PART);
        EXPECT_EQ(run.session.tessellationRequests().size(), 2u);
        scenereader::Document scene = run.readScene();
        const Block& mesh = geometryOf(*objectsOf(solidGroup(scene)).at(0));
        EXPECT_EQ(floatsOf(mesh, "vertices").size(), 12u);
        EXPECT_EQ(intsOf(mesh, "triangles"), (std::vector<int32_t>{0, 1, 2, 0, 2, 3}));
    }
    {
        // Vertices without triangles still raise the index base, so the next
        // surface's triangles point past the mesh: the counter's own rule.
        ExportScenario run;
        host::Model& plate = run.session.addModel(part(u"plate", 1));
        host::SurfaceMesh loose = host::TestSurface::unitSquare({5, 0, 0});
        loose.hasTriangles = false;
        host::Surface& first = plate.surfaces[0];
        host::Surface looseSurface = first;
        looseSurface.id = 300;
        looseSurface.geometry = std::make_shared<host::TestSurface>(loose);
        plate.surfaces.insert(plate.surfaces.begin(), looseSurface);
        run.openAndExport(plate, PRO_MODE_PART);
        scenereader::Document scene = scenereader::readSceneFile(run.path("scene.vnz").string());
        const Block& mesh = geometryOf(*objectsOf(solidGroup(scene)).at(0));
        EXPECT_EQ(floatsOf(mesh, "vertices").size(), 12u);
        EXPECT_EQ(intsOf(mesh, "triangles").front(), 4);
    }
}

TEST(PartExport, MaterialsFromSurfacePartAndDefault) {
    ExportScenario run;
    run.setSetting("includeNURBS", "false");
    fs::create_directories(run.path("maps"));
    std::ofstream(run.path("maps") / "oak.png") << "png";
    std::ofstream(run.path("maps") / "pine.png") << "png";
    run.session.setTextureSearchPath({run.path("maps")});
    host::Model& crate = run.session.addModel(part(u"Crate", 5));
    crate.appearance = appearance(u"wood", {0.2, 0.2, 0.2}, 0.8, u"Wood");
    crate.texture = texture("pine.png");
    // Two textures on otherwise equal appearances give two meshes of one key.
    crate.surfaces[0].appearance = appearance(u"oak", {1, 1, 1}, 1.0, u"Veneer");
    crate.surfaces[0].texture = texture("oak.png");
    crate.surfaces[1].appearance = appearance(u"oak", {1, 1, 1}, 1.0, u"Veneer");
    crate.surfaces[1].texture = texture("pine.png");
    // An empty Name means no appearance of its own: the part's record and
    // texture stand in for it.
    crate.surfaces[2].appearance = appearance(u"", {0, 1, 0}, 1.0, u"Ignored");
    run.openAndExport(crate, PRO_MODE_PART);

    scenereader::Document scene = run.readScene();
    const Block& solid = solidGroup(scene);
    EXPECT_EQ(materialKeys(solid),
              (std::vector<std::string>{"crate:wood:41:41:41", "crate:veneer:255:255:255", "crate:veneer:255:255:255"}));
    std::vector<const Block*> objects = solid.children("object");
    ASSERT_EQ(objects.size(), 3u);
    EXPECT_EQ(floatsOf(geometryOf(*objects[0]), "vertices").size(), 36u) << "surfaces 2 to 4 take the part's record";
    auto texturePath = [](const Block& object) {
        const scenereader::Statement* surface = object.child("material")->statement("surface");
        const Block* advanced = surface->shader();
        const Block* textureShader = nullptr;
        for (const auto& item : advanced->items) {
            const auto* statement = std::get_if<scenereader::Statement>(&item);
            if (statement && statement->boundShader) textureShader = statement->shader();
        }
        return textureShader ? textureShader->statement("texture")->values.front().text : std::string();
    };
    EXPECT_EQ(texturePath(*objects[0]), (run.path("maps") / "pine.png").string());
    EXPECT_EQ(texturePath(*objects[1]), (run.path("maps") / "oak.png").string());
    EXPECT_EQ(texturePath(*objects[2]), (run.path("maps") / "pine.png").string());
}

TEST(PartExport, FacetSetIsOneFlatMeshWithoutUv) {
    ExportScenario run;
    host::Model& scan = run.session.addModel(part(u"scan", 0));
    addFacetSet(scan, 2);
    run.openAndExport(scan, PRO_MODE_PART);
    scenereader::Document scene = run.readScene();
    const Block& solid = solidGroup(scene);
    EXPECT_EQ(solid.statement("flags")->numbers(), std::vector<double>{1024});
    std::vector<const Block*> objects = solid.children("object");
    ASSERT_EQ(objects.size(), 1u) << "no inner group: facets know no exact geometry";
    const Block& mesh = geometryOf(*objects[0]);
    EXPECT_EQ(floatsOf(mesh, "vertices").size(), 18u);
    EXPECT_EQ(floatsOf(mesh, "normals"),
              (std::vector<float>{0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1}));
    EXPECT_EQ(intsOf(mesh, "triangles"), (std::vector<int32_t>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(mesh.statement("uv_tex"), nullptr);
    EXPECT_EQ(materialKeys(solid), std::vector<std::string>{"scan:default:128:128:128"})
        << "no appearance of its own: the host's answer for no item";
}

TEST(PartExport, RepresentationChoice) {
    auto assemblyRun = [](ExportScenario& run, int representations) -> host::Model& {
        host::Model& bolt = run.session.addModel(part(u"bolt", 1));
        host::Model& top = run.session.addModel(assembly(u"top"));
        addComponent(top, &bolt, 10);
        for (int i = 0; i < representations; ++i)
            addRepresentation(top, i == 0 ? -1 : i, i == 0 ? u"Master" : u"Light", 2);
        run.open(top, PRO_MODE_ASSEMBLY);
        return top;
    };
    for (int count : {0, 1}) {
        ExportScenario run;
        assemblyRun(run, count);
        run.pressExport();
        EXPECT_TRUE(run.session.script().finished());
        EXPECT_EQ(objectsOf(topGroup(run.readScene())).size(), 1u) << count << " representations ask nothing";
    }
    {
        ExportScenario run;
        assemblyRun(run, 2);
        run.session.script().chooseRepresentation(u"Light");
        run.pressExport();
        EXPECT_TRUE(run.session.script().finished()) << "several representations: the user chooses";
        EXPECT_EQ(objectsOf(topGroup(run.readScene())).size(), 1u);
    }
    {
        ExportScenario run;
        assemblyRun(run, 2);
        run.session.script().cancelRepresentation();
        run.pressExport();
        EXPECT_FALSE(fs::exists(run.path("scene.vnz"))) << "a cancelled choice ends the run";
        EXPECT_EQ(run.session.dialogs().history().size(), 1u) << "the finish dialog shows all the same";
        EXPECT_NE(run.settingsFile().find("scene.vnz"), std::string::npos);
    }
}

TEST(PartExport, OtherModesAndNoModel) {
    {
        ExportScenario run;
        host::Model& drawing = run.session.addModel(part(u"sheet", 1));
        addView(drawing, u"FRONT", host::identityMatrix());
        run.openAndExport(drawing, 3);
        scenereader::Document scene = run.readScene();
        const Block& model = topGroup(scene);
        EXPECT_EQ(model.children("camera").size(), 2u);
        EXPECT_EQ(model.child("group"), nullptr) << "a mode other than 1, 2 and 5 sends cameras only";
        EXPECT_EQ(run.session.tessellationRequests().size(), 0u);
    }
    {
        ExportScenario run;
        run.pressExport();
        EXPECT_FALSE(fs::exists(run.path("scene.vnz"))) << "no model open: nothing written";
        EXPECT_EQ(run.session.dialogs().history().size(), 1u);
        EXPECT_TRUE(run.session.errors().empty());
    }
}

TEST(PartExport, FileDialogOffersTheLastPathWithinItsBuffers) {
    const std::string longName(45, 'n');
    const std::pair<std::string, std::pair<std::u16string, std::u16string>> cases[] = {
        {native("/projects/widgets/wheel.vnz"), {native(u"/projects/widgets"), u"wheel.vnz"}},
        {native("/projects/widgets/" + longName + ".vnz"), {native(u"/projects/widgets"), u""}},
        {native("/" + std::string(300, 'd') + "/wheel.vnz"), {u"", u""}},
    };
    for (const auto& [exportPath, offered] : cases) {
        ExportScenario run;
        run.setSetting("exportPath", exportPath);
        host::Model& wheel = run.session.addModel(part(u"wheel", 1));
        run.openAndExport(wheel, PRO_MODE_PART);
        ASSERT_EQ(run.session.fileDialogs().size(), 1u);
        EXPECT_EQ(run.session.fileDialogs()[0].title, u"Save as vnz");
        EXPECT_EQ(run.session.fileDialogs()[0].filter, u"*.vnz");
        EXPECT_EQ(run.session.fileDialogs()[0].defaultDirectory, offered.first);
        EXPECT_EQ(run.session.fileDialogs()[0].defaultName, offered.second);
        EXPECT_TRUE(fs::exists(run.path("scene.vnz"))) << "the run goes on";
    }
}

}  // namespace
}  // namespace exporttest
