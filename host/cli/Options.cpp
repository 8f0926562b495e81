#include "host/cli/Options.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <optional>

#include "host/realmodel/ExportSettings.h"

namespace host::cli {
namespace {

double qualityOf(const std::string& text) {
    char* end = nullptr;
    const double quality = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !(quality >= 0.0 && quality <= 1.0)) {
        throw UsageError{"--quality needs a number from 0 to 1, not \"" + text + "\""};
    }
    return quality;
}

// Axis names in any case: "Z" is "z".
int upAxisOf(const std::string& text) {
    std::string lower = text;
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return std::tolower(c); });
    const int axis = realmodel::upAxisNamed(lower);
    if (axis < 0) throw UsageError{"--up needs x, y, z, -x, -y or -z, not \"" + text + "\""};
    return axis;
}

cad::StepCodePage codePageOf(const std::string& text) {
    if (std::optional<cad::StepCodePage> codePage = cad::stepCodePageNamed(text)) return *codePage;
    throw UsageError{"--codepage needs one of " + cad::knownStepCodePages() + ", not \"" + text + "\""};
}

std::filesystem::path pathOf(std::string_view option, const std::string& text) {
    if (text.empty()) throw UsageError{std::string(option) + " needs a path, not an empty text"};
    return text;
}

constexpr Option table[] = {
    {"--output", "-o", "OUT.vnz", "the scene file that export writes",
     [](Invocation& invocation, const std::string& value) { invocation.output = pathOf("-o", value); }},
    {"--quality", "", "Q", "tessellation quality from 0 (coarse) to 1 (fine);\n0.2 by default",
     [](Invocation& invocation, const std::string& value) { invocation.settings.quality = qualityOf(value); }},
    {"--up", "", "AXIS", "the model's up axis: x, y, z, -x, -y or -z; y by default",
     [](Invocation& invocation, const std::string& value) { invocation.settings.upAxis = upAxisOf(value); }},
    {"--no-nurbs", "", "", "sends meshes only, without exact surfaces",
     [](Invocation& invocation, const std::string&) { invocation.settings.includeNurbs = false; }},
    {"--no-separate-materials", "", "", "lets parts share materials of equal name and colour",
     [](Invocation& invocation, const std::string&) { invocation.settings.separateMaterials = false; }},
    {"--assembly-materials", "", "", "takes the appearances that the assembly shows",
     [](Invocation& invocation, const std::string&) { invocation.settings.useAssemblyMaterials = true; }},
    {"--codepage", "", "NAME",
     "the code page of a STEP file's names (cp1251,\niso8859-5, shift-jis, gb2312, ...); detected\nwhen not given",
     [](Invocation& invocation, const std::string& value) { invocation.loading.stepCodePage = codePageOf(value); }},
    {"--plugin", "", "PATH", "the plug-in library; by default " VANTREL_PLUGIN_FILE_NAME "\nbeside this program",
     [](Invocation& invocation, const std::string& value) { invocation.plugin = pathOf("--plugin", value); }},
    {"--workdir", "", "DIR",
     "the working directory of the plug-in: it keeps its\nsettings file there (export writes the settings\n"
     "above into it before the plug-in starts)",
     [](Invocation& invocation, const std::string& value) { invocation.workdir = pathOf("--workdir", value); }},
};

}  // namespace

std::span<const Option> options() { return table; }

const Option* findOption(std::string_view name) {
    for (const Option& option : table) {
        if (option.name == name || (!option.shortName.empty() && option.shortName == name)) return &option;
    }
    return nullptr;
}

}  // namespace host::cli
