// Real third-party models, when they lie beside the source tree, exported
// through the real plug-in and read back.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "../hostcad/CadTestSupport.h"
#include "ExportedScene.h"
#include "host/cad/CadLoader.h"

namespace host::realmodel::testing {
namespace {

using cad::testing::ScratchFolder;

std::filesystem::path sharedModels() {
    return std::filesystem::path(VANTREL_SOURCE_DIR) / ".." / "shared" / "models";
}

std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

class SharedModelsExport : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (!std::filesystem::is_directory(sharedModels())) {
            GTEST_SKIP() << "no shared models at " << sharedModels() << ": the export of real files is skipped";
        }
    }
};

TEST_P(SharedModelsExport, ExportsASoundSceneWithAGroupPerPartOccurrence) {
    const std::filesystem::path model = sharedModels() / GetParam();
    const cad::CadModel loaded = cad::loadCadModel(model.string());
    ScratchFolder folder;
    const ExportedScene scene = exportFile(model, folder.path());
    EXPECT_TRUE(scene.report.sceneProblems.empty()) << scene.report.sceneProblems.front();

    size_t groupsWithGeometry = 0;
    for (const scenereader::Block* group : partGroups(scene.document)) {
        const auto meshes = meshesBelow(*group);
        if (!meshes.empty()) ++groupsWithGeometry;
        for (const scenereader::Block* mesh : meshes) {
            const auto* vertices = floatArray(*mesh, "vertices");
            const auto* normals = floatArray(*mesh, "normals");
            const auto* triangles = intArray(*mesh, "triangles");
            ASSERT_TRUE(vertices && normals && triangles) << group->name();
            EXPECT_EQ(normals->size(), vertices->size()) << group->name();
            const auto vertexCount = static_cast<int32_t>(vertices->size() / 3);
            EXPECT_TRUE(std::all_of(triangles->begin(), triangles->end(),
                                    [&](int32_t index) { return index >= 0 && index < vertexCount; }))
                << group->name();
        }
        const std::string prefix = lowerCase(group->name()) + ":";
        for (const scenereader::Block* material : group->descendants("material")) {
            const std::string key = material->name();
            EXPECT_EQ(key, lowerCase(key));
            EXPECT_EQ(key.rfind(prefix, 0), 0u) << key << " in " << group->name();
        }
    }
    EXPECT_EQ(groupsWithGeometry, static_cast<size_t>(cad::testing::partOccurrences(loaded, loaded.top)));
    // With NURBS on (the default) every face of every part occurrence is also
    // sent exactly; the reader's checks of those objects are among the
    // problems above, the mesh-on-surface check of each row included.
    EXPECT_EQ(scene.report.summary.nurbsObjects, scene.report.surfaces);
}

INSTANTIATE_TEST_SUITE_P(Files, SharedModelsExport,
                         ::testing::Values("as1-oc-214-mat.stp", "linkrods.step", "screw.step", "propeller.stl"),
                         [](const ::testing::TestParamInfo<const char*>& info) {
                             std::string name = info.param;
                             std::replace_if(name.begin(), name.end(),
                                             [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
                             return name;
                         });

}  // namespace
}  // namespace host::realmodel::testing
