#pragma once
// The plug-in settings that an export from the command line chooses, and the
// settings file through which they reach the plug-in: it reads the file
// "vantrel_plugin_settings.xml" of its working directory when it starts.
#include <filesystem>
#include <string>

namespace host::realmodel {

struct ExportSettings {
    double quality = 0.2;              // tessellation quality, 0 to 1
    int upAxis = 1;                    // 0 +X, 1 +Y, 2 +Z, 3 -X, 4 -Y, 5 -Z
    bool includeNurbs = true;
    bool separateMaterials = true;
    bool useAssemblyMaterials = false;
};

inline constexpr const char* pluginSettingsFileName = "vantrel_plugin_settings.xml";

// The up axis by its name: "x", "y", "z", "-x", "-y", "-z"; -1 for another name.
int upAxisNamed(const std::string& name);

// Replaces the settings file in `folder`. The export runs in automatic
// selection mode and never asks for an animation. Throws HostError if the
// file can't be written.
void writeSettingsFile(const std::filesystem::path& folder, const ExportSettings& settings);

// True when `folder` has no settings file, or one that is sound XML.
bool settingsFileIsSound(const std::filesystem::path& folder);

// In the settings file of `folder`, an export path `from` becomes `to`;
// nothing changes for another path or a file that isn't sound.
void replaceExportPath(const std::filesystem::path& folder, const std::filesystem::path& from,
                       const std::filesystem::path& to);

}  // namespace host::realmodel
