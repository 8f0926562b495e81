#include "tests/plugin/PluginFixture.h"
#include "toolkit/Startup.h"

namespace {

using PluginLifecycle = PluginTest;

int start(const std::vector<HostFunctionEntry>& table) {
    ProWchar errorText[80] = {};
    return user_initialize_plus(0, nullptr, "3.0", "M010", 0, errorText, ".", "", "", fakehost::context, 0,
                                table.data(), static_cast<int>(table.size()), 6);
}

TEST_F(PluginLifecycle, StartRegistersWithTheFileReadAndStopDestroysTheContext) {
    writeSettings("<s><selectionMode>manual</selectionMode></s>");
    ASSERT_EQ(start(table), 0);
    ASSERT_EQ(fakehost::state().commands.size(), 6u);
    EXPECT_EQ(fakehost::state().commands[0].icon, "vr_update_checked.png");
    EXPECT_NE(VantrelPlugin::instance()->manualSelectionCommand, nullptr);

    writeSettings("<s><upAxis>3</upAxis></s>");
    user_terminate_plus();
    user_terminate_plus();  // without a context it does nothing
    VantrelPlugin* fresh = VantrelPlugin::instance();
    EXPECT_EQ(fresh->settings.upAxis, 3) << "a new context reads the file again";
    EXPECT_EQ(fresh->settings.selectionMode, 0);
    EXPECT_EQ(fresh->manualSelectionCommand, nullptr);
}

TEST_F(PluginLifecycle, StartAnswersZeroWhenTheHostRefusesEveryCommand) {
    fakehost::state().commandStatus = PRO_TK_GENERAL_ERROR;
    EXPECT_EQ(start(table), 0);
    EXPECT_TRUE(fakehost::state().commands.empty());
    EXPECT_EQ(VantrelPlugin::instance()->renderCommand, nullptr);
}

}  // namespace
