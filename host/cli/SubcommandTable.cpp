#include "host/cli/Subcommands.h"

#include <algorithm>

namespace host::cli {
namespace {

const Subcommand table[] = {
    {"commands", "[--plugin PATH] [--workdir DIR] commands",
     "lists the registered commands with their labels, help\ntexts and icons, and whether each icon file was found",
     "--plugin --workdir", "", runCommands},
    {"press", "[--plugin PATH] [--workdir DIR] press \"COMMAND NAME\" [--model MODEL] [--show] [--click D/B]...",
     "runs the command's action on the model given, if any,\npressing the buttons given in its dialogs (and drawing\n"
     "each dialog that opens with --show), then lists every\ncommand's icon",
     "--plugin --workdir --model --show --click --fail", "a command name", runPress},
    {"export", "[options] export MODEL -o OUT.vnz",
     "opens the model file (STEP, IGES, BREP, STL or OBJ), sets\nthe options in the plug-in's settings dialog, presses\n"
     "\"Vantrel Plugin Export\", saves the scene as OUT.vnz and\nprints a summary of the scene read back from the file",
     "--output --quality --up --no-nurbs --no-separate-materials --assembly-materials --animation --codepage --fail "
     "--plugin --workdir",
     "a model file", runExport},
    {"components", "components MODEL",
     "lists every component path of the assembly: the ids from\nthe top down, a tab, and the names of the models", "",
     "a model file", runComponents},
    {"motion", "motion MODEL -o MOTION.fra [--frames N] MOVE...",
     "records moves of components as the CAD host's mechanism\nwrites a motion file; each move runs from nothing at "
     "the\nfirst frame to all of it at the last. A MOVE is\n--rotate IDS [--axis A] --degrees D or\n"
     "--translate IDS --by X,Y,Z", "--output --rotate --axis --degrees --translate --by --frames", "a model file",
     runMotion},
    {"render", "[--plugin PATH] [--workdir DIR] render MODEL",
     "opens the model file and presses \"Vantrel Plugin Render\":\nthe plug-in sends the model to a running renderer, or\n"
     "starts the registered one", "--plugin --workdir", "a model file", runRender},
    {"script", "[--plugin PATH] [--workdir DIR] script FILE",
     "runs a session from a script, one step a line: open MODEL,\npress COMMAND, answer DIALOG BUTTON, colour PART R G B,\n"
     "pick IDS..., wait MS", "--plugin --workdir", "a script file", runScript},
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
