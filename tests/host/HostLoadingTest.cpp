#include <gtest/gtest.h>

#include <optional>

#include "host/FunctionTable.h"
#include "host/Host.h"
#include "tests/host/PluginFolder.h"
#include "tests/support/NativeForms.h"

namespace {

using testsupport::native;

TEST(HostLoading, HandshakeAndStartupQuestionsAreAnsweredFromTheSession) {
    PluginFolder folder;
    host::Session session;
    session.setRunMode(3);
    session.setDisplayVersion("3.0 M010");
    host::Host host(session, folder.plugin());
    PluginRecordReader record(folder.plugin());
    EXPECT_EQ(record->argc, 0);
    EXPECT_TRUE(record->argvNull);
    EXPECT_EQ(record->version, "3.0");
    EXPECT_EQ(record->build, "M010");
    EXPECT_EQ(record->textRoot, folder.root().string());
    EXPECT_EQ(record->context, host::applicationContext);
    EXPECT_EQ(record->language, 6);
    EXPECT_EQ(record->functionCount, static_cast<int>(host::hostFunctionTable().size()));
    EXPECT_TRUE(record->tableSorted);
    EXPECT_EQ(session.texts().root(), folder.root());
    EXPECT_EQ(session.texts().language(), "usascii");
    EXPECT_EQ(record->unicodeStatus, PRO_TK_NO_ERROR);
    EXPECT_EQ(record->unicode, PRO_B_TRUE);
    EXPECT_EQ(record->runModeStatus, PRO_TK_NO_ERROR);
    EXPECT_EQ(record->runMode, 3);
    EXPECT_EQ(record->displayVersionStatus, PRO_TK_NO_ERROR);
    EXPECT_EQ(record->displayVersion, "3.0 M010");
    EXPECT_EQ(record->versionFreeStatus, PRO_TK_NO_ERROR);
    EXPECT_EQ(session.handedOutStrings().outstanding(), 0u);
    // The host's own argument text was never handed out: refused, not freed.
    EXPECT_EQ(record->foreignFreeStatus, PRO_TK_BAD_INPUTS);
    EXPECT_EQ(record->undoclearStatus, PRO_TK_NO_ERROR);
}

TEST(HostLoading, DisplayVersionCanFailAndUnicodeBeOff) {
    PluginFolder folder;
    host::Session session;
    session.faults().add({"ProEngineerDisplayversionGet"});
    session.setUnicodeEncoding(false);
    host::Host host(session, folder.plugin());
    PluginRecordReader record(folder.plugin());
    EXPECT_EQ(record->displayVersionStatus, PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(record->versionFreeStatus, notCalled);
    EXPECT_EQ(record->unicode, PRO_B_FALSE);
}

TEST(HostLoading, TerminatesOnceWhenTheHostGoesAndForgetsTheActions) {
    PluginFolder folder;
    host::Session session;
    std::optional<PluginRecordReader> record;
    {
        host::Host host(session, folder.plugin());
        record.emplace(folder.plugin());
        EXPECT_EQ((*record)->terminations, 0);
    }
    EXPECT_EQ((*record)->terminations, 1);
    EXPECT_EQ(host::sessionFor(host::applicationContext), nullptr);
    EXPECT_NE(hostErrorOf([&] { session.press("Test Command"); }).find("no longer loaded"), std::string::npos);
    EXPECT_EQ((*record)->presses, 0);
}

TEST(HostLoading, FailedStartIsReportedWithStatusAndErrorText) {
    PluginFolder folder;
    host::Session session;
    session.setConfigOption("test_plugin_start_status", u"-4");
    std::string message = hostErrorOf([&] { host::Host host(session, folder.plugin()); });
    EXPECT_NE(message.find(folder.plugin().string()), std::string::npos) << message;
    EXPECT_NE(message.find("failed to start: user_initialize_plus answered -4 (start refused)"), std::string::npos)
        << message;
    EXPECT_EQ(host::sessionFor(host::applicationContext), nullptr);
    PluginRecordReader record(folder.plugin());
    EXPECT_EQ(record->terminations, 0);
}

TEST(HostLoading, MissingLibraryAndMissingEntryPointAreNamed) {
    host::Session session;
    std::string missing = hostErrorOf([&] { host::Host host(session, "/nonexistent/libnothing.so"); });
    EXPECT_EQ(missing.rfind("can't load the plug-in \"", 0), 0u) << missing;
    EXPECT_NE(missing.find(native("/nonexistent/libnothing.so\"")), std::string::npos) << missing;

    PluginFolder folder(VANTREL_TEST_PLUGIN_NO_TERMINATE);
    std::string lacking = hostErrorOf([&] { host::Host host(session, folder.plugin()); });
    EXPECT_NE(lacking.find(folder.plugin().string()), std::string::npos) << lacking;
    EXPECT_NE(lacking.find("has no entry point \"user_terminate_plus\""), std::string::npos) << lacking;
}

TEST(HostLoading, RunsOnePluginAtATime) {
    PluginFolder folder;
    host::Session first;
    host::Session second;
    host::Host host(first, folder.plugin());
    std::string message = hostErrorOf([&] { host::Host other(second, folder.plugin()); });
    EXPECT_NE(message.find("another host session is active"), std::string::npos) << message;
    EXPECT_EQ(host::sessionFor(host::applicationContext), &first);
}

}  // namespace
