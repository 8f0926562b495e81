#include "export/ExportDrivers.h"
#include "plugin/shell/CommandActions.h"
#include "plugin/shell/Commands.h"
#include "tests/plugin/PluginFixture.h"

namespace {

using Commands = PluginTest;
using Calls = std::vector<std::string>;

Calls selectionIcons(const std::string& manual, const std::string& automatic) {
    return {"ProCmdIconSet(Manual selection, " + manual + ")", "ProCmdIconSet(Automatic selection, " + automatic + ")"};
}

// The calls of registration, given those that set the selection icons.
Calls registration(const Calls& icons) {
    const std::string message = ", vantrel_plugin_msg.txt)";
    Calls calls = {"ProCmdActionAdd(Manual selection, 2, 1, 0)",
                   "ProCmdDesignate(Manual selection, vantrelPluginSettingsManual, vantrelPluginSettingsManualHelp, "
                   "vantrelPluginSettingsManualHelp" + message,
                   "ProCmdActionAdd(Automatic selection, 2, 1, 0)",
                   "ProCmdDesignate(Automatic selection, vantrelPluginSettingsAutomatic, "
                   "vantrelPluginSettingsAutomaticHelp, vantrelPluginSettingsAutomaticHelp" + message};
    calls.insert(calls.end(), icons.begin(), icons.end());
    for (const char* command : {"Settings", "Render", "Export", "Update"}) {
        std::string icon = command == std::string("Settings") ? "settings" : command;
        for (char& letter : icon) letter = static_cast<char>(std::tolower(letter));
        calls.push_back("ProCmdActionAdd(Vantrel Plugin " + std::string(command) + ", 2, 1, 0)");
        calls.push_back("ProCmdIconSet(Vantrel Plugin " + std::string(command) + ", vr_" + icon + ".png)");
    }
    for (const char* command : {"Settings", "Render", "Export", "Update"}) {
        std::string key = "vantrelPlugin" + std::string(command);
        calls.push_back("ProCmdDesignate(Vantrel Plugin " + std::string(command) + ", " + key + ", " + key +
                        "Help, Vantrel Plugin " + command + message);
    }
    return calls;
}

TEST_F(Commands, RegistrationOrderTextsAndIconsPerSelectionMode) {
    VantrelPlugin plugin;
    EXPECT_EQ(registerCommands(plugin), PRO_TK_NO_ERROR);
    EXPECT_EQ(fakehost::state().calls, registration(selectionIcons("vr_update_unchecked.png", "vr_update_checked.png")));
    for (int mode : {1, 2}) {
        fakehost::reset();
        plugin.settings.selectionMode = mode;
        registerCommands(plugin);
        Calls icons = mode == 1 ? selectionIcons("vr_update_checked.png", "vr_update_unchecked.png") : Calls{};
        EXPECT_EQ(fakehost::state().calls, registration(icons)) << "selection mode " << mode;
    }
    const uiCmdCmdActFn actions[] = {manualSelectionAction, automaticSelectionAction, settingsCommandAction,
                                     renderCommandAction,   exportCommandAction,      updateCommandAction};
    for (std::size_t index = 0; index < 6; ++index) {
        EXPECT_EQ(fakehost::state().commands[index].action, actions[index]);
        EXPECT_EQ(fakehost::state().commands[index].access(0), 3) << "always available";
    }
    EXPECT_NE(plugin.updateCommand, nullptr);
}

TEST_F(Commands, SelectionClicksSaveAndLeaveTheShortIconNames) {
    registerCommands(*VantrelPlugin::instance());
    std::vector<fakehost::Command>& commands = fakehost::state().commands;
    fakehost::state().calls.clear();
    EXPECT_EQ(commands[0].action(), 0);
    Calls expected = selectionIcons("vr_update_checked.png", "vr_update_unchecked.png");
    for (std::string call : selectionIcons("checked.png", "unchecked.png")) expected.push_back(call);
    EXPECT_EQ(fakehost::state().calls, expected);
    EXPECT_EQ(VantrelPlugin::instance()->settings.selectionMode, 1);
    std::string written = readSettings();
    EXPECT_NE(written.find("<selectionMode>manual</selectionMode>"), std::string::npos);
    commands[0].action();
    EXPECT_EQ(readSettings(), written) << "a second click writes the same file";

    EXPECT_EQ(commands[1].action(), 0);
    EXPECT_EQ(commands[0].icon + " " + commands[1].icon, "unchecked.png checked.png");
    EXPECT_NE(readSettings().find("<selectionMode>automatic</selectionMode>"), std::string::npos);
}

TEST_F(Commands, SetSelectionModeSetsTheLongIconsAndSavesNothing) {
    VantrelPlugin plugin;
    registerCommands(plugin);
    fakehost::state().calls.clear();
    setSelectionMode(plugin, true);
    EXPECT_EQ(plugin.settings.selectionMode, 1);
    EXPECT_EQ(fakehost::state().calls, selectionIcons("vr_update_checked.png", "vr_update_unchecked.png"));
    EXPECT_FALSE(std::filesystem::exists(settingsFileName));
}

}  // namespace
