// The live road's log: its lines, its folder, and the rule that starts a full
// log anew.
#include <gtest/gtest.h>

#include <fstream>

#include "importers/sceneapi/SceneApiLog.h"
#include "tests/sceneapi/live/LiveTestSupport.h"

namespace {

using livetest::LiveEnvironment;
namespace fs = livetest::fs;

TEST(SceneApiLog, LinesCarryFileLineTimeAndLevelWithTwoBlanksBeforeTheMessage) {
    LiveEnvironment live;
    live.clock.now = 41000;
    live.clock.time = "09:08:07";
    // The milliseconds count from the first message: 41000, then 1234 and
    // 2999 later.
    FILE_LOG(logDEBUG4) << "first " << 1;
    const int firstLine = __LINE__ - 1;
    live.clock.now += 1234;
    FILE_LOG(logWARNING) << "second";
    const int secondLine = __LINE__ - 1;
    live.clock.now += 1765;
    live.clock.time_known = false;
    FILE_LOG(logERROR) << "third";
    const int thirdLine = __LINE__ - 1;
    EXPECT_EQ(livetest::fileText(live.temporary / "sceneapi.log"),
              "SceneApiLogTest.cpp:" + std::to_string(firstLine) + " - 09:08:07.000 DEBUG4:  first 1\n" +
                  "SceneApiLogTest.cpp:" + std::to_string(secondLine) + " - 09:08:07.234 WARNING:  second\n" +
                  "SceneApiLogTest.cpp:" + std::to_string(thirdLine) + " - Error in NowTime().999 ERROR:  third\n");
}

TEST(SceneApiLog, LevelNamesAndTheReportingLevel) {
    const char* names[] = {"ERROR", "WARNING", "INFO", "DEBUG", "DEBUG1", "DEBUG2", "DEBUG3", "DEBUG4", "NONE"};
    for (int level = logERROR; level <= logNONE; ++level) EXPECT_EQ(FILELog::ToString(level), names[level]);
    EXPECT_EQ(FILELog::ReportingLevel(), 7);

    LiveEnvironment live;
    int formatted = 0;
    auto counted = [&formatted] { return ++formatted; };
    FILE_LOG(logNONE) << counted();
    FILE_LOG(logNONE + 1) << counted();
    EXPECT_EQ(formatted, 0);
    EXPECT_EQ(livetest::fileText(live.temporary / "sceneapi.log"), "");
}

struct FolderCase {
    const char* name;
    bool machineFolder, userFolder;
    const char* expected;  // below the test's root; "tmp" is $TMPDIR
};

void PrintTo(const FolderCase& c, std::ostream* out) { *out << c.name; }

class SceneApiLogFolder : public testing::TestWithParam<FolderCase> {};

TEST_P(SceneApiLogFolder, ResourceFolderOfTheUserThenTheMachineThenTemporary) {
    LiveEnvironment live;
    const FolderCase& c = GetParam();
    std::string machine = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvex]\n\"VantrelVersion\"=\"Vantrel 6\"\n\n";
    // The user's hive names its own version key.
    std::string user = "[HKEY_CURRENT_USER\\SOFTWARE\\Norvex]\n\"VantrelVersion\"=\"Vantrel 6 user\"\n\n";
    if (c.machineFolder)
        machine += "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvex\\Vantrel 6]\n\"ResourceFolder\"=\"" +
                   (live.root / "machine-resources").string() + "\"\n";
    if (c.userFolder)
        user += "[HKEY_CURRENT_USER\\SOFTWARE\\Norvex\\Vantrel 6 user]\n\"ResourceFolder\"=\"" +
                (live.root / "user-resources").string() + "\"\n";
    live.writeMachineRegistry(machine);
    live.writeUserRegistry(user);
    for (const char* folder : {"machine-resources", "user-resources"}) fs::create_directories(live.root / folder);

    FILE_LOG(logINFO) << "here";
    for (const char* folder : {"tmp", "machine-resources", "user-resources"})
        EXPECT_EQ(fs::exists(live.root / folder / "sceneapi.log"), std::string(folder) == c.expected) << folder;
}

INSTANTIATE_TEST_SUITE_P(SceneApiLog, SceneApiLogFolder,
                         testing::Values(FolderCase{"NoResourceFolder", false, false, "tmp"},
                                         FolderCase{"MachineOnly", true, false, "machine-resources"},
                                         FolderCase{"UserOnly", false, true, "user-resources"},
                                         FolderCase{"UserHasTheLastWord", true, true, "user-resources"}),
                         [](const auto& info) { return std::string(info.param.name); });

// A log of 20 MiB or more starts anew at the first open; one byte less is
// appended to.
class SceneApiLogSize : public testing::TestWithParam<std::uintmax_t> {};

TEST_P(SceneApiLogSize, FullLogStartsAnew) {
    LiveEnvironment live;
    fs::path log = live.temporary / "sceneapi.log";
    std::ofstream(log) << "old";
    fs::resize_file(log, GetParam());
    FILE_LOG(logERROR) << "new";
    const std::uintmax_t line =
        ("SceneApiLogTest.cpp:" + std::to_string(__LINE__ - 2) + " - 12:34:56.000 ERROR:  new\n").size();
    const std::uintmax_t full = 20971520;
    EXPECT_EQ(fs::file_size(log), GetParam() >= full ? line : GetParam() + line);
}

INSTANTIATE_TEST_SUITE_P(SceneApiLog, SceneApiLogSize, testing::Values(20971519u, 20971520u, 20971521u));

TEST(SceneApiLog, AnUnopenableLogDropsMessagesAndTriesAgain) {
    LiveEnvironment live;
    fs::path folder = live.root / "later";
    live.writeUserRegistry("[HKEY_CURRENT_USER\\SOFTWARE\\Norvex]\n\"VantrelVersion\"=\"Vantrel 6\"\n\n"
                           "[HKEY_CURRENT_USER\\SOFTWARE\\Norvex\\Vantrel 6]\n\"ResourceFolder\"=\"" +
                           folder.string() + "\"\n");
    testing::internal::CaptureStderr();
    FILE_LOG(logERROR) << "lost";
    std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(said.rfind("could not open log file:\nopening log: ", 0), 0u) << said;
    fs::create_directories(folder);
    FILE_LOG(logERROR) << "kept";
    std::string text = livetest::fileText(folder / "sceneapi.log");
    EXPECT_EQ(text.find("lost"), std::string::npos);
    EXPECT_NE(text.find("ERROR:  kept\n"), std::string::npos);
}

}  // namespace
