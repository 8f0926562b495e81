// The connection of the live road's factory: choosing a running renderer,
// launching one, the ports tried, and the messages of each failure.
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "importers/sceneapi/RepeatLinkFactory.h"
#include "tests/sceneapi/live/LiveTestSupport.h"

namespace {

using livetest::LiveEnvironment;
using livetest::StubControl;

const std::string NO_SCENE_API =
    "Failed to connect. Could not get a scene api. Please check your Vantrel installation.\n";
const std::string NO_QUERY_API =
    "Failed to connect. Could not get a query api. Please check your Vantrel installation.\n";
const std::string NO_LAUNCH = "Failed to connect. Unabled to launch Vantrel. Please check your Vantrel installation.";
const std::string NO_PORT = "Failed to connect. Could not connect on any known port. Please check your Vantrel "
                            "installation and Live Link settings.";

const char* const EMPTY_SCENE = "<scene><camera/><light>  </light></scene>";
const char* const BUSY_SCENE = "<scene><group name=\"Other\"><object/></group></scene>";
const char* const MODEL_SCENE = "<scene><group><object name=\"Model\"/></group></scene>";
const char* const DEEP_MODEL_SCENE = "<scene><a><b><c name=\"Model\"/></b></a></scene>";

struct Instance {
    int version, processId, port;
};

// The list as the library reports it; the values may stand at any depth.
std::string instanceList(const std::vector<Instance>& instances) {
    std::string text = "<instances>";
    for (const Instance& i : instances)
        text += "<instance><name>Vantrel</name><version><version_major>" + std::to_string(i.version) +
                "</version_major></version><process_id>" + std::to_string(i.processId) +
                "</process_id><link><livelink_port>" + std::to_string(i.port) + "</livelink_port></link></instance>";
    return text + "</instances>";
}

std::string versionSubkey(const std::string& hive, const std::string& version, const std::string& values) {
    return "[" + hive + "\\SOFTWARE\\Norvex\\" + version + "]\n" + values + "\n";
}

const std::string MACHINE_VERSION = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvex]\n\"VantrelVersion\"=\"Vantrel 6\"\n\n";

// The stand-in library in the registered folder, scripted by the test.
class LiveConnection : public testing::Test {
protected:
    LiveConnection()
        : stub(live.placeLibrary(LIVE_STUB_LIBRARY, live.install, "nvxvantrellive6_64.so")) {
        stub.reset();
    }

    // The user's hive with the active path and more.
    void userRegistry(const std::string& more = "") {
        live.writeUserRegistry("[HKEY_CURRENT_USER\\SOFTWARE\\Norvex]\n\"VantrelActivePath\"=\"" +
                               live.install.string() + "\"\n\n" + more);
    }

    LiveEnvironment live;
    StubControl stub;
    nvx::RepeatLinkFactory factory;
};

struct PickCase {
    const char* name;
    int minVersion, maxVersion;
    const char* wanted;
    std::vector<Instance> instances;
    // Scene texts by process id; null stands for a renderer that can't be
    // attached, "-" for one that answers no scene text.
    std::vector<std::pair<int, const char*>> scenes;
    std::vector<int> acceptedPorts;
    std::string userRegistry, machineRegistry;
    // What the library sees, the port kept, the choice and the message.
    std::string calls;
    int port;
    bool fresh;
    std::string error;
};

void PrintTo(const PickCase& c, std::ostream* out) { *out << c.name; }

class PickAndConnect : public LiveConnection, public testing::WithParamInterface<PickCase> {};

TEST_P(PickAndConnect, CallsTheLibraryAsExpected) {
    const PickCase& c = GetParam();
    userRegistry(c.userRegistry);
    if (!c.machineRegistry.empty()) live.writeMachineRegistry(c.machineRegistry);
    std::string list = instanceList(c.instances);
    stub.scriptInstances({list.c_str()});
    for (const auto& [processId, scene] : c.scenes)
        stub.setProcess(processId, scene != nullptr, scene && std::string(scene) == "-" ? nullptr : scene);
    for (int port : c.acceptedPorts) stub.acceptPort(port);
    factory.set_version_range(c.minVersion, c.maxVersion);
    factory.set_wanted_scene(c.wanted);

    nvxScene_api* scene = factory.scene();
    EXPECT_EQ(stub.calls(), c.calls);
    EXPECT_EQ(factory.error, c.error);
    EXPECT_EQ(factory.port, c.port);
    EXPECT_EQ(factory.is_fresh_instance(), c.fresh);
    // Only a failed connect takes the scene object away.
    EXPECT_EQ(scene != nullptr, c.error != NO_PORT);
    EXPECT_TRUE(live.clock.sleeps.empty());
}

const std::string PORTS_6000_TO_6002 = "\"LiveLinkPort\"=dword:00001770\n\"LiveLinkMaxPort\"=dword:00001772\n";

