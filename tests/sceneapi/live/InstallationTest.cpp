// What the renderer's registry values give: its executable for a version
// range, and the registered range of its link's ports.
#include <gtest/gtest.h>

#include "importers/sceneapi/VantrelInstallation.h"
#include "tests/sceneapi/live/LiveTestSupport.h"

namespace {

using livetest::LiveEnvironment;

std::string machineKey(const std::string& version, const std::string& values) {
    return "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvex\\" + version + "]\n" + values + "\n";
}

std::string installedVersion(const std::string& version) {
    return "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvex]\n\"VantrelVersion\"=\"" + version + "\"\n\n";
}

const std::string VANTREL_6 = machineKey("Vantrel 6", "\"CurrentVersion\"=\"6\"\n\"BinName\"=\"/opt/v6/vantrel\"");
const std::string VANTREL_7 = machineKey("Vantrel 7", "\"CurrentVersion\"=\"7\"\n\"BinName\"=\"/opt/v7/vantrel\"");
const std::string VANTREL_8 = machineKey("Vantrel 8", "\"CurrentVersion\"=\"8\"\n\"BinName\"=\"/opt/v8/vantrel\"");

struct ExecutableCase {
    const char* name;
    std::string machine;
    int min, max;
    std::u16string expected;
};

void PrintTo(const ExecutableCase& c, std::ostream* out) { *out << c.name; }

class ExecutablePath : public testing::TestWithParam<ExecutableCase> {};

TEST_P(ExecutablePath, FollowsTheInstalledVersion) {
    LiveEnvironment live;
    const ExecutableCase& c = GetParam();
    if (!c.machine.empty()) live.writeMachineRegistry(c.machine);
    EXPECT_EQ(nvx::installation::executable_path(c.min, c.max), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Installation, ExecutablePath,
    testing::Values(
        ExecutableCase{"InstalledVersionInRange", installedVersion("Vantrel 6") + VANTREL_6, 6, 6, u"/opt/v6/vantrel"},
        ExecutableCase{"NewerInstalledVersionSearchesDownFromMax",
                       installedVersion("Vantrel 7") + VANTREL_6 + VANTREL_7, 6, 6, u"/opt/v6/vantrel"},
        ExecutableCase{"WiderRangeTakesTheInstalledVersion", installedVersion("Vantrel 7") + VANTREL_6 + VANTREL_7,
                       6, 8, u"/opt/v7/vantrel"},
        // With max above min nothing is searched.
        ExecutableCase{"WiderRangeDoesNotSearch", installedVersion("Vantrel 8") + VANTREL_6 + VANTREL_8, 6, 7, u""},
        // No "CurrentVersion" reads as version 0: the search finds the key of 6.
        ExecutableCase{"MissingCurrentVersionSearches",
                       installedVersion("Vantrel 6") + machineKey("Vantrel 6", "\"BinName\"=\"/opt/v6/vantrel\""), 6,
                       6, u"/opt/v6/vantrel"},
        ExecutableCase{"MissingBinName",
                       installedVersion("Vantrel 6") + machineKey("Vantrel 6", "\"CurrentVersion\"=\"6\""), 6, 6,
                       u""},
        ExecutableCase{"MissingVantrelVersion", VANTREL_6, 6, 6, u""},
        ExecutableCase{"NoRegistry", "", 6, 6, u""}),
    [](const auto& info) { return std::string(info.param.name); });

struct PortsCase {
    const char* name;
    std::string machine, user;
    int answer, first, last;
};

void PrintTo(const PortsCase& c, std::ostream* out) { *out << c.name; }

class LiveLinkPorts : public testing::TestWithParam<PortsCase> {};

TEST_P(LiveLinkPorts, AnswerAndRange) {
    LiveEnvironment live;
    const PortsCase& c = GetParam();
    if (!c.machine.empty()) live.writeMachineRegistry(c.machine);
    live.writeUserRegistry(c.user);
    std::int32_t first = -7, last = -7;
    EXPECT_EQ(nvx::installation::live_link_ports(first, last), c.answer);
    EXPECT_EQ(first, c.first);
    EXPECT_EQ(last, c.last);
}

std::string userKey(const std::string& version, const std::string& values) {
    return "[HKEY_CURRENT_USER\\SOFTWARE\\Norvex\\" + version + "]\n" + values + "\n";
}

INSTANTIATE_TEST_SUITE_P(
    Installation, LiveLinkPorts,
    testing::Values(
        PortsCase{"Numbers", installedVersion("Vantrel 6"),
                  userKey("Vantrel 6", "\"LiveLinkPort\"=dword:0000176f\n\"LiveLinkMaxPort\"=dword:00001771"), 0,
                  5999, 6001},
        PortsCase{"Texts", installedVersion("Vantrel 6"),
                  userKey("Vantrel 6", "\"LiveLinkPort\"=\"5999\"\n\"LiveLinkMaxPort\"=\"6001\""), 0, 5999, 6001},
        PortsCase{"NumberWithoutMax", installedVersion("Vantrel 6"),
                  userKey("Vantrel 6", "\"LiveLinkPort\"=dword:0000176f"), -1, 5999, -7},
        PortsCase{"TextWithoutMax", installedVersion("Vantrel 6"), userKey("Vantrel 6", "\"LiveLinkPort\"=\"5999\""),
                  -1, 5999, -7},
        PortsCase{"NoFirstPort", installedVersion("Vantrel 6"),
                  userKey("Vantrel 6", "\"LiveLinkMaxPort\"=\"6001\""), -2, -7, -7},
        PortsCase{"NoUserKey", installedVersion("Vantrel 6"), userKey("Vantrel 5", "\"LiveLinkPort\"=\"5999\""),
                  -3, -7, -7},
        PortsCase{"NoVantrelVersionReadsVantrel4", "",
                  userKey("Vantrel 6", "\"LiveLinkPort\"=\"1\"\n\"LiveLinkMaxPort\"=\"2\"") +
                      userKey("Vantrel 4", "\"LiveLinkPort\"=\"4000\"\n\"LiveLinkMaxPort\"=\"4010\""),
                  0, 4000, 4010}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
