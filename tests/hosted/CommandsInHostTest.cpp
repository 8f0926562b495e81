#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "host/Host.h"
#include "host/Session.h"

namespace {

namespace fs = std::filesystem;

// Each test runs in a fresh working directory: the plug-in keeps its
// settings file there.
class CommandsInHost : public ::testing::Test {
protected:
    void SetUp() override {
        previous_ = fs::current_path();
        directory_ = fs::temp_directory_path() /
                     ("vantrel_hosted_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        fs::remove_all(directory_);
        fs::create_directories(directory_);
        fs::current_path(directory_);
    }
    void TearDown() override {
        fs::current_path(previous_);
        fs::remove_all(directory_);
    }

    fs::path previous_, directory_;
};

TEST_F(CommandsInHost, SixCommandsWithLabelsAndIconsFromTheirFiles) {
    host::Session session;
    host::Host plugin(session, VANTREL_PLUGIN_FILE);
    const char* expected[][3] = {
        {"Manual selection", "Manual selection", "vr_update_unchecked.png"},
        {"Automatic selection", "Automatic selection", "vr_update_checked.png"},
        {"Vantrel Plugin Settings", "Settings", "vr_settings.png"},
        {"Vantrel Plugin Render", "Render", "vr_render.png"},
        {"Vantrel Plugin Export", "Export", "vr_export.png"},
        {"Vantrel Plugin Update", "Update", "vr_update.png"},
    };
    ASSERT_EQ(session.commands().size(), 6u);
    size_t index = 0;
    for (const host::RegisteredCommand& command : session.commands()) {
        SCOPED_TRACE(command.name);
        EXPECT_EQ(command.name, expected[index][0]);
        ASSERT_TRUE(command.label.text) << command.label.error;
        EXPECT_EQ(*command.label.text, std::u16string(expected[index][1], expected[index][1] + std::strlen(expected[index][1])));
        EXPECT_TRUE(command.help.text) << command.help.error;
        ASSERT_NE(command.icon(), nullptr);
        EXPECT_EQ(command.icon()->file, expected[index][2]);
        EXPECT_TRUE(command.icon()->foundAt) << "the icon file lies beside the plug-in";
        EXPECT_EQ(command.priority, 2);
        ++index;
    }
    EXPECT_TRUE(session.errors().empty());
}

}  // namespace
