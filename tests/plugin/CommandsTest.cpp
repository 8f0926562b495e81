#include <stdexcept>

#include "export/ExportDrivers.h"
#include "plugin/shell/CommandActions.h"
#include "plugin/shell/Commands.h"
#include "tests/plugin/PluginFixture.h"

namespace {

using Commands = PluginTest;
using Calls = std::vector<std::string>;

Calls linesOf(const std::string& path) {
    std::ifstream file(path);
    Calls lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    if (lines.empty()) throw std::runtime_error("no lines in " + path);
    return lines;
}

Calls selectionIcons(const std::string& manual, const std::string& automatic) {
    return {"ProCmdIconSet(Manual selection, " + manual + ")", "ProCmdIconSet(Automatic selection, " + automatic + ")"};
}

TEST_F(Commands, RegistrationOrderTextsAndIconsPerSelectionMode) {
    VantrelPlugin plugin;
    EXPECT_EQ(registerCommands(plugin), PRO_TK_NO_ERROR);
    const Calls atModeZero = linesOf(PLUGIN_TEST_DATA "/registration_calls.txt");
    EXPECT_EQ(fakehost::state().calls, atModeZero);
    // Mode 1 swaps the two selection icons; mode 2 sets neither.
    for (int mode : {1, 2}) {
        fakehost::reset();
        plugin.settings.selectionMode = mode;
        registerCommands(plugin);
        Calls expected = atModeZero;
        expected.erase(expected.begin() + 4, expected.begin() + 6);
        if (mode == 1) {
            Calls swapped = selectionIcons("vr_update_checked.png", "vr_update_unchecked.png");
            expected.insert(expected.begin() + 4, swapped.begin(), swapped.end());
        }
        EXPECT_EQ(fakehost::state().calls, expected) << "selection mode " << mode;
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
