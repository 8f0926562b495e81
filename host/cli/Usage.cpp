#include "host/cli/Usage.h"

#include <string_view>

#include "host/cli/Options.h"
#include "host/cli/Subcommands.h"

namespace host::cli {
namespace {

// `label` in a column of `width`, then `help` with its further lines indented to the column.
void addEntry(std::string& text, const std::string& label, std::string_view help, size_t width) {
    text += "  " + label;
    text.append(label.size() < width ? width - label.size() : 1, ' ');
    for (char character : help) {
        text += character;
        if (character == '\n') text.append(width + 2, ' ');
    }
    text += '\n';
}

std::string optionLabel(const Option& option) {
    std::string label = option.shortName.empty() ? "" : std::string(option.shortName) + ", ";
    label += option.name;
    if (!option.value.empty()) label += " " + std::string(option.value);
    return label;
}

}  // namespace

std::string usageText() {
    std::string text;
    bool first = true;
    for (const Subcommand& subcommand : subcommands()) {
        text += first ? "usage: vantrel-host " : "       vantrel-host ";
        text += std::string(subcommand.usage) + "\n";
        first = false;
    }
    text += "       vantrel-host --help | --version\n\n"
            "Loads the plug-in into a headless host session and starts it as the CAD\n"
            "host would, then:\n";
    for (const Subcommand& subcommand : subcommands()) addEntry(text, std::string(subcommand.name), subcommand.help, 10);
    text += "\noptions (--option VALUE or --option=VALUE):\n";
    for (const Option& option : options()) addEntry(text, optionLabel(option), option.help, 26);
    addEntry(text, "--help", "shows this text", 26);
    addEntry(text, "--version", "shows the program's version", 26);
    text += "\n"
            "Exits with 1 when the model can't be read or holds no geometry, the plug-in\n"
            "can't be loaded or started, the command is unknown, the plug-in asked the\n"
            "host for something it couldn't give, or the written scene is not sound;\n"
            "with 2 on a usage error.\n";
    return text;
}

}  // namespace host::cli
