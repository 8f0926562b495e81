#include "host/realmodel/ExportSettings.h"

#include <tinyxml.h>

#include <array>
#include <cstdio>
#include <string_view>

#include "platform/XmlText.h"

namespace host::realmodel {

namespace {

// The radio names of the dialog's up axes, by index of upAxis.
constexpr std::array<const char*, 6> axisNames{"xaxis", "yaxis", "zaxis", "nxaxis", "nyaxis", "nzaxis"};

const char* state(bool on) { return on ? "on" : "off"; }

}  // namespace

int upAxisNamed(const std::string& name) {
    constexpr std::array<std::string_view, 6> names{"x", "y", "z", "-x", "-y", "-z"};
    for (size_t index = 0; index < names.size(); ++index) {
        if (names[index] == name) return static_cast<int>(index);
    }
    return -1;
}

void scriptSettingsDialog(UserScript& script, const ExportSettings& settings) {
    char quality[32];
    std::snprintf(quality, sizeof quality, "%.17g", settings.quality);
    script.setValue(settingsDialog, "stepbox", quality);
    script.setValue(settingsDialog, "Vantrel_Separate_Materials_Check", state(settings.separateMaterials));
    script.setValue(settingsDialog, "Vantrel_Use_Assembly_Materials_Check", state(settings.useAssemblyMaterials));
    script.setValue(settingsDialog, "Vantrel_NURBS_Check", state(settings.includeNurbs));
    script.setValue(settingsDialog, "Vantrel_Axis_Radiogroup", axisNames.at(static_cast<size_t>(settings.upAxis)));
    script.setValue(settingsDialog, "Vantrel_Update_Radiogroup", "automatic");
    script.setValue(settingsDialog, "Vantrel_Mechanism_Prompt_Check", state(!settings.animation.empty()));
    script.pressButton(settingsDialog, "Vantrel_OK");
}

void scriptAnimationDialog(UserScript& script, const ExportSettings& settings) {
    if (settings.animation.empty()) return;
    script.setValue(animationDialog, "Vantrel_Animation_Inputpanel", settings.animation.string());
    script.pressButton(animationDialog, "Vantrel_Animation_Export");
}

bool settingsFileIsSound(const std::filesystem::path& folder) {
    const std::filesystem::path file = folder / pluginSettingsFileName;
    std::error_code error;
    if (!std::filesystem::exists(file, error)) return true;
    TiXmlDocument document;
    return platform::loadXmlFile(document, file.string().c_str()) && document.RootElement();
}

void replaceExportPath(const std::filesystem::path& folder, const std::filesystem::path& from,
                       const std::filesystem::path& to) {
    const std::string file = (folder / pluginSettingsFileName).string();
    TiXmlDocument document;
    if (!platform::loadXmlFile(document, file.c_str())) return;
    TiXmlElement* root = document.RootElement();
    TiXmlElement* path = root ? root->FirstChildElement("exportPath") : nullptr;
    const char* text = path ? path->GetText() : nullptr;
    if (!text || from.string() != text) return;
    path->Clear();
    path->LinkEndChild(new TiXmlText(to.string().c_str()));
    document.SaveFile(file.c_str());
}

}  // namespace host::realmodel
