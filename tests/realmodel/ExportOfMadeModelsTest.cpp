// Models made here with kernel code, exported through the real plug-in in the
// headless host and read back from the written scene.
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <gp_Pln.hxx>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>

#include "../hostcad/CadTestSupport.h"
#include "ExportedScene.h"
#include "MadeModels.h"
#include "host/cad/XdeDocumentBuilder.h"
#include "tests/support/LocaleScope.h"

namespace host::realmodel::testing {
namespace {

using cad::testing::ScratchFolder;
using Vector = std::array<double, 3>;

gp_Trsf moved(double x, double y, double z) {
    gp_Trsf placement;
    placement.SetTranslation(gp_Vec(x, y, z));
    return placement;
}

void writeText(const std::filesystem::path& path, const std::string& text) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

Vector at(const std::vector<float>& values, size_t index) {
    return {values[3 * index], values[3 * index + 1], values[3 * index + 2]};
}

Vector cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vector minus(const Vector& a, const Vector& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }

double dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

// Every normal of the scene's meshes, and every triangle's winding, points along `direction`.
void expectMeshesFacing(const scenereader::Document& document, const Vector& direction) {
    const auto meshes = meshesBelow(document.root);
    ASSERT_FALSE(meshes.empty());
    for (const scenereader::Block* mesh : meshes) {
        const auto* vertices = floatArray(*mesh, "vertices");
        const auto* normals = floatArray(*mesh, "normals");
        const auto* triangles = intArray(*mesh, "triangles");
        ASSERT_TRUE(vertices && normals && triangles);
        for (size_t v = 0; v < normals->size() / 3; ++v) EXPECT_NEAR(dot(at(*normals, v), direction), 1.0, 1e-5);
        for (size_t t = 0; t < triangles->size(); t += 3) {
            const Vector a = at(*vertices, static_cast<size_t>((*triangles)[t]));
            const Vector b = at(*vertices, static_cast<size_t>((*triangles)[t + 1]));
            const Vector c = at(*vertices, static_cast<size_t>((*triangles)[t + 2]));
            EXPECT_GT(dot(cross(minus(b, a), minus(c, a)), direction), 0.0) << "triangle " << t / 3;
        }
    }
}

TEST(ExportOfMadeModels, LengthUnitOfTheFileGivesTheMeterScale) {
    const std::pair<const char*, double> units[] = {{"mm", 1000.0}, {"cm", 100.0}, {"in", 39.37008}, {"m", 1.0}};
    for (const auto& [unit, scale] : units) {
        ScratchFolder folder;
        cad::XdeDocumentBuilder builder;
        builder.addPart("BLOCK", BRepPrimAPI_MakeBox(1.0, 2.0, 3.0).Shape());
        builder.writeStep(folder.file("block.step"), unit);
        const ExportedScene scene = exportFile(folder.file("block.step"), folder.path());
        const scenereader::Statement* meterScale = findStatement(scene.document.root, "meter_scale");
        ASSERT_NE(meterScale, nullptr) << unit;
        ASSERT_EQ(meterScale->numbers().size(), 1u);
        EXPECT_NEAR(meterScale->numbers()[0], scale, scale * 1e-6) << unit;
    }
}

// A ball and a ring are one face each, large against the part: the scene's
// meshes lie on their exact surfaces and the export puts the scene in place.
TEST(ExportOfMadeModels, RoundPartsOfOneFaceEachPassTheChecksOfTheirExactSurfaces) {
    ScratchFolder folder;
    cad::XdeDocumentBuilder builder;
    const TDF_Label top = builder.addAssembly("ROUND");
    builder.addComponent(top, builder.addPart("BALL", BRepPrimAPI_MakeSphere(9.0).Shape()), moved(0, 0, 0));
    builder.addComponent(top, builder.addPart("RING", BRepPrimAPI_MakeTorus(15.0, 3.0).Shape()), moved(40, 0, 0));
    builder.writeStep(folder.file("round.step"), "mm");
    const ExportedScene scene = exportFile(folder.file("round.step"), folder.path());
    EXPECT_EQ(scene.report.sceneProblems, std::vector<std::string>{});
    EXPECT_TRUE(scene.report.placed);
    EXPECT_EQ(scene.report.summary.nurbsObjects, 2u);
}

TEST(ExportOfMadeModels, NormalsAndWindingFollowTheFaceAsUsed) {
    const TopoDS_Face sheet = BRepBuilderAPI_MakeFace(gp_Pln(gp::XOY()), 0.0, 10.0, 0.0, 10.0).Face();
    ScratchFolder upFolder;
    expectMeshesFacing(exportModel(std::make_shared<const cad::CadModel>(cad::testing::modelOfShape(sheet)),
                                   upFolder.path()).document,
                       {0.0, 0.0, 1.0});
    ScratchFolder downFolder;
    const TopoDS_Face reversed = TopoDS::Face(sheet.Reversed());
    expectMeshesFacing(exportModel(std::make_shared<const cad::CadModel>(cad::testing::modelOfShape(reversed)),
                                   downFolder.path()).document,
                       {0.0, 0.0, -1.0});
}

// The materials of the meshes alone: with NURBS each exact object carries its
// row's material too.
ExportSettings meshesOnly() {
    ExportSettings settings;
    settings.includeNurbs = false;
    return settings;
}

// The colours of a STEP file reach the material keys as the
// file writes them, not as the kernel keeps them (linear RGB, which would
// give 255:81:0 and 154:255:8 here).
TEST(ExportOfMadeModels, StepColoursReachTheMaterialsAsTheFileWritesThem) {
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(2.0, 2.0, 2.0).Shape();
    ScratchFolder folder;
    cad::XdeDocumentBuilder builder;
    const TDF_Label part = builder.addPart("LAMP", box);
    builder.setColour(part, 0.1, 0.2, 0.3);
    builder.setFaceColour(part, TopExp_Explorer(box, TopAbs_FACE).Current(), 0.3, 0.2, 0.1);
    const std::string path = folder.file("lamp.step");
    builder.writeStep(path, "mm");
    // The colours as plain numbers in the file's text.
    std::ifstream written(path);
    std::string text((std::istreambuf_iterator<char>(written)), std::istreambuf_iterator<char>());
    const char* plain[] = {"1.,0.6,0.", "0.8,1.,0.2"};
    size_t at = 0;
    for (const char* values : plain) {
        at = text.find("COLOUR_RGB(", at);
        ASSERT_NE(at, std::string::npos);
        const size_t open = text.find(',', at) + 1;
        const size_t close = text.find(')', open);
        text.replace(open, close - open, values);
        at = close;
    }
    writeText(path, text);
    const ExportedScene scene = exportFile(path, folder.path(), meshesOnly());
    std::vector<std::string> colours;
    for (const scenereader::Block* material : scene.document.root.descendants("material")) {
        const std::string& key = material->name();
        size_t third = key.size();
        for (int colon = 0; colon < 3; ++colon) third = key.rfind(':', third - 1);
        colours.push_back(key.substr(third + 1));
    }
    std::sort(colours.begin(), colours.end());
    EXPECT_EQ(colours, (std::vector<std::string>{"204:255:51", "255:153:0"}));
}

// Names written in a legacy code page reach the scene with
// their letters, and the summary says which code page was detected.
TEST(ExportOfMadeModels, NamesOfALegacyCodePageReachTheSceneWithTheirLetters) {
    testsupport::LocaleScope utf8("C.UTF-8");
    ASSERT_TRUE(utf8.ok());
    ScratchFolder folder;
    const std::vector<std::string> names = {"Корпус редуктора", "Вал ведущий шестерни", "Крышка подшипника"};
    cad::testing::writeStepNamingParts(folder.file("reductor.step"), names, "CP1251");
    const ExportedScene scene = exportFile(folder.file("reductor.step"), folder.path());
    std::vector<std::string> groups;
    for (const scenereader::Block* group : partGroups(scene.document)) groups.push_back(group->name());
    std::sort(groups.begin(), groups.end());
    std::vector<std::string> expected = names;
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(groups, expected);
    EXPECT_NE(describeReport(scene.report).find("; names read as cp1251 (detected)"), std::string::npos)
        << describeReport(scene.report);
}

// A STEP file of mesh-only items exports like an STL part, in its colour.
TEST(ExportOfMadeModels, MeshOnlyStepItemsExportLikeAnStlPart) {
    ScratchFolder folder;
    const ExportedScene scene =
        exportFile(std::string(VANTREL_SOURCE_DIR) + "/tests/hostcad/data/tessellated.step", folder.path());
    EXPECT_EQ(scene.report.summary.triangles, 8u);
    const auto materials = scene.document.root.descendants("material");
    ASSERT_EQ(materials.size(), 1u);
    EXPECT_EQ(materials[0]->name(), "hut:orange:255:153:0");
}

TEST(ExportOfMadeModels, TextureOfAFaceIsFoundOnTheSearchPath) {
    ScratchFolder folder;
    const std::filesystem::path image = folder.path() / "textures" / "wood.png";
    writeText(image, "not really an image");
    cad::CadModel model =
        cad::testing::modelOfShape(BRepBuilderAPI_MakeFace(gp_Pln(gp::XOY()), 0.0, 1.0, 0.0, 1.0).Face());
    cad::CadAppearance wood;
    wood.name = "Wood";
    wood.red = 0.6;
    wood.green = 0.4;
    wood.blue = 0.2;
    wood.texturePath = image.string();
    model.sourcePath = (folder.path() / "tile.step").string();
    model.parts.at(0).faces.at(0).appearance = wood;
    const ExportedScene scene =
        exportModel(std::make_shared<const cad::CadModel>(std::move(model)), folder.path(), meshesOnly());
    const auto materials = scene.document.root.descendants("material");
    ASSERT_EQ(materials.size(), 1u);
    EXPECT_EQ(materials[0]->name(), "shape:wood:153:102:51");
    const scenereader::Block* texture = findShader(*materials[0], "texture_rgb");
    ASSERT_NE(texture, nullptr);
    const scenereader::Statement* path = texture->statement("texture");
    ASSERT_NE(path, nullptr);
    ASSERT_FALSE(path->values.empty());
    EXPECT_EQ(path->values[0].text, image.string());
}

TEST(ExportOfMadeModels, HiddenComponentsAreLeftOut) {
    ScratchFolder folder;
    writeCubesWithHiddenOnes(folder.file("top.step"));

    const ExportedScene scene = exportFile(folder.file("top.step"), folder.path());
    const auto groups = partGroups(scene.document);
    ASSERT_EQ(groups.size(), 1u);
    EXPECT_EQ(groups[0]->name(), "SHOWN_CUBE");
    EXPECT_EQ(scene.report.surfaces, 6u) << "the left-out cubes' faces are not counted for the progress";
    EXPECT_TRUE(scene.report.sceneProblems.empty());
}

TEST(ExportOfMadeModels, PartUsedTwiceIsTwoGroupsWithTheirOwnTransforms) {
    ScratchFolder folder;
    cad::XdeDocumentBuilder builder;
    const TDF_Label bolt = builder.addPart("BOLT", BRepPrimAPI_MakeCylinder(1.0, 5.0).Shape());
    const TDF_Label top = builder.addAssembly("TOP");
    builder.addComponent(top, bolt, moved(10.0, 0.0, 0.0));
    gp_Trsf turned;
    turned.SetRotation(gp_Ax1(gp::Origin(), gp::DZ()), M_PI / 2.0);
    turned.SetTranslationPart(gp_Vec(0.0, 20.0, 5.0));
    builder.addComponent(top, bolt, turned);
    builder.writeStep(folder.file("bolts.step"), "mm");

    const ExportedScene scene = exportFile(folder.file("bolts.step"), folder.path());
    const auto groups = partGroupsNamed(scene.document, "BOLT");
    ASSERT_EQ(groups.size(), 2u);
    const std::vector<std::vector<double>> expected = {
        {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 10, 0, 0, 1},
        {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 20, 5, 1},
    };
    for (size_t g = 0; g < 2; ++g) {
        const scenereader::Statement* transform = groups[g]->statement("transform");
        ASSERT_NE(transform, nullptr);
        const std::vector<double> numbers = transform->numbers();
        ASSERT_EQ(numbers.size(), 16u);
        for (size_t i = 0; i < 16; ++i) EXPECT_NEAR(numbers[i], expected[g][i], 1e-5) << g << ": " << i;
        EXPECT_EQ(meshesBelow(*groups[g]).size(), 1u);
    }
}

// One of two occurrences of a grey part is painted red in the assembly: with
// assembly materials the two differ, without them they are alike.
TEST(ExportOfMadeModels, AnOccurrencePaintedInTheAssemblyShowsItsColourWithAssemblyMaterials) {
    ScratchFolder folder;
    cad::XdeDocumentBuilder builder;
    const TDF_Label bracket = builder.addPart("BRACKET", BRepPrimAPI_MakeBox(1.0, 1.0, 1.0).Shape());
    builder.setColour(bracket, 0.5, 0.5, 0.5);
    const TDF_Label top = builder.addAssembly("TOP");
    const TDF_Label painted = builder.addComponent(top, bracket, moved(0.0, 0.0, 0.0));
    builder.setColour(painted, 1.0, 0.0, 0.0);
    builder.addComponent(top, bracket, moved(3.0, 0.0, 0.0));
    builder.writeStep(folder.file("painted-use.step"), "mm");

    for (bool assemblyMaterials : {true, false}) {
        ExportSettings settings = meshesOnly();
        settings.useAssemblyMaterials = assemblyMaterials;
        const ExportedScene scene = exportFile(folder.file("painted-use.step"), folder.path(), settings);
        const auto groups = partGroupsNamed(scene.document, "BRACKET");
        ASSERT_EQ(groups.size(), 2u);
        std::vector<std::vector<std::string>> keys(2);
        for (size_t g = 0; g < 2; ++g)
            for (const scenereader::Block* material : groups[g]->descendants("material"))
                keys[g].push_back(material->name());
        ASSERT_EQ(keys[1].size(), 1u);
        ASSERT_EQ(keys[0].size(), 1u);
        EXPECT_NE(keys[1][0].find(":128:128:128"), std::string::npos) << keys[1][0];
        const char* shown = assemblyMaterials ? ":255:0:0" : ":128:128:128";
        EXPECT_NE(keys[0][0].find(shown), std::string::npos) << keys[0][0];
    }
}

TEST(ExportOfMadeModels, MeshPartIsAFacetSetWithFlatNormalsAndNoParameters) {
    ScratchFolder folder;
    writeText(folder.path() / "wedge.stl",
              "solid wedge\n"
              " facet normal 0 0 1\n  outer loop\n   vertex 0 0 0\n   vertex 2 0 0\n   vertex 0 2 0\n  endloop\n endfacet\n"
              " facet normal 0 -1 0\n  outer loop\n   vertex 0 0 0\n   vertex 2 0 0\n   vertex 0 0 1\n  endloop\n endfacet\n"
              "endsolid wedge\n");
    const ExportedScene scene = exportFile(folder.path() / "wedge.stl", folder.path());
    const auto groups = partGroups(scene.document);
    ASSERT_EQ(groups.size(), 1u);
    EXPECT_EQ(groups[0]->name(), "wedge");
    const auto meshes = meshesBelow(*groups[0]);
    ASSERT_EQ(meshes.size(), 1u);
    EXPECT_EQ(floatArray(*meshes[0], "uv_tex"), nullptr);
    const auto& normals = *floatArray(*meshes[0], "normals");
    ASSERT_EQ(normals.size(), 18u);
    for (size_t v = 0; v < 3; ++v) EXPECT_EQ(at(normals, v), (Vector{0, 0, 1}));
    for (size_t v = 3; v < 6; ++v) EXPECT_EQ(at(normals, v), (Vector{0, -1, 0}));
}

}  // namespace
}  // namespace host::realmodel::testing