INSTANTIATE_TEST_SUITE_P(
    Live, PickAndConnect,
    testing::Values(
        PickCase{"FreshInstanceOnItsOwnPort", 6, 6, "", {{6, 11, 5001}}, {{11, EMPTY_SCENE}}, {5001}, "", "",
                 "list\nattach 11\nscene_text\ndetach\nconnect localhost 5001 4\n", 5001, true, ""},
        PickCase{"TwoEqualFreshInstancesTakeTheFirst", 6, 6, "", {{6, 11, 5001}, {6, 12, 5002}},
                 {{11, EMPTY_SCENE}, {12, EMPTY_SCENE}}, {5001, 5002}, "", "",
                 "list\nattach 11\nscene_text\ndetach\nattach 12\nscene_text\ndetach\nconnect localhost 5001 4\n",
                 5001, true, ""},
        PickCase{"BusyUnattachableAndSilentInstancesArePassedOver", 6, 7, "",
                 {{6, 11, 5001}, {6, 12, 5002}, {6, 13, 5003}, {7, 14, 5004}},
                 {{11, BUSY_SCENE}, {12, nullptr}, {13, "-"}, {14, EMPTY_SCENE}}, {5001, 5002, 5003, 5004}, "", "",
                 "list\nattach 11\nscene_text\ndetach\nattach 12\nattach 13\nscene_text\ndetach\n"
                 "attach 14\nscene_text\ndetach\nconnect localhost 5004 4\n",
                 5004, true, ""},
        PickCase{"NamedInstanceOfLowerVersionWins", 6, 8, "Model", {{8, 11, 5001}, {6, 12, 5002}},
                 {{11, EMPTY_SCENE}, {12, MODEL_SCENE}}, {5001, 5002}, "", "",
                 "list\nattach 11\nscene_text\ndetach\nattach 12\nscene_text\ndetach\nconnect localhost 5002 4\n",
                 5002, false, ""},
        PickCase{"NameDeeperThanThreeLevelsIsNotFound", 6, 6, "Model", {{6, 11, 5001}, {6, 12, 5002}},
                 {{11, DEEP_MODEL_SCENE}, {12, EMPTY_SCENE}}, {5001, 5002}, "", "",
                 "list\nattach 11\nscene_text\ndetach\nattach 12\nscene_text\ndetach\nconnect localhost 5002 4\n",
                 5002, true, ""},
        PickCase{"PortZeroScansTheRegisteredRange", 6, 6, "", {{6, 11, 0}}, {{11, EMPTY_SCENE}}, {6001},
                 versionSubkey("HKEY_CURRENT_USER", "Vantrel 6", PORTS_6000_TO_6002), MACHINE_VERSION,
                 "list\nattach 11\nscene_text\ndetach\nconnect 127.0.0.1 6000 1\nconnect 127.0.0.1 6001 1\n", 0,
                 true, ""},
        PickCase{"WithoutVantrelVersionThePortsOfVantrel4AreRead", 6, 6, "", {{6, 11, 0}}, {{11, EMPTY_SCENE}},
                 {6000}, versionSubkey("HKEY_CURRENT_USER", "Vantrel 4",
                                       "\"LiveLinkPort\"=\"6000\"\n\"LiveLinkMaxPort\"=\"6000\"\n"),
                 "", "list\nattach 11\nscene_text\ndetach\nconnect 127.0.0.1 6000 1\n", 0, true, ""},
        PickCase{"MissingMaxPortTriesNothing", 6, 6, "", {{6, 11, 0}}, {{11, EMPTY_SCENE}}, {6000},
                 versionSubkey("HKEY_CURRENT_USER", "Vantrel 6", "\"LiveLinkPort\"=dword:00001770\n"),
                 MACHINE_VERSION, "list\nattach 11\nscene_text\ndetach\n", -1, true, NO_PORT},
        PickCase{"FirstPortAboveLastTriesNothing", 6, 6, "", {{6, 11, 0}}, {{11, EMPTY_SCENE}}, {6000},
                 versionSubkey("HKEY_CURRENT_USER", "Vantrel 6",
                               "\"LiveLinkPort\"=dword:00001772\n\"LiveLinkMaxPort\"=dword:00001770\n"),
                 MACHINE_VERSION, "list\nattach 11\nscene_text\ndetach\n", -1, true, NO_PORT},
        PickCase{"RefusedOwnPortScansNothing", 6, 6, "", {{6, 11, 5001}}, {{11, EMPTY_SCENE}}, {6000},
                 versionSubkey("HKEY_CURRENT_USER", "Vantrel 6", PORTS_6000_TO_6002), MACHINE_VERSION,
                 "list\nattach 11\nscene_text\ndetach\nconnect localhost 5001 4\n", -1, true, NO_PORT},
        // The version's own launch then fails for want of "BinName"; the
        // unconnected scene object is answered all the same.
        PickCase{"Version7IsNotListedAndWithoutBinNameTheLaunchFails", 6, 6, "", {{7, 11, 5001}},
                 {{11, EMPTY_SCENE}}, {5001}, "", "", "list\n", -1, true, NO_LAUNCH}),
    [](const auto& info) { return std::string(info.param.name); });

