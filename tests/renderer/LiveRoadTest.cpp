// The live road end to end with real processes: vantrel-host presses the
// plug-in's commands, the plug-in loads the renderer's library through the
// registry, which launches or reaches a real vantrel-app over a real socket.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "RendererProcesses.h"
#include "SceneDifference.h"
#include "renderer/InstanceDirectory.h"
#include "scenereader/SceneReader.h"

namespace renderer::testing {
namespace {

namespace fs = std::filesystem;
using scenereader::Block;

const fs::path SHARED_MODEL = fs::path(VANTREL_SOURCE_DIR) / ".." / "shared" / "models" / "as1-oc-214-mat.stp";

// Removes the statements of that name directly in the block, and the groups
// of that name at any depth below it.
void remove(Block& block, const std::string& statement, const std::string& group) {
    std::erase_if(block.items, [&](const auto& item) {
        const auto* child = std::get_if<Block>(&item);
        if (child) return child->kind == "group" && child->name() == group;
        return std::get<scenereader::Statement>(item).name == statement;
    });
    for (auto& item : block.items)
        if (auto* child = std::get_if<Block>(&item)) remove(*child, "", group);
}

// The objects of a scene, each with whether a group of that name holds it.
void objectsBelow(const Block& block, const std::string& group, bool inside, std::vector<bool>& found) {
    for (const auto& item : block.items) {
        const auto* child = std::get_if<Block>(&item);
        if (!child) continue;
        if (child->kind == "object") found.push_back(inside);
        objectsBelow(*child, group, inside || (child->kind == "group" && child->name() == group), found);
    }
}

class LiveRoad : public ::testing::Test {
protected:
    void SetUp() override {
        if (!fs::is_regular_file(SHARED_MODEL)) GTEST_SKIP() << "no shared model at " << SHARED_MODEL << ": skipped";
        fs::copy_file(SHARED_MODEL, model);
        // Exported in a session like the live road's: the plug-in started,
        // then the model opened.
        ASSERT_EQ(runScript("file exported.vnz\nanswer ExportFinished ExportOk\npress Vantrel Plugin Export\n"), 0);
        const int first = 20000 + static_cast<int>(getpid() % 20000);
        ASSERT_EQ(runProgram("vantrel-app", "--register --ports " + std::to_string(first) + "-" +
                                                std::to_string(first + 40)), 0);
    }

    int runScript(const std::string& lines) {
        std::ofstream(home.root() / "session.txt") << "open " << model.filename().string() << "\n" << lines;
        return runProgram("vantrel-host", "script " + (home.root() / "session.txt").string() + work);
    }

    // Renders, runs the steps, presses Update, and checks that the Update's
    // stream carried objects of the part alone, far fewer bytes than the
    // Render's, and that the renderer holds the exported scene but for that
    // part. Answers the held scene.
    Block updatedScene(const std::string& steps, const std::string& part) {
        const fs::path streams = home.root() / "streams";
        home.startApp({"--keep-streams", streams.string()});
        EXPECT_EQ(runScript("press Vantrel Plugin Render\n" + steps + "press Vantrel Plugin Update\n"), 0);
        const auto renderBytes = fs::file_size(streams / "stream-1.vnz");
        const auto updateBytes = fs::file_size(streams / "stream-2.vnz");
        EXPECT_LT(updateBytes * 4, renderBytes) << "render " << renderBytes << " bytes, update " << updateBytes;
        std::vector<bool> updateObjects;
        objectsBelow(scenereader::readSceneFile(streams / "stream-2.vnz").root, part, false, updateObjects);
        EXPECT_FALSE(updateObjects.empty());
        EXPECT_EQ(std::count(updateObjects.begin(), updateObjects.end(), false), 0) << "objects of other parts sent";

        Block held = modelGroupOf(home.defaultOutput() / "as1.vnz"), expected = modelGroupOf(exported);
        Block heldOthers = held;
        remove(heldOthers, "flags", part);
        remove(expected, "", part);
        EXPECT_EQ(firstDifference(heldOthers, expected), "");
        return held;
    }

    PrivateHome home;
    const fs::path model = home.root() / "as1.stp";
    const fs::path exported = home.root() / "exported.vnz";
    const std::string work = " --workdir " + (home.root() / "work").string();
};

TEST_F(LiveRoad, RenderLaunchesTheRegisteredRendererWhichHoldsWhatExportWritesAndASecondRenderReachesIt) {
    ASSERT_TRUE(runningInstances().empty());
    ASSERT_EQ(runProgram("vantrel-host", "render " + model.string() + work), 0);
    ASSERT_EQ(runningInstances().size(), 1u);
    // The live road flags the top group as an assembly; the rest is the same.
    Block held = modelGroupOf(home.defaultOutput() / "as1.vnz");
    remove(held, "flags", "");
    EXPECT_EQ(firstDifference(held, modelGroupOf(exported)), "");

    ASSERT_EQ(runProgram("vantrel-host", "render " + model.string() + work), 0);
    EXPECT_EQ(runningInstances().size(), 1u);
    EXPECT_EQ(logLinesStartingWith(home.defaultOutput() / "vantrel-app.log", "stream received"), 2u);
}

TEST_F(LiveRoad, UpdateAfterAColourChangeSendsThatPartAloneAndTheRendererHoldsItsNewLook) {
    const Block held = updatedScene("colour plate 0 0 1\n", "plate");
    const auto materials = held.descendants("material");
    std::size_t plateMaterials = 0;
    for (const Block* material : materials) {
        if (material->name().rfind("plate:", 0) != 0) continue;
        ++plateMaterials;
        EXPECT_EQ(material->statement("surface")->shader()->statement("diffuse")->numbers(),
                  (std::vector<double>{0, 0, 1}));
    }
    EXPECT_GT(plateMaterials, 0u);
}

TEST_F(LiveRoad, UpdateInManualSelectionSendsThePickedComponentAlone) {
    // Nothing changed: the rod sent again is the rod held, and the whole is
    // what Export wrote.
    Block held = updatedScene("press Manual selection\npick 1,4\n", "rod");
    remove(held, "flags", "");
    EXPECT_EQ(firstDifference(held, modelGroupOf(exported)), "");
}

TEST_F(LiveRoad, OfTwoRenderersTheFirstListedTakesARenderAndTheOneHoldingTheModelAnUpdate) {
    const fs::path outA = home.root() / "a", outB = home.root() / "b";
    home.startApp({"--out", outA.string()});
    const pid_t second = home.startApp({"--out", outB.string()});
    ASSERT_EQ(runningInstances().size(), 2u);
    ASSERT_EQ(sendStream(home.portOf(second), fileText(exported), true).rfind("accepted", 0), 0u);

    ASSERT_EQ(runScript("press Vantrel Plugin Update\npress Vantrel Plugin Render\n"), 0);
    EXPECT_EQ(logLinesStartingWith(outA / "vantrel-app.log", "stream received"), 1u);
    EXPECT_EQ(logLinesStartingWith(outB / "vantrel-app.log", "stream received"), 2u);
    EXPECT_EQ(runningInstances().size(), 2u);
}

}  // namespace
}  // namespace renderer::testing
