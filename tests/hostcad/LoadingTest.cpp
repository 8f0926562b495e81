#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepTools.hxx>
#include <TopoDS_Compound.hxx>
#include <BRep_Builder.hxx>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <vector>

#include "CadTestSupport.h"
#include "host/cad/CadLoader.h"
#include "host/cad/SampleModel.h"
#include "host/cad/XdeDocumentBuilder.h"

namespace host::cad::testing {
namespace {

void writeText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

TEST(CadLoading, LengthUnitsAreWrittenAndReadBack) {
    ScratchFolder folder;
    for (const std::string unit : {"mm", "cm", "m", "in", "ft"}) {
        XdeDocumentBuilder builder;
        const TDF_Label box = builder.addPart("BOX", BRepPrimAPI_MakeBox(1.0, 2.0, 3.0).Shape());
        const TDF_Label top = builder.addAssembly("TOP");
        gp_Trsf placement;
        placement.SetTranslation(gp_Vec(4.0, 5.0, 6.0));
        builder.addComponent(top, box, placement);
        const std::string path = folder.file("box-" + unit + ".step");
        builder.writeStep(path, unit);

        const CadModel model = loadCadModel(path);
        EXPECT_EQ(model.unitName, unit);
        const Outline outline = partNamed(model, "BOX").outline;
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(outline.max[i], i + 1.0, 1e-6) << unit;
        const RowMatrix& placed = assemblyNamed(model, "TOP").components.at(0).placement;
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(placed[3][i], i + 4.0, 1e-9) << unit;
    }
}

// STEP files whose names are raw bytes of a legacy code page keep their
// letters, whether the code page is named or detected; UTF-8 names stay UTF-8.
TEST(CadLoading, NamesInALegacyCodePageKeepTheirLetters) {
    const std::vector<std::string> names = {"Корпус редуктора", "Вал ведущий шестерни", "Крышка подшипника",
                                            "Шестерня коническая"};
    struct Case {
        const char* fileCodePage;         // how the file's bytes are written
        const char* namedCodePage;        // --codepage, or nullptr to detect
        const char* reportedCodePage;
    };
    const Case cases[] = {
        {"CP1251", nullptr, "cp1251"},
        {"UTF-8", nullptr, "utf-8"},
        {"CP1251", "Windows-1251", "cp1251"},
        {"ISO-8859-5", "iso8859_5", "iso8859-5"},
    };
    ScratchFolder folder;
    for (const Case& row : cases) {
        const std::string path = folder.file(std::string(row.fileCodePage) + ".step");
        writeStepNamingParts(path, names, row.fileCodePage);
        LoadOptions options;
        if (row.namedCodePage) options.stepCodePage = stepCodePageNamed(row.namedCodePage);
        const CadModel model = loadCadModel(path, options);
        std::vector<std::string> read;
        for (const CadPart& part : model.parts) read.push_back(part.name);
        std::sort(read.begin(), read.end());
        std::vector<std::string> expected = names;
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(read, expected) << row.fileCodePage;
        ASSERT_TRUE(model.nameCodePage) << row.fileCodePage;
        EXPECT_EQ(model.nameCodePage->displayName, row.reportedCodePage);
        EXPECT_EQ(model.nameCodePage->detected, row.namedCodePage == nullptr);
    }
    EXPECT_FALSE(stepCodePageNamed("klingon"));
}

// Mesh-only items of an AP242 file, which the kernel's reader doesn't
// transfer: a solid of a floor (through an index list) and a roof (a fan),
// styled orange, and a loose strip. Expected normals worked out by hand.
TEST(CadLoading, TessellatedItemsOfAStepFileBecomeFacets) {
    const CadModel model = loadCadModel(std::string(VANTREL_SOURCE_DIR) + "/tests/hostcad/data/tessellated.step");
    ASSERT_EQ(model.top.kind, NodeKind::part);
    const CadPart& part = model.parts.at(static_cast<size_t>(model.top.index));
    EXPECT_EQ(part.name, "HUT");
    ASSERT_EQ(part.facets.size(), 8u);
    int down = 0, roof = 0, mat = 0;
    for (const Facet& facet : part.facets) {
        const double cx = (facet.points[0][0] + facet.points[1][0] + facet.points[2][0]) / 3.0;
        const double cy = (facet.points[0][1] + facet.points[1][1] + facet.points[2][1]) / 3.0;
        if (facet.normal[2] < -0.99) ++down;
        if (cx > 15.0 && facet.normal[2] > 0.99) ++mat;
        // The roof's faces look up and away from the apex's axis.
        if (cx < 15.0 && facet.normal[2] > 0.0 && facet.normal[0] * (cx - 5.0) + facet.normal[1] * (cy - 5.0) > 0.0) {
            ++roof;
        }
    }
    EXPECT_EQ(down, 2);
    EXPECT_EQ(roof, 4);
    EXPECT_EQ(mat, 2);
    ASSERT_TRUE(part.appearance);
    EXPECT_EQ((std::array{part.appearance->red, part.appearance->green, part.appearance->blue}),
              (std::array{1.0, 0.6, 0.0}));
    EXPECT_NEAR(part.outline.max[0], 30.0, 1e-9);
    EXPECT_NEAR(part.outline.max[2], 8.0, 1e-9);
}

// Everything that carries an id, in order, as one text.
std::string idsOf(const CadModel& model) {
    std::string ids;
    for (const CadPart& part : model.parts) {
        ids += part.name + ":";
        for (const CadFace& face : part.faces) ids += " f" + std::to_string(face.id) + "q" + std::to_string(face.quiltId);
        for (const CadEdge& edge : part.edges) ids += " e" + std::to_string(edge.id);
        for (const CadQuilt& quilt : part.quilts) ids += " q" + std::to_string(quilt.id);
        ids += "\n";
    }
    for (const CadAssembly& assembly : model.assemblies) {
        for (const CadComponent& component : assembly.components) ids += " c" + std::to_string(component.id);
    }
    return ids;
}

TEST(CadLoading, IdsAreTheSameOnEveryLoad) {
    ScratchFolder folder;
    writeSampleStep(folder.file("sample.step"));
    const std::string ids = idsOf(loadCadModel(folder.file("sample.step")));
    EXPECT_EQ(ids, idsOf(loadCadModel(folder.file("sample.step"))));
    EXPECT_NE(ids.find("PLATE: f1q0 f2q0"), std::string::npos) << ids;
}

TEST(CadLoading, BrepFileIsOnePartInMillimetres) {
    ScratchFolder folder;
    BRepTools::Write(BRepPrimAPI_MakeBox(1.0, 2.0, 3.0).Shape(), folder.file("block.brep").c_str());
    const CadModel model = loadCadModel(folder.file("block.brep"));
    EXPECT_EQ(model.unitName, "mm");
    ASSERT_EQ(model.top.kind, NodeKind::part);
    const CadPart& part = model.parts.at(model.top.index);
    EXPECT_EQ(part.name, "block");
    ASSERT_EQ(part.faces.size(), 6u);
    ASSERT_EQ(part.edges.size(), 12u);
    for (const CadEdge& edge : part.edges) EXPECT_EQ(edge.faceIds.size(), 2u) << "edge " << edge.id;
    EXPECT_EQ(part.edges[0].id, 7);
}

TEST(CadLoading, IgesFileKeepsItsColours) {
    ScratchFolder folder;
    XdeDocumentBuilder builder;
    builder.setColour(builder.addPart("BOX", BRepPrimAPI_MakeBox(1.0, 2.0, 3.0).Shape()), 0.2, 0.4, 0.6);
    builder.writeIges(folder.file("box.igs"));
    const CadModel model = loadCadModel(folder.file("box.igs"));
    EXPECT_EQ(model.unitName, "mm");
    ASSERT_EQ(model.parts.size(), 1u);
    const CadPart& part = model.parts[0];
    ASSERT_EQ(part.faces.size(), 6u);
    for (const CadFace& face : part.faces) {
        const std::optional<CadAppearance>& shown = face.appearance ? face.appearance : part.appearance;
        ASSERT_TRUE(shown.has_value());
        EXPECT_NEAR(shown->blue, 0.6, 1e-6);  // IGES keeps colours in single precision
    }
}

TEST(CadLoading, StlFileGivesFacetsAsWritten) {
    ScratchFolder folder;
    writeText(folder.file("two.stl"),
              "solid two\n"
              " facet normal 0 0 1\n  outer loop\n   vertex 0 0 0\n   vertex 2 0 0\n   vertex 0 2 0\n  endloop\n endfacet\n"
              " facet normal 0 0 -1\n  outer loop\n   vertex 0 0 1\n   vertex 0 2 1\n   vertex 2 0 1\n  endloop\n endfacet\n"
              "endsolid two\n");
    const CadModel model = loadCadModel(folder.file("two.stl"));
    const CadPart& part = model.parts.at(0);
    EXPECT_TRUE(part.faces.empty());
    ASSERT_EQ(part.facets.size(), 2u);
    EXPECT_EQ(part.facets[0].points[1], (std::array<double, 3>{2.0, 0.0, 0.0}));
    EXPECT_EQ(part.facets[0].normal, (std::array<double, 3>{0.0, 0.0, 1.0}));
    EXPECT_EQ(part.facets[1].points[1], (std::array<double, 3>{0.0, 2.0, 1.0}));
    EXPECT_EQ(part.facets[1].normal, (std::array<double, 3>{0.0, 0.0, -1.0}));
    EXPECT_EQ(part.outline.max, (std::array<double, 3>{2.0, 2.0, 1.0}));
}

TEST(CadLoading, ObjMaterialTextureIsFoundBesideTheFile) {
    ScratchFolder folder;
    writeText(folder.file("tile.obj"), "mtllib tile.mtl\no tile\nv 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0\n"
                                       "usemtl Wood\nf 1 2 3\nf 2 4 3\n");
    writeText(folder.file("tile.mtl"), "newmtl Wood\nKd 0.6 0.4 0.2\nmap_Kd textures/wood.png\n");
    const CadModel model = loadCadModel(folder.file("tile.obj"));
    const CadPart& part = model.parts.at(0);
    EXPECT_EQ(part.facets.size(), 2u);
    ASSERT_TRUE(part.appearance.has_value());
    EXPECT_EQ(part.appearance->name, "Wood");
    EXPECT_NEAR(part.appearance->red, 0.6, 1e-3);
    EXPECT_NEAR(part.appearance->blue, 0.2, 1e-3);
    EXPECT_EQ(part.appearance->texturePath, (folder.path() / "textures" / "wood.png").string());
}

void expectLoadError(const std::string& path, const std::string& expected) {
    try {
        loadCadModel(path);
        ADD_FAILURE() << "loading " << path << " should fail";
    } catch (const CadLoadError& error) {
        const std::string message = error.what();
        EXPECT_NE(message.find(expected), std::string::npos) << message;
        EXPECT_NE(message.find(path), std::string::npos) << message;
    }
}

TEST(CadLoading, FilesThatGiveNoModel_bad_) {
    ScratchFolder folder;
    std::filesystem::create_directory(folder.file("folder.step"));
    writeText(folder.file("drawing.dwg"), "AC1027");
    writeText(folder.file("garbage.step"), "this is not STEP\n");
    writeText(folder.file("empty.stl"), "");
    XdeDocumentBuilder builder;
    TopoDS_Compound nothing;
    BRep_Builder().MakeCompound(nothing);
    builder.addPart("NOTHING", nothing);
    builder.writeStep(folder.file("nothing.step"), "mm");
    const std::pair<const char*, const char*> refused[] = {
        {"absent.step", "does not exist"},         {"folder.step", "is a folder"},
        {"drawing.dwg", "unsupported extension '.dwg'"}, {"garbage.step", "cannot read STEP file"},
        {"empty.stl", "holds no geometry"},        {"nothing.step", "holds no geometry"},
    };
    for (const auto& [name, message] : refused) expectLoadError(folder.file(name), message);
}

// A binary STL of `declared` triangles with room for `held`: each facet a
// zero normal, the corners (t, 0, 0), (t + 1, 0, 0), (t, 1, 0), no attribute.
std::string binaryStl(uint32_t declared, uint32_t held) {
    std::string bytes(80, ' ');
    bytes.append(reinterpret_cast<const char*>(&declared), 4);
    for (uint32_t t = 0; t < held; ++t) {
        const float values[12] = {0, 0, 0, float(t), 0, 0, float(t + 1), 0, 0, float(t), 1, 0};
        bytes.append(reinterpret_cast<const char*>(values), sizeof values);
        bytes.append(2, '\0');
    }
    return bytes;
}

// A file named .stl that isn't one is refused from its first
// bytes and size, before the kernel allocates for the triangles it claims.
TEST(CadLoading, StlFilesAreCheckedBeforeTheKernelReadsThem_bad_) {
    ScratchFolder folder;
    std::string noise(4000, '\0');
    for (size_t i = 0; i < noise.size(); ++i) noise[i] = static_cast<char>((i * 7919 + 13) % 251);
    noise.replace(80, 4, "\xff\xff\xff\x7f");
    const std::pair<const char*, std::string> refused[] = {
        {"noise.stl", noise},
        {"short.stl", binaryStl(3, 2)},
        {"long.stl", binaryStl(1, 2)},
        {"tiny.stl", "sol"},
        {"binarytext.stl", "solid \x01\x02 not text"},
    };
    for (const auto& [name, bytes] : refused) {
        writeText(folder.file(name), bytes);
        const auto start = std::chrono::steady_clock::now();
        expectLoadError(folder.file(name), "is no STL file");
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << name;
    }
    writeText(folder.file("two.stl"), binaryStl(2, 2));
    const CadModel model = loadCadModel(folder.file("two.stl"));
    ASSERT_EQ(model.parts.size(), 1u);
    ASSERT_EQ(model.parts[0].facets.size(), 2u);
    EXPECT_EQ(model.parts[0].facets[1].points[1][0], 2.0);
    EXPECT_EQ(model.parts[0].facets[1].points[2][1], 1.0);
}

}  // namespace
}  // namespace host::cad::testing
