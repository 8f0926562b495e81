#include <BRepAdaptor_Surface.hxx>
#include <gtest/gtest.h>

#include "CadTestSupport.h"
#include "host/cad/CadLoader.h"
#include "host/cad/CadShapes.h"
#include "host/cad/SampleModel.h"

namespace host::cad::testing {
namespace {

TEST(SampleModel, HoldsWhatItPromises) {
    ScratchFolder folder;
    const SampleFiles files = writeSampleStep(folder.file("sample.step"));
    EXPECT_EQ(files.meshPath, folder.file("sample-mesh.stl"));
    ASSERT_TRUE(std::filesystem::is_regular_file(files.meshPath));

    const CadModel model = loadCadModel(files.stepPath);
    EXPECT_TRUE(model.warnings.empty());
    EXPECT_EQ(model.unitName, "mm");
    ASSERT_EQ(model.top.kind, NodeKind::assembly);
    EXPECT_EQ(model.assemblies.at(model.top.index).name, "SAMPLE");
    EXPECT_EQ(partOccurrences(model, model.top), 5);

    const auto& pair = assemblyNamed(model, "BOLT_PAIR").components;
    ASSERT_EQ(pair.size(), 2u);
    EXPECT_EQ(pair[0].target.index, pair[1].target.index);
    EXPECT_NE(pair[0].placement, pair[1].placement);
    EXPECT_EQ(partNamed(model, "BOLT").appearance->name, "Steel");

    const CadPart& plate = partNamed(model, "PLATE");
    EXPECT_EQ(plate.appearance->name, "Bronze");
    int colouredFaces = 0;
    for (const CadFace& face : plate.faces) colouredFaces += face.appearance ? 1 : 0;
    EXPECT_EQ(colouredFaces, 1);

    const CadPart& wave = partNamed(model, "WAVE");
    ASSERT_EQ(wave.faces.size(), 1u);
    EXPECT_EQ(BRepAdaptor_Surface(model.shapes->face(wave.faces[0].shapeIndex)).GetType(), GeomAbs_BSplineSurface);
    EXPECT_EQ(wave.quilts.size(), 1u);

    const CadPart& mesh = partNamed(model, "sample-mesh.stl");
    EXPECT_TRUE(mesh.faces.empty());
    EXPECT_GT(mesh.facets.size(), 100u);
}

TEST(SampleModel, MissingMeshFileIsAWarning_bad_) {
    ScratchFolder folder;
    const SampleFiles files = writeSampleStep(folder.file("sample.step"));
    std::filesystem::remove(files.meshPath);
    const CadModel model = loadCadModel(files.stepPath);
    ASSERT_EQ(model.warnings.size(), 1u);
    EXPECT_NE(model.warnings[0].find(files.meshPath), std::string::npos) << model.warnings[0];
    EXPECT_TRUE(partNamed(model, "sample-mesh.stl").facets.empty());
}

}  // namespace
}  // namespace host::cad::testing
