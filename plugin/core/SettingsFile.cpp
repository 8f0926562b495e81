#include "plugin/core/SettingsFile.h"

#include <tinyxml.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "plugin/core/VantrelPlugin.h"
#include "toolkit/btk/TextConversion.h"
#include "platform/XmlText.h"

namespace {

// Paths are written in the system code page through a buffer of this size.
constexpr std::size_t pathBufferSize = 1024;

// The yes-or-no settings and the paths, each in the order of the file.
struct FlagSetting {
    const char* name;
    bool PluginSettings::*field;
};
constexpr FlagSetting flagSettings[] = {
    {"includeNURBS", &PluginSettings::includeNURBS},
    {"separateMaterials", &PluginSettings::separateMaterials},
    {"useAssemblyMaterials", &PluginSettings::useAssemblyMaterials},
    {"promptForMechanism", &PluginSettings::promptForMechanism},
};
struct PathSetting {
    const char* name;
    std::u16string PluginSettings::*field;
};
constexpr PathSetting pathSettings[] = {
    {"exportPath", &PluginSettings::exportPath},
    {"fraPath", &PluginSettings::fraPath},
};

// The text of the root's first child element of that name, or null.
const char* settingText(const TiXmlElement& root, const char* name) {
    const TiXmlNode* node = root.FirstChild(name);
    const TiXmlElement* element = node ? node->ToElement() : nullptr;
    return element ? element->GetText() : nullptr;
}

bool isTrue(const char* text) { return std::strcmp(text, "true") == 0; }

void readFlag(const TiXmlElement& root, const char* name, bool& field) {
    if (const char* text = settingText(root, name)) field = isTrue(text);
}

// The text is widened into a buffer of its own length plus one, then taken up
// to its first zero.
void readPath(const TiXmlElement& root, const char* name, std::u16string& field) {
    const char* text = settingText(root, name);
    if (!text) return;
    std::size_t length = std::strlen(text);
    std::u16string wide(length + 1, u'\0');
    btk::widenToBuffer(std::string_view(text, length), wide.data(), wide.size());
    field = wide.c_str();
}

void readSelectionMode(const TiXmlElement& root, std::int32_t& field) {
    const char* text = settingText(root, "selectionMode");
    if (!text) return;
    if (std::strcmp(text, "automatic") == 0) field = 0;
    if (std::strcmp(text, "manual") == 0) field = 1;
}

void addSetting(TiXmlElement& root, const char* name, const char* text) {
    auto* element = new TiXmlElement(name);
    element->LinkEndChild(new TiXmlText(text));
    root.LinkEndChild(element);
}

void addFlag(TiXmlElement& root, const char* name, bool value) { addSetting(root, name, value ? "true" : "false"); }

void addPath(TiXmlElement& root, const char* name, const std::u16string& path) {
    char narrow[pathBufferSize];
    btk::narrowToBuffer(path, narrow, sizeof narrow);
    addSetting(root, name, narrow);
}

}  // namespace

void loadSettings(VantrelPlugin& plugin) {
    TiXmlDocument document;
    if (!platform::loadXmlFile(document, settingsFileName)) return;
    // The root's name is not compared: any first element will do.
    const TiXmlElement* root = document.FirstChildElement();
    if (!root) return;

    PluginSettings& settings = plugin.settings;
    if (const char* text = settingText(*root, "tessellationQuality")) settings.tessellationQuality = std::atof(text);
    if (const char* text = settingText(*root, "upAxis")) settings.upAxis = std::atoi(text);
    readSelectionMode(*root, settings.selectionMode);
    for (const FlagSetting& flag : flagSettings) readFlag(*root, flag.name, settings.*flag.field);
    for (const PathSetting& path : pathSettings) readPath(*root, path.name, settings.*path.field);
}

void saveSettings(const VantrelPlugin& plugin) {
    const PluginSettings& settings = plugin.settings;
    TiXmlDocument document;
    document.LinkEndChild(new TiXmlDeclaration("1.0", "", ""));
    auto* root = new TiXmlElement("vantrel_plugin_settings");
    document.LinkEndChild(root);

    char number[512];  // room for any double in "%f"
    std::snprintf(number, sizeof number, "%f", settings.tessellationQuality);
    addSetting(*root, "tessellationQuality", number);
    std::snprintf(number, sizeof number, "%d", settings.upAxis);
    addSetting(*root, "upAxis", number);
    addSetting(*root, "selectionMode", settings.selectionMode != 0 ? "manual" : "automatic");
    for (const FlagSetting& flag : flagSettings) addFlag(*root, flag.name, settings.*flag.field);
    for (const PathSetting& path : pathSettings) addPath(*root, path.name, settings.*path.field);

    document.SaveFile(settingsFileName);
}
