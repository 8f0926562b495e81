#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/Files.h"
#include "tests/toolkit/FakeHost.h"
#include "tests/support/LocaleScope.h"
#include "tests/toolkit/TemporaryDirectory.h"
#include "toolkit/ClientText.h"
#include "toolkit/HostBinding.h"
#include "toolkit/Startup.h"
#include "toolkit/TextDirectories.h"
#include "toolkit/btk/Foundation.h"

namespace {
int pluginStatus = 0;
}  // namespace

// The plug-in's entries, standing in for the plug-in itself.
int user_initialize(int argc, char** argv, const char* version, const char* build, ProWchar* errorText) {
    fakehost::record("user_initialize(" + std::to_string(argc) + ", " + (argv ? "argv" : "null") + ", " + version +
                     ", " + build + ", " + (errorText[0] == u'\0' ? "cleared" : "not cleared") + ")");
    return pluginStatus;
}

void user_terminate() { fakehost::record("user_terminate"); }

namespace {

using Calls = std::vector<std::string>;

class Startup : public testing::Test {
protected:
    void SetUp() override {
        fakehost::reset();
        pluginStatus = 0;
    }

    int start(int language = 6) {
        errorText[0] = u'!';
        char* argv[] = {nullptr};
        return user_initialize_plus(1, argv, "3.0", "M010", 0, errorText, root.c_str(), "", "/opt/aux",
                                    fakehost::context, 0, table.data(), static_cast<int>(table.size()), language);
    }

    // "<root>/text" and the given levels below it, which `create` makes.
    std::string text(std::initializer_list<const char*> levels = {}, bool create = false) const {
        std::string path = root + separator + "text";
        for (const char* level : levels) path += separator + std::string(level);
        if (create) std::filesystem::create_directories(path);
        return path;
    }

    const std::string separator = std::string(1, static_cast<char>(platform::pathSeparator));
    TemporaryDirectory directory{"vantrel_startup"};
    std::string root = directory.path().string();
    std::vector<HostFunctionEntry> table = fakehost::table();
    ProWchar errorText[80] = {};
};

TEST_F(Startup, StepsRunInOrderAndTheDisplayVersionIsFreed) {
    EXPECT_EQ(start(), 0);
    EXPECT_EQ(fakehost::state().calls,
              (Calls{"ProToolkitUnicodeencodingIsEnabled", "ProRunmodeGet", "ProEngineerDisplayversionGet",
                     "ProUndoclearBypassInitialize", "user_initialize(1, argv, Display 3.0, M010, cleared)",
                     "ProStringFree(Display 3.0)"}));
    EXPECT_EQ(fakehost::state().handedOutVersion, nullptr);
    EXPECT_STREQ(toolkit::hostVersion, "3.0");
    EXPECT_STREQ(toolkit::hostBuild, "M010");
    EXPECT_STREQ(toolkit::hostAuxiliaryPath, "/opt/aux");
    EXPECT_TRUE(btk::runModeNonZero());

    user_terminate_plus();
    EXPECT_EQ(fakehost::state().calls.back(), "user_terminate");
    EXPECT_EQ(toolkit::hostFunctionTable, table.data()) << "the table stays for the plug-in's tear-down";
}

TEST_F(Startup, FailingRunModeEndsTheSequenceWithItsStatus) {
    fakehost::state().runModeStatus = -4;
    EXPECT_EQ(start(), -4);
    EXPECT_EQ(fakehost::state().calls, (Calls{"ProToolkitUnicodeencodingIsEnabled", "ProRunmodeGet"}));
}

TEST_F(Startup, HostVersionStandsInForAMissingDisplayVersion) {
    fakehost::state().displayVersionStatus = PRO_TK_GENERAL_ERROR;
    pluginStatus = 5;
    EXPECT_EQ(start(), 5) << "the plug-in's status is the result";
    Calls calls = fakehost::state().calls;
    ASSERT_EQ(calls.size(), 6u);
    EXPECT_EQ(calls[4], "user_initialize(1, argv, 3.0, M010, cleared)");
    EXPECT_EQ(calls[5], "ProStringFree(3.0)");
}

TEST_F(Startup, HostWithoutUnicodeGetsTextInTheLocaleCodePage) {
    testsupport::LocaleScope locale("C");
    char narrow[16];
    fakehost::state().unicodeEnabled = PRO_B_FALSE;
    ASSERT_EQ(start(), 0);
    // Omega is neither ASCII (the C locale) nor in Windows' code page 1252.
    EXPECT_STREQ(ProWstringToString(narrow, u"M\u03a9ller"), "Mller") << "UTF-8 would keep the omega";
    EXPECT_EQ(ProWstringToString(nullptr, u"x"), nullptr);
    EXPECT_EQ(ProStringToWstring(nullptr, "x"), nullptr);
}

TEST_F(Startup, TextDirectoriesOfTheLanguageThenUsasciiThenNone) {
    text({"german"}, true);
    text({"usascii"}, true);
    ASSERT_EQ(start(1), 0);
    EXPECT_EQ(toolkit::hostTextDirectories.menus, text({"german", "menus"}));
    EXPECT_EQ(toolkit::hostTextDirectories.messages, text({"german"}));
    EXPECT_EQ(toolkit::hostTextDirectories.resources, text({"german", "resource"}));
    const std::u16string separator(1, platform::pathSeparator);
    EXPECT_EQ(btk::messageDirectory(),
              directory.path().u16string() + separator + u"text" + separator + u"german" + separator + u"resource");

    EXPECT_EQ(toolkit::deriveTextDirectories(root.c_str(), 2).messages, text({"usascii"}));
    EXPECT_EQ(toolkit::deriveTextDirectories(root.c_str(), 99).resources, text({"usascii", "resource"}));
    std::filesystem::remove_all(text({"usascii"}));
    toolkit::TextDirectories bare = toolkit::deriveTextDirectories(root.c_str(), 2);
    EXPECT_EQ(bare.menus + bare.messages + bare.resources, text({"menus"}) + text() + text({"resource"}));
}

}  // namespace
