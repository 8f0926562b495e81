#include "plugin/shell/CommandActions.h"

#include <string>

#include "export/ExportDrivers.h"
#include "plugin/core/SettingsFile.h"
#include "plugin/core/VantrelPlugin.h"
#include "plugin/shell/Commands.h"
#include "plugin/shell/FinishDialog.h"
#include "plugin/shell/SettingsDialog.h"
#include "platform/Files.h"
#include "toolkit/HostCallback.h"

namespace {

// Directory and file name of the last export, offered by the file dialog.
// A part that doesn't fit its buffer is offered empty.
struct SaveDefaults {
    std::u16string directory;
    std::u16string name;
};

SaveDefaults saveDefaultsFrom(const std::u16string& exportPath) {
    constexpr size_t directoryCapacity = 260, nameCapacity = 40;
    SaveDefaults defaults;
    if (exportPath.empty()) return defaults;
    if (exportPath.size() < directoryCapacity) defaults.directory = exportPath;
    size_t separator = defaults.directory.rfind(platform::pathSeparator);
    if (separator == std::u16string::npos) return defaults;
    std::u16string name = defaults.directory.substr(separator + 1);
    if (name.size() < nameCapacity) defaults.name = name;
    defaults.directory.resize(separator);
    return defaults;
}

// A failure that a run raises (the scene file can't be opened or closed)
// ends the command right there, as if it had left the command: an Export
// then shows no finish dialog and saves nothing.
int exportWithDialogs() {
    VantrelPlugin& plugin = *VantrelPlugin::instance();
    SaveDefaults defaults = saveDefaultsFrom(plugin.settings.exportPath);
    ProPath chosen = {};
    if (ProFileSave(u"Save as vnz", u"*.vnz", nullptr, nullptr, defaults.directory.c_str(), defaults.name.c_str(),
                    chosen) == PRO_TK_USER_ABORT)
        return 0;
    chosen[sizeof chosen / sizeof chosen[0] - 1] = 0;
    plugin.settings.exportPath = chosen;
    exportToFile(plugin);
    showExportFinished();
    saveSettings(plugin);
    return 0;
}

// A click on a selection command sets the long icon names and saves, then
// replaces the icons with those of the short names, which stay.
int selectByCommand(bool manual) {
    VantrelPlugin& plugin = *VantrelPlugin::instance();
    setSelectionMode(plugin, manual);
    saveSettings(plugin);
    ProCmdIconSet(plugin.manualSelectionCommand, manual ? "checked.png" : "unchecked.png");
    ProCmdIconSet(plugin.automaticSelectionCommand, manual ? "unchecked.png" : "checked.png");
    return 0;
}

}  // namespace

int renderCommandAction() {
    return toolkit::guardEntry("Vantrel Plugin Render", 0, [] {
        ProLine value = {};
        ProConfigoptGet("vantrel_settings", value);
        ProConfigoptGet("what", value);
        renderLive(*VantrelPlugin::instance());
        return 0;
    });
}

int updateCommandAction() {
    return toolkit::guardEntry("Vantrel Plugin Update", 0, [] {
        updateLive(*VantrelPlugin::instance());
        return 0;
    });
}

int exportCommandAction() { return toolkit::guardEntry("Vantrel Plugin Export", 0, exportWithDialogs); }

int settingsCommandAction() {
    return toolkit::guardEntry("Vantrel Plugin Settings", 0, [] {
        showSettingsDialog(*VantrelPlugin::instance());
        return 0;
    });
}

int manualSelectionAction() {
    return toolkit::guardEntry("Manual selection", 0, [] { return selectByCommand(true); });
}

int automaticSelectionAction() {
    return toolkit::guardEntry("Automatic selection", 0, [] { return selectByCommand(false); });
}
