#pragma once
// The settings file "vantrel_plugin_settings.xml" in the current working
// directory: one root element with a child element for each setting.

class VantrelPlugin;

inline constexpr const char* settingsFileName = "vantrel_plugin_settings.xml";

// Overlays the file's values on the plug-in's settings. A missing or
// malformed file changes nothing.
void loadSettings(VantrelPlugin& plugin);

// Writes all the settings, replacing the file. A failure is not reported.
void saveSettings(const VantrelPlugin& plugin);
