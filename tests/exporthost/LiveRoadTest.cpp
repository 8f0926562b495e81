// Render and Update on the live road: the real plug-in in the headless host
// finds the stand-in renderer library through the registry files of the test,
// and the scene calls that reach the library are read back.
#include <gtest/gtest.h>

#include <fstream>

#include "scenereader/SceneReader.h"
#include "tests/exporthost/ExportScenario.h"
#include "tests/exporthost/Rig.h"
#include "tests/sceneapi/live/LiveTestSupport.h"

namespace exporttest {
namespace {

using namespace host::fixtures;
using livetest::LiveEnvironment;
using livetest::StubControl;

const std::string FILE_HEADER =
    "//---norvex:dal:7---\n//---import:dal:1---\n//---id:1---\n// This is a Vantrel scene file\n\n";
const std::string FRESH_RENDERER =
    "<instances><instance><version_major>6</version_major><process_id>11</process_id>"
    "<livelink_port>5001</livelink_port></instance></instances>";

// The order matters: the scenario's working directory is set inside the
// test's own, and the plug-in reads its settings from there.
class LiveRoad : public testing::Test {
protected:
    LiveRoad() : stub(live.placeLibrary(LIVE_STUB_LIBRARY, live.install, "nvxvantrellive6_64.so")) {
        live.writeUserRegistry("[HKEY_CURRENT_USER\\SOFTWARE\\Norvex]\n\"VantrelActivePath\"=\"" +
                               live.install.string() + "\"\n");
        stub.reset();
        stub.scriptInstances({FRESH_RENDERER.c_str()});
        stub.setProcess(11, true, "<scene/>");
        stub.acceptPort(5001);
        Rig rig = buildRig(run.session);
        bolt = rig.bolt;
        run.open(*rig.rig, PRO_MODE_ASSEMBLY);
    }

    // Presses a command and answers what it printed.
    std::string press(const std::string& command) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(run.press(command), 0);
        return testing::internal::GetCapturedStdout();
    }

    scenereader::Document liveScene() {
        fs::path file = live.root / "live.vnz";
        std::ofstream(file, std::ios::binary) << stub.scene();
        return scenereader::readSceneFile(file.string());
    }

    LiveEnvironment live;
    ExportScenario run;
    StubControl stub;
    host::Model* bolt = nullptr;
};

TEST_F(LiveRoad, RenderSendsWhatTheFileRoadWritesWithoutTheHeaderAndWithTheGroupFlags) {
    run.pressExport("file.vnz");
    std::string file = livetest::fileText(run.path("file.vnz"));
    ASSERT_EQ(file.rfind(FILE_HEADER, 0), 0u);

    EXPECT_EQ(press("Vantrel Plugin Render"), "");
    EXPECT_EQ(stub.calls(), "list\nattach 11\nscene_text\ndetach\nconnect localhost 5001 4\ndisconnect\n");
    // A fresh renderer takes the file road's options; the live road adds the
    // flags of the model's group right after it opens.
    std::string expected = file.substr(FILE_HEADER.size());
    const std::string topGroup = "group \"rig\" {\n";
    std::size_t group = expected.find(topGroup);
    ASSERT_NE(group, std::string::npos);
    expected.insert(group + topGroup.size(), "flags 32768\n");
    EXPECT_TRUE(stub.scene() == expected) << "the live scene differs from the file's";
    EXPECT_EQ(importerOption(liveScene(), "import_snap_to_ground"), "on");
}

TEST_F(LiveRoad, UpdateSendsGeometryOnlyForTheChangedPart) {
    EXPECT_EQ(press("Vantrel Plugin Render"), "");
    EXPECT_EQ(groupsWithGeometry(liveScene()), "bolt bolt hub cover rig");

    // The renderer now shows the model: Update picks it by name.
    stub.reset();
    stub.scriptInstances({FRESH_RENDERER.c_str()});
    stub.setProcess(11, true, "<scene><group name=\"rig\"><object/></group></scene>");
    stub.acceptPort(5001);
    bolt->modify();
    EXPECT_EQ(press("Vantrel Plugin Update"), "");
    scenereader::Document scene = liveScene();
    EXPECT_EQ(groupsWithGeometry(scene), "bolt bolt rig");
    // Not a fresh renderer: its camera and environment stay, and an Update
    // never snaps to the ground.
    EXPECT_EQ(importerOption(scene, "import_adjust_camera"), "off");
    EXPECT_EQ(importerOption(scene, "import_adjust_environment"), "off");
    EXPECT_EQ(importerOption(scene, "import_snap_to_ground"), "off");
}

TEST(LiveRoadWithoutRenderer, RenderPrintsFailedUpdateStaysSilentAndTheLogSaysWhy) {
    LiveEnvironment live;
    ExportScenario run;
    host::Model& plate = run.session.addModel(part(u"plate", 1));
    run.open(plate, 1);
    for (int press = 0; press < 2; ++press) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(run.press("Vantrel Plugin Render"), 0);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "Failed");
    }
    testing::internal::CaptureStdout();
    EXPECT_EQ(run.press("Vantrel Plugin Update"), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "an Update without a renderer stays silent";
    EXPECT_EQ(run.session.tessellationRequests().size(), 0u) << "no scene, no geometry";
    std::string log = livetest::fileText(live.temporary / "sceneapi.log");
    const std::string lines[] = {" DEBUG4:  nvxVantrelLiveLoader :: initialize()\n",
                                 " DEBUG4:  initialize shared handle: 0\n", " WARNING:  NO shared handle\n"};
    for (const std::string& line : lines) {
        std::size_t first = log.find(line);
        EXPECT_NE(first, std::string::npos) << line << log;
        EXPECT_NE(log.find(line, first + 1), std::string::npos) << "each press tries again: " << line;
    }
}

}  // namespace
}  // namespace exporttest
