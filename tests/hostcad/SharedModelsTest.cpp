#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "CadTestSupport.h"
#include "host/cad/CadLoader.h"

namespace host::cad::testing {
namespace {

// The third-party models live beside the source tree, not in it.
std::filesystem::path sharedModels() {
    return std::filesystem::path(VANTREL_SOURCE_DIR) / ".." / "shared" / "models";
}

double diagonalOf(const Outline& outline) {
    return std::hypot(outline.max[0] - outline.min[0], outline.max[1] - outline.min[1], outline.max[2] - outline.min[2]);
}

// Every face meshes at the chord height of the default quality setting.
void expectEveryFaceMeshes(const CadModel& model) {
    const double chordHeight = diagonalOf(outlineOf(model, model.top)) * 0.0005 * 0.322;
    for (const CadPart& part : model.parts) {
        for (const CadFace& face : part.faces) {
            const TessellationResult result = tessellateFace(model, face, chordHeight);
            EXPECT_TRUE(result.ok()) << part.name << " face " << face.id << ": " << result.failure;
        }
    }
}

class SharedModels : public ::testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::is_directory(sharedModels())) {
            GTEST_SKIP() << "no shared models at " << sharedModels() << ": the smoke test of real files is skipped";
        }
    }
    static CadModel load(const std::string& name) { return loadCadModel((sharedModels() / name).string()); }
};

TEST_F(SharedModels, AssemblyWithMaterials) {
    const CadModel model = load("as1-oc-214-mat.stp");
    EXPECT_EQ(model.unitName, "mm");
    EXPECT_EQ(partOccurrences(model, model.top), 18);
    EXPECT_EQ(partNamed(model, "bolt").appearance->name, "STEEL");
    expectEveryFaceMeshes(model);
}

TEST_F(SharedModels, SinglePartsWithManyFaces) {
    for (const char* name : {"linkrods.step", "screw.step"}) {
        const CadModel model = load(name);
        EXPECT_EQ(partOccurrences(model, model.top), 1) << name;
        EXPECT_GT(model.parts.at(0).faces.size(), 5u) << name;
        expectEveryFaceMeshes(model);
    }
}

TEST_F(SharedModels, TriangleMesh) {
    const CadModel model = load("propeller.stl");
    ASSERT_EQ(model.parts.size(), 1u);
    EXPECT_TRUE(model.parts[0].faces.empty());
    EXPECT_GT(model.parts[0].facets.size(), 1000u);
}

}  // namespace
}  // namespace host::cad::testing
