#pragma once
// The plug-in settings that an export from the command line chooses, set in
// the plug-in's settings dialog as a user would set them; the plug-in saves
// them in "vantrel_plugin_settings.xml" of its working directory.
#include <filesystem>
#include <string>

#include "host/UserScript.h"

namespace host::realmodel {

struct ExportSettings {
    double quality = 0.2;              // tessellation quality, 0 to 1
    int upAxis = 1;                    // 0 +X, 1 +Y, 2 +Z, 3 -X, 4 -Y, 5 -Z
    bool includeNurbs = true;
    bool separateMaterials = true;
    bool useAssemblyMaterials = false;
    // The motion file that the animation dialog is answered with; empty:
    // the plug-in asks for none.
    std::filesystem::path animation;
};

inline constexpr const char* pluginSettingsFileName = "vantrel_plugin_settings.xml";
inline constexpr const char* settingsCommand = "Vantrel Plugin Settings";
inline constexpr const char* settingsDialog = "Vantrel_Settings";
inline constexpr const char* animationDialog = "Vantrel_Animation";

// The up axis by its name: "x", "y", "z", "-x", "-y", "-z"; -1 for another name.
int upAxisNamed(const std::string& name);

// The user's steps in the settings dialog: every control set to its value
// (automatic selection, the animation prompt on only with a motion file),
// then OK. Press the settings command after this.
void scriptSettingsDialog(UserScript& script, const ExportSettings& settings);

// The user's steps in the animation dialog that the run then shows, if the
// settings name a motion file: its path typed in, then the dialog's Export.
void scriptAnimationDialog(UserScript& script, const ExportSettings& settings);

// True when `folder` has no settings file, or one that is sound XML.
bool settingsFileIsSound(const std::filesystem::path& folder);

// In the settings file of `folder`, an export path `from` becomes `to`;
// nothing changes for another path or a file that isn't sound.
void replaceExportPath(const std::filesystem::path& folder, const std::filesystem::path& from,
                       const std::filesystem::path& to);

}  // namespace host::realmodel
