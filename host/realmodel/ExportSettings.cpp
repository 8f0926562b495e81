#include "host/realmodel/ExportSettings.h"

#include <tinyxml.h>

#include <array>
#include <cstdio>
#include <string_view>

#include "host/HostError.h"

namespace host::realmodel {

namespace {

void addSetting(TiXmlElement& root, const char* name, const char* text) {
    auto* element = new TiXmlElement(name);
    element->LinkEndChild(new TiXmlText(text));
    root.LinkEndChild(element);
}

const char* flag(bool value) { return value ? "true" : "false"; }

}  // namespace

int upAxisNamed(const std::string& name) {
    constexpr std::array<std::string_view, 6> names{"x", "y", "z", "-x", "-y", "-z"};
    for (size_t index = 0; index < names.size(); ++index) {
        if (names[index] == name) return static_cast<int>(index);
    }
    return -1;
}

void writeSettingsFile(const std::filesystem::path& folder, const ExportSettings& settings) {
    TiXmlDocument document;
    document.LinkEndChild(new TiXmlDeclaration("1.0", "", ""));
    auto* root = new TiXmlElement("vantrel_plugin_settings");
    document.LinkEndChild(root);
    char number[64];
    std::snprintf(number, sizeof number, "%f", settings.quality);
    addSetting(*root, "tessellationQuality", number);
    std::snprintf(number, sizeof number, "%d", settings.upAxis);
    addSetting(*root, "upAxis", number);
    addSetting(*root, "selectionMode", "automatic");
    addSetting(*root, "includeNURBS", flag(settings.includeNurbs));
    addSetting(*root, "separateMaterials", flag(settings.separateMaterials));
    addSetting(*root, "useAssemblyMaterials", flag(settings.useAssemblyMaterials));
    addSetting(*root, "promptForMechanism", "false");
    const std::filesystem::path file = folder / pluginSettingsFileName;
    if (!document.SaveFile(file.string().c_str())) {
        throw HostError("can't write the plug-in's settings file \"" + file.string() + "\"");
    }
}

bool settingsFileIsSound(const std::filesystem::path& folder) {
    const std::filesystem::path file = folder / pluginSettingsFileName;
    std::error_code error;
    if (!std::filesystem::exists(file, error)) return true;
    TiXmlDocument document;
    return document.LoadFile(file.string().c_str()) && document.RootElement();
}

void replaceExportPath(const std::filesystem::path& folder, const std::filesystem::path& from,
                       const std::filesystem::path& to) {
    const std::string file = (folder / pluginSettingsFileName).string();
    TiXmlDocument document;
    if (!document.LoadFile(file.c_str())) return;
    TiXmlElement* root = document.RootElement();
    TiXmlElement* path = root ? root->FirstChildElement("exportPath") : nullptr;
    const char* text = path ? path->GetText() : nullptr;
    if (!text || from.string() != text) return;
    path->Clear();
    path->LinkEndChild(new TiXmlText(to.string().c_str()));
    document.SaveFile(file.c_str());
}

}  // namespace host::realmodel
