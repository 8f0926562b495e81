#include "host/cli/Subcommands.h"

#include <algorithm>

namespace host::cli {
namespace {

const Subcommand table[] = {
    {"commands", "[--plugin PATH] [--workdir DIR] commands",
     "lists the registered commands with their labels, help\ntexts and icons, and whether each icon file was found",
     "--plugin --workdir", "", runCommands},
    {"press", "[--plugin PATH] [--workdir DIR] press \"COMMAND NAME\"",
     "runs the command's action, then lists every command's icon", "--plugin --workdir", "a command name",
     runPress},
    {"export", "[options] export MODEL -o OUT.vnz",
     "opens the model file (STEP, IGES, BREP, STL or OBJ), presses\n\"Vantrel Plugin Export\", saves the scene as "
     "OUT.vnz and\nprints a summary of the scene read back from the file",
     "--output --quality --up --no-nurbs --no-separate-materials --assembly-materials --codepage --plugin --workdir",
     "a model file", runExport},
    {"sample", "sample OUT.step", "writes the bundled sample model (and its mesh part beside it)", "", "OUT.step",
     runSample},
};

}  // namespace

std::span<const Subcommand> subcommands() { return table; }

const Subcommand* findSubcommand(std::string_view name) {
    for (const Subcommand& subcommand : table) {
        if (subcommand.name == name) return &subcommand;
    }
    return nullptr;
}

bool takesOption(const Subcommand& subcommand, std::string_view name) {
    std::string_view names = subcommand.options;
    while (!names.empty()) {
        const size_t end = std::min(names.find(' '), names.size());
        if (names.substr(0, end) == name) return true;
        names.remove_prefix(std::min(end + 1, names.size()));
    }
    return false;
}

}  // namespace host::cli