// The asymmetry of the failures: a missing query object or a failed launch
// leave the library's scene object in place, a failed connect doesn't.
TEST_F(LiveConnection, AnswersTheUnconnectedSceneWhenTheLaunchFails) {
    userRegistry();
    nvxScene_api* scene = factory.scene();
    EXPECT_EQ(factory.error, NO_LAUNCH);
    ASSERT_NE(scene, nullptr);
    EXPECT_EQ(scene, factory.live_scene);
    // A second call finds the scene there and connects no more.
    EXPECT_EQ(factory.scene(), scene);
    EXPECT_EQ(factory.error, "");
    EXPECT_EQ(stub.calls(), "list\n");
}

TEST_F(LiveConnection, AnswersTheUnconnectedSceneWithoutAQueryObject) {
    userRegistry();
    stub.answerNullQuery();
    EXPECT_NE(factory.scene(), nullptr);
    EXPECT_EQ(factory.error, NO_QUERY_API);
    EXPECT_EQ(stub.calls(), "");
}

TEST(LiveConnectionWithoutLibrary, AnswersNullWithoutASceneObject) {
    LiveEnvironment live;
    nvx::RepeatLinkFactory factory;
    EXPECT_EQ(factory.scene(), nullptr);
    EXPECT_EQ(factory.error, NO_SCENE_API);
}

TEST_F(LiveConnection, CloseDisconnectsAndUnloads) {
    userRegistry();
    std::string list = instanceList({{6, 11, 5001}});
    stub.scriptInstances({list.c_str()});
    stub.setProcess(11, true, EMPTY_SCENE);
    stub.acceptPort(5001);
    ASSERT_NE(factory.scene(), nullptr);
    factory.close();
    EXPECT_EQ(factory.live_scene, nullptr);
    EXPECT_EQ(stub.calls(), "list\nattach 11\nscene_text\ndetach\nconnect localhost 5001 4\ndisconnect\n");
    EXPECT_EQ(stub.rootsDeleted(), 1);
    factory.close();
    EXPECT_EQ(stub.rootsDeleted(), 1);
}

// A launched renderer: the executable that "BinName" names, and the wait for
// it to appear in the list.
class LiveLaunch : public LiveConnection {
protected:
    LiveLaunch() {
        userRegistry();
        std::ofstream(script) << "#!/bin/sh\ntouch '" << marker.string() << "'\n";
        livetest::fs::permissions(script, livetest::fs::perms::owner_all);
        live.writeMachineRegistry(MACHINE_VERSION + versionSubkey("HKEY_LOCAL_MACHINE", "Vantrel 6",
                                                                  "\"CurrentVersion\"=\"6\"\n\"BinName\"=\"" +
                                                                      script.string() + "\"\n"));
        stub.setProcess(11, true, EMPTY_SCENE);
        stub.acceptPort(5001);
    }

    bool launched() const {
        for (int wait = 0; wait < 100 && !livetest::fs::exists(marker); ++wait)
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        return livetest::fs::exists(marker);
    }

    const livetest::fs::path script = live.install / "vantrel";
    const livetest::fs::path marker = live.root / "launched";
};

TEST_F(LiveLaunch, TheWaitEndsWhenTheLaunchedInstanceAppears) {
    std::string list = instanceList({{6, 11, 5001}});
    stub.scriptInstances({"<instances/>", nullptr, "<instances/>", list.c_str()});
    ASSERT_NE(factory.scene(), nullptr);
    EXPECT_TRUE(launched());
    EXPECT_EQ(factory.error, "");
    EXPECT_EQ(factory.port, 5001);
    // The fourth list shows it; the wait follows that poll too.
    EXPECT_EQ(live.clock.sleeps, std::vector<int>(3, 1000));
    EXPECT_EQ(stub.calls(), "list\nlist\nlist\nlist\nattach 11\nscene_text\ndetach\nconnect localhost 5001 4\n");
}

TEST_F(LiveLaunch, ARendererThatNeverAppearsIsWaitedFor19Times) {
    stub.scriptInstances({"<instances/>"});
    EXPECT_EQ(factory.scene(), nullptr);
    EXPECT_TRUE(launched());
    EXPECT_EQ(live.clock.sleeps, std::vector<int>(19, 1000));
    std::string lists;
    for (int i = 0; i < 20; ++i) lists += "list\n";
    EXPECT_EQ(stub.calls(), lists);
    EXPECT_EQ(factory.error, NO_PORT);
}

TEST_F(LiveLaunch, AttemptsAndDelayAreTheFactorysOwn) {
    stub.scriptInstances({"<instances/>"});
    factory.attempts = 3;
    factory.attempt_delay = 250;
    EXPECT_EQ(factory.scene(), nullptr);
    EXPECT_EQ(live.clock.sleeps, std::vector<int>(2, 250));
}

}  // namespace
