#include "host/cli/Options.h"

#include <algorithm>
#include <cctype>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <sstream>

#include "host/HostOperation.h"
#include "host/realmodel/ExportSettings.h"

namespace host::cli {
namespace {

using host::Move;

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

// "ProSolidBodyGet:3": the operation fails at its third call.
Fault faultOf(const std::string& text) {
    const size_t colon = text.rfind(':');
    const std::string name = text.substr(0, colon);
    char* end = nullptr;
    const unsigned long long call = colon == std::string::npos ? 0 : std::strtoull(text.c_str() + colon + 1, &end, 10);
    if (colon == std::string::npos || call == 0 || *end != '\0' || !operationNamed(name)) {
        throw UsageError{"--fail needs OPERATION:N, a host operation and the number of its call that fails, not \"" +
                         text + "\""};
    }
    return Fault{name, call, nullptr, PRO_TK_GENERAL_ERROR};
}

std::filesystem::path pathOf(std::string_view option, const std::string& text) {
    if (text.empty()) throw UsageError{std::string(option) + " needs a path, not an empty text"};
    return text;
}

// "41 7": component ids from the top down, separated by blanks.
std::vector<int> componentPathOf(std::string_view option, const std::string& text) {
    std::istringstream words(text);
    std::vector<int> ids;
    std::string word;
    while (words >> word) {
        char* end = nullptr;
        const long id = std::strtol(word.c_str(), &end, 10);
        if (*end != '\0' || id < INT32_MIN || id > INT32_MAX)
            throw UsageError{std::string(option) + " needs component ids separated by blanks, not \"" + text + "\""};
        ids.push_back(static_cast<int>(id));
    }
    if (ids.empty()) throw UsageError{std::string(option) + " needs the ids of a component, as \"41 7\""};
    return ids;
}

double numberOf(std::string_view option, const std::string& text) {
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !std::isfinite(value))
        throw UsageError{std::string(option) + " needs a number, not \"" + text + "\""};
    return value;
}

// The move that --axis, --degrees or --by describes further: the last one given.
Move& lastMove(Invocation& invocation, std::string_view option, Move::Kind kind) {
    const char* needs = kind == Move::Kind::Rotate ? "--rotate" : "--translate";
    if (invocation.motion.moves.empty() || invocation.motion.moves.back().kind != kind)
        throw UsageError{std::string(option) + " follows a " + needs};
    return invocation.motion.moves.back();
}

int axisOf(const std::string& text) {
    if (text == "x" || text == "X") return 0;
    if (text == "y" || text == "Y") return 1;
    if (text == "z" || text == "Z") return 2;
    throw UsageError{"--axis needs x, y or z, not \"" + text + "\""};
}

std::array<double, 3> offsetOf(const std::string& text) {
    std::array<double, 3> by{};
    size_t start = 0;
    for (size_t i = 0; i < 3; ++i) {
        const size_t comma = i < 2 ? text.find(',', start) : text.size();
        if (comma == std::string::npos) throw UsageError{"--by needs three numbers X,Y,Z, not \"" + text + "\""};
        by[i] = numberOf("--by", text.substr(start, comma - start));
        start = comma + 1;
    }
    return by;
}

int framesOf(const std::string& text) {
    char* end = nullptr;
    const long frames = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0' || frames < 1 || frames > 1000000)
        throw UsageError{"--frames needs a whole number from 1 to 1000000, not \"" + text + "\""};
    return static_cast<int>(frames);
}

// "DIALOG/BUTTON": the button's name is what follows the last "/".
std::pair<std::string, std::string> clickOf(const std::string& text) {
    const size_t slash = text.rfind('/');
    if (slash == std::string::npos || slash == 0 || slash + 1 == text.size())
        throw UsageError{"--click needs DIALOG/BUTTON, not \"" + text + "\""};
    return {text.substr(0, slash), text.substr(slash + 1)};
}

constexpr Option table[] = {
    {"--output", "-o", "OUT", "the scene file that export writes, the motion file\nthat motion writes",
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
    {"--fail", "", "OPERATION:N",
     "makes the host operation fail at its N-th call with\nan error status, its outputs untouched; may be\ngiven more than once",
     [](Invocation& invocation, const std::string& value) { invocation.faults.push_back(faultOf(value)); }},
    {"--animation", "", "MOTION.fra",
     "export asks for an animation and answers the plug-in's\nanimation dialog with this motion file",
     [](Invocation& invocation, const std::string& value) {
         invocation.settings.animation = pathOf("--animation", value);
     }},
    {"--rotate", "", "IDS", "motion: turns the component of these ids (\"41 7\",\nsee components) about its own origin",
     [](Invocation& invocation, const std::string& value) {
         invocation.motion.moves.push_back(Move{.kind = Move::Kind::Rotate, .path = componentPathOf("--rotate", value)});
     }},
    {"--axis", "", "AXIS", "the axis of the last --rotate: x, y or z of the parent;\nz by default",
     [](Invocation& invocation, const std::string& value) {
         lastMove(invocation, "--axis", Move::Kind::Rotate).axis = axisOf(value);
     }},
    {"--degrees", "", "D", "the angle of the last --rotate over the whole motion",
     [](Invocation& invocation, const std::string& value) {
         lastMove(invocation, "--degrees", Move::Kind::Rotate).degrees = numberOf("--degrees", value);
     }},
    {"--translate", "", "IDS", "motion: moves the component of these ids",
     [](Invocation& invocation, const std::string& value) {
         invocation.motion.moves.push_back(
             Move{.kind = Move::Kind::Translate, .path = componentPathOf("--translate", value)});
     }},
    {"--by", "", "X,Y,Z", "the offset of the last --translate over the whole\nmotion, in the parent's axes",
     [](Invocation& invocation, const std::string& value) {
         lastMove(invocation, "--by", Move::Kind::Translate).by = offsetOf(value);
     }},
    {"--frames", "", "N", "motion: the number of frames; 50 by default",
     [](Invocation& invocation, const std::string& value) { invocation.motion.frames = framesOf(value); }},
    {"--model", "", "MODEL", "press: opens this model file first, as the current\nmodel",
     [](Invocation& invocation, const std::string& value) { invocation.model = pathOf("--model", value); }},
    {"--show", "", "", "press: draws each dialog that opens as a text grid",
     [](Invocation& invocation, const std::string&) { invocation.show = true; }},
    {"--click", "", "DIALOG/BUTTON",
     "press: the user presses that button when the dialog\nis open; repeat it for several, in order",
     [](Invocation& invocation, const std::string& value) { invocation.clicks.push_back(clickOf(value)); }},
    {"--plugin", "", "PATH", "the plug-in library; by default " VANTREL_PLUGIN_FILE_NAME "\nbeside this program",
     [](Invocation& invocation, const std::string& value) { invocation.plugin = pathOf("--plugin", value); }},
    {"--workdir", "", "DIR",
     "the working directory of the plug-in: it keeps its\nsettings file there (export sets the settings above\n"
     "in the plug-in's settings dialog, which saves them)",
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
