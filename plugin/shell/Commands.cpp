#include "plugin/shell/Commands.h"

#include "plugin/core/VantrelPlugin.h"
#include "plugin/shell/CommandActions.h"
#include "toolkit/HostCallback.h"
#include "toolkit/ProToolkit.h"

namespace {

// The host resolves labels and help texts as keys of this file.
constexpr ProWchar messageFile[] = u"vantrel_plugin_msg.txt";

// The host's state of a command that can be used.
constexpr int commandAvailable = 3;

struct CommandDefinition {
    const char* name;
    uiCmdCmdActFn action;
    uiCmdCmdId VantrelPlugin::*id;
    const char* labelKey;
    const char* helpKey;
    const char* description;
    const char* icon;
};

const CommandDefinition manualSelection = {
    "Manual selection", manualSelectionAction, &VantrelPlugin::manualSelectionCommand,
    "vantrelPluginSettingsManual", "vantrelPluginSettingsManualHelp", "vantrelPluginSettingsManualHelp", nullptr};
const CommandDefinition automaticSelection = {
    "Automatic selection", automaticSelectionAction, &VantrelPlugin::automaticSelectionCommand,
    "vantrelPluginSettingsAutomatic", "vantrelPluginSettingsAutomaticHelp", "vantrelPluginSettingsAutomaticHelp",
    nullptr};
const CommandDefinition runCommands[] = {
    {"Vantrel Plugin Settings", settingsCommandAction, &VantrelPlugin::settingsCommand, "vantrelPluginSettings",
     "vantrelPluginSettingsHelp", "Vantrel Plugin Settings", "vr_settings.png"},
    {"Vantrel Plugin Render", renderCommandAction, &VantrelPlugin::renderCommand, "vantrelPluginRender",
     "vantrelPluginRenderHelp", "Vantrel Plugin Render", "vr_render.png"},
    {"Vantrel Plugin Export", exportCommandAction, &VantrelPlugin::exportCommand, "vantrelPluginExport",
     "vantrelPluginExportHelp", "Vantrel Plugin Export", "vr_export.png"},
    {"Vantrel Plugin Update", updateCommandAction, &VantrelPlugin::updateCommand, "vantrelPluginUpdate",
     "vantrelPluginUpdateHelp", "Vantrel Plugin Update", "vr_update.png"},
};

ProError addCommand(VantrelPlugin& plugin, const CommandDefinition& command) {
    return ProCmdActionAdd(command.name, command.action, 2, commandAccess, PRO_B_TRUE, PRO_B_FALSE,
                           &(plugin.*command.id));
}

ProError designateCommand(VantrelPlugin& plugin, const CommandDefinition& command) {
    return ProCmdDesignate(plugin.*command.id, command.labelKey, command.helpKey, command.description, messageFile);
}

// The icons that show the selection mode, as they stand after a load or after
// the settings dialog. A mode other than 0 or 1 shows none.
void showSelectionMode(const VantrelPlugin& plugin) {
    int mode = plugin.settings.selectionMode;
    if (mode != 0 && mode != 1) return;
    bool manual = mode == 1;
    ProCmdIconSet(plugin.manualSelectionCommand, manual ? "vr_update_checked.png" : "vr_update_unchecked.png");
    ProCmdIconSet(plugin.automaticSelectionCommand, manual ? "vr_update_unchecked.png" : "vr_update_checked.png");
}

}  // namespace

int registerCommands(VantrelPlugin& plugin) {
    addCommand(plugin, manualSelection);
    designateCommand(plugin, manualSelection);
    addCommand(plugin, automaticSelection);
    designateCommand(plugin, automaticSelection);
    showSelectionMode(plugin);
    for (const CommandDefinition& command : runCommands) {
        addCommand(plugin, command);
        ProCmdIconSet(plugin.*command.id, command.icon);
    }
    ProError status = PRO_TK_NO_ERROR;
    for (const CommandDefinition& command : runCommands) status = designateCommand(plugin, command);
    return status;
}

int commandAccess(int) { return toolkit::guardEntry("command access", commandAvailable, [] { return commandAvailable; }); }

void setSelectionMode(VantrelPlugin& plugin, bool manual) {
    plugin.settings.selectionMode = manual ? 1 : 0;
    showSelectionMode(plugin);
}
