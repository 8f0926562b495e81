// The animation of the nodes in a real traversal: the plug-in runs in this
// process with the host's table, its frame table set as a motion file would
// leave it, and the written scene is read back.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "export/ComponentVisitData.h"
#include "export/ExportDrivers.h"
#include "host/ActiveSession.h"
#include "host/FunctionTable.h"
#include "host/Session.h"
#include "host/testing/ModelBuilder.h"
#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "plugin/VantrelPlugin.h"
#include "scenereader/SceneAnimations.h"
#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"
#include "toolkit/Startup.h"

namespace {

namespace fs = std::filesystem;
using namespace host::fixtures;
using scenereader::Block;

constexpr int assemblyMode = 5;

ProAsmcomppath pathOf(std::initializer_list<int> ids) {
    ProAsmcomppath path{};
    for (int id : ids) path.componentIds[path.componentIdCount++] = id;
    return path;
}

FrameMatrix translated(double x, double y, double z) {
    return {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {x, y, z, 1}}};
}

using Matrix16 = std::array<double, 16>;

Matrix16 flat(const FrameMatrix& matrix) {
    Matrix16 values{};
    for (int i = 0; i < 16; ++i) values[static_cast<size_t>(i)] = matrix[static_cast<size_t>(i / 4)][static_cast<size_t>(i % 4)];
    return values;
}

class AnimationExport : public ::testing::Test {
protected:
    void SetUp() override {
        previous_ = fs::current_path();
        directory_ = fs::temp_directory_path() / "vantrel_animation_export";
        fs::remove_all(directory_);
        fs::create_directories(directory_);
        fs::current_path(directory_);
        activation_ = std::make_unique<host::SessionActivation>(session);
        auto table = host::hostFunctionTable();
        ProWchar errorText[256] = {};
        ASSERT_EQ(user_initialize_plus(0, nullptr, "3.0", "M010", 0, errorText, directory_.c_str(), "", "",
                                       host::applicationContext, 0, table.data(), static_cast<int>(table.size()), 6),
                  0);
        // rig: frame [bolt 21 at x 1, bolt 22 at x 2], cover 12, mesh 13 (facets only).
        host::Model& bolt = session.addModel(part(u"bolt", 1));
        host::Model& cover = session.addModel(part(u"cover", 1));
        host::Model& mesh = session.addModel(part(u"mesh", 0));
        addFacetSet(mesh, 2);
        host::Model& frame = session.addModel(assembly(u"frame"));
        addComponent(frame, &bolt, 21, translation(1, 0, 0));
        addComponent(frame, &bolt, 22, translation(2, 0, 0));
        host::Model& rig = session.addModel(assembly(u"rig"));
        addComponent(rig, &frame, 11);
        addComponent(rig, &cover, 12);
        addComponent(rig, &mesh, 13);
        session.setCurrentModel(&rig);
        session.setMode(assemblyMode);
    }
    void TearDown() override {
        user_terminate_plus();
        activation_.reset();
        fs::current_path(previous_);
        fs::remove_all(directory_);
    }

    scenereader::Document run() {
        VantrelPlugin& plugin = *VantrelPlugin::instance();
        ProMdl model = nullptr;
        ProMdlCurrentGet(&model);
        fs::path file = directory_ / "scene.vnz";
        {
            nvx::LightFileFactory factory(file.string());
            nvx::nvxSceneapi_oo layer(factory);
            plugin.scene = &layer;
            RepresentationItems items;
            ComponentVisitData visitData;
            visitData.representationItems = &items;
            layer.begin_group("rig");
            exportModel(plugin, model, assemblyMode, visitData, "rig");
            layer.end_group();
        }
        plugin.scene = nullptr;
        return scenereader::readSceneFile(file.string());
    }

    host::Session session;

private:
    fs::path previous_, directory_;
    std::unique_ptr<host::SessionActivation> activation_;
};

// The animation block of a node, which must stand just before its transform
// at the end of the node; null if the node has none.
const Block* animationOf(const Block& node) {
    const Block* animation = node.child("animation");
    if (!animation) return nullptr;
    size_t count = node.items.size();
    EXPECT_GE(count, 2u);
    EXPECT_EQ(std::get_if<Block>(&node.items[count - 2]), animation) << describeBlock(node);
    const auto* transform = std::get_if<scenereader::Statement>(&node.items[count - 1]);
    EXPECT_TRUE(transform && transform->name == "transform") << describeBlock(node);
    return animation;
}

TEST_F(AnimationExport, MovingNodesCarryTheirFramesTimesTheInverseOfTheirPlacement) {
    VantrelPlugin& plugin = *VantrelPlugin::instance();
    plugin.animationFrames[pathOf({11})] = {translated(0, 0, 0), translated(0, 3, 0)};
    plugin.animationFrames[pathOf({11, 21})] = {translated(1, 0, 0), translated(1, 0, 4)};
    plugin.animationFrames[pathOf({13})] = {translated(0, 0, 0), translated(0, 0, 0), translated(5, 0, 0)};
    plugin.animationFrameCount = 2;
    scenereader::Document scene = run();

    std::vector<std::string> moving;
    for (const Block* group : scene.root.descendants("group")) {
        const Block* animation = animationOf(*group);
        if (!animation) continue;
        moving.push_back(group->name());
        EXPECT_EQ(animation->names, (std::vector<std::string>{"fbx_animation", group->name()}));
    }
    EXPECT_EQ(moving, (std::vector<std::string>{"frame", "bolt", "mesh"}));

    std::vector<std::string> problems;
    std::vector<scenereader::Animation> animations = scenereader::readAnimations(scene.root, problems);
    std::map<std::string, const scenereader::Animation*> byName;
    for (const scenereader::Animation& animation : animations) byName[animation.name] = &animation;
    ASSERT_EQ(byName.size(), 3u);
    EXPECT_EQ(byName["frame"]->matrices, (std::vector<Matrix16>{flat(translated(0, 0, 0)), flat(translated(0, 3, 0))}));
    EXPECT_EQ(byName["bolt"]->matrices, (std::vector<Matrix16>{flat(translated(0, 0, 0)), flat(translated(0, 0, 4))}));
    EXPECT_EQ(byName["mesh"]->matrices.size(), 3u);
    EXPECT_EQ(byName["bolt"]->timestamps, (std::vector<std::int32_t>{0, 40}));
    EXPECT_EQ(scenereader::checkScene(scene),
              std::vector<std::string>{"animation \"mesh\" at line " + std::to_string(byName["mesh"]->block->line) +
                                       ": \"matrices\" holds 3 matrices for the 2 frames of a duration of 0.080000 s"});
    EXPECT_EQ(plugin.animationFrames.size(), 3u) << "the emission leaves the table alone";
    EXPECT_TRUE(session.errors().empty());
}

TEST_F(AnimationExport, AnEmptyTableWritesNoAnimation) {
    VantrelPlugin::instance()->animationFrameCount = 2;
    scenereader::Document scene = run();
    EXPECT_TRUE(scene.root.descendants("animation").empty());
    EXPECT_EQ(scenereader::summarize(scene).animations, 0u);
}

}  // namespace
