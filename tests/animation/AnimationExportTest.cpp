// The animation of the nodes in a real traversal: the plug-in runs in this
// process with the host's table, its frame table set as a motion file would
// leave it, and the written scene is read back.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <map>

#include "export/ComponentVisitData.h"
#include "export/ExportDrivers.h"
#include "export/RunContext.h"
#include "host/ActiveSession.h"
#include "host/FunctionTable.h"
#include "host/Session.h"
#include "host/testing/ModelBuilder.h"
#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "plugin/core/VantrelPlugin.h"
#include "scenereader/SceneAnimations.h"
#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"
#include "tests/support/InProcessPlugin.h"

namespace {

namespace fs = std::filesystem;
using namespace host::fixtures;
using scenereader::Block;


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

// The plug-in started in this process through its entry point, on a session
// of its own, in a working directory of its own.
class PluginInProcess : public ::testing::Test {
protected:
    void SetUp() override {
        plugin_ = std::make_unique<testsupport::InProcessPlugin>(session, "vantrel_animation_export");
        ASSERT_TRUE(plugin_->started());
    }
    void TearDown() override { plugin_.reset(); }

    // One export of the current model into a scene file, read back.
    scenereader::Document run() {
        VantrelPlugin& plugin = *VantrelPlugin::instance();
        ProMdl model = nullptr;
        ProMdlCurrentGet(&model);
        fs::path file = plugin_->directory() / "scene.vnz";
        {
            nvx::LightFileFactory factory(file.string());
            nvx::nvxSceneapi_oo layer(factory);
            RunContext context(plugin, ExportRoad::File, layer, 1.0f);
            RepresentationItems items;
            ComponentVisitData visitData;
            visitData.representationItems = &items;
            layer.begin_group("top");
            exportModel(context, model, PRO_MODE_ASSEMBLY, visitData, "top");
            layer.end_group();
        }
        return scenereader::readSceneFile(file.string());
    }

    host::Session session;

private:
    std::unique_ptr<testsupport::InProcessPlugin> plugin_;
};

class AnimationExport : public PluginInProcess {
protected:
    void SetUp() override {
        PluginInProcess::SetUp();
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
        session.setMode(PRO_MODE_ASSEMBLY);
    }
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

// With the prompt set, Render empties the table before it shows the animation
// dialog, and Export leaves it: after a Cancel of the dialog, which ends the
// run, the one is empty and the other as it was. Without a model no dialog
// opens and the run ends.
TEST_F(AnimationExport, RenderEmptiesTheTableBeforeTheDialogAndExportKeepsIt) {
    VantrelPlugin& plugin = *VantrelPlugin::instance();
    plugin.settings.promptForMechanism = true;
    plugin.settings.exportPath = (fs::current_path() / "cancelled.vnz").u16string();
    const AnimationFrameTable frames{{pathOf({11}), {translated(0, 0, 0), translated(0, 3, 0)}}};
    for (int run = 0; run < 2; ++run) session.script().pressButton("Vantrel_Animation", "Vantrel_Animation_Cancel");

    plugin.animationFrames = frames;
    renderLive(plugin);
    EXPECT_TRUE(plugin.animationFrames.empty());
    plugin.animationFrames = frames;
    exportToFile(plugin);
    ASSERT_EQ(plugin.animationFrames.size(), 1u);
    EXPECT_EQ(plugin.animationFrames.begin()->second, frames.begin()->second);
    ASSERT_EQ(session.dialogs().history().size(), 2u);
    EXPECT_EQ(session.dialogs().history()[1].exitStatus, -3);
    EXPECT_FALSE(fs::exists(fs::current_path() / "cancelled.vnz"));

    session.setCurrentModel(nullptr);
    exportToFile(plugin);
    EXPECT_EQ(session.dialogs().history().size(), 2u) << "no model, no dialog";
    EXPECT_FALSE(fs::exists(fs::current_path() / "cancelled.vnz"));
    EXPECT_TRUE(session.script().finished()) << "both dialogs were cancelled";
}

}  // namespace
