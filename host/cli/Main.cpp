// vantrel-host: loads the plug-in into the headless host and lists or
// presses its commands, exports a model file through it, or writes the
// bundled sample model.
#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "host/Host.h"
#include "host/HostError.h"
#include "host/cli/CommandListing.h"
#include "host/cli/ModelCommands.h"
#include "host/realmodel/ExportJob.h"
#include "platform/FileSystem.h"

namespace {

constexpr std::string_view usage =
    "usage: vantrel-host [--plugin PATH] [--workdir DIR] commands\n"
    "       vantrel-host [--plugin PATH] [--workdir DIR] press \"COMMAND NAME\"\n"
    "       vantrel-host [options] export MODEL -o OUT.vnz\n"
    "       vantrel-host sample OUT.step\n"
    "\n"
    "Loads the plug-in into a headless host session and starts it as the CAD\n"
    "host would, then:\n"
    "  export MODEL    opens the model file (STEP, IGES, BREP, STL or OBJ), presses\n"
    "                  \"Vantrel Plugin Export\", saves the scene as OUT.vnz and\n"
    "                  prints a summary of the scene read back from the file\n"
    "  sample OUT.step writes the bundled sample model (and its mesh part beside it)\n"
    "  commands        lists the registered commands with their labels, help\n"
    "                  texts and icons, and whether each icon file was found\n"
    "  press NAME      runs the command's action, then lists every command's icon\n"
    "\n"
    "options:\n"
    "  -o, --output OUT.vnz      the scene file that export writes\n"
    "  --quality Q               tessellation quality from 0 (coarse) to 1 (fine);\n"
    "                            0.2 by default\n"
    "  --up AXIS                 the model's up axis: x, y, z, -x, -y or -z; y by default\n"
    "  --no-nurbs                sends meshes only, without exact surfaces\n"
    "  --no-separate-materials   lets parts share materials of equal name and colour\n"
    "  --assembly-materials      takes the appearances that the assembly shows\n"
    "  --plugin PATH             the plug-in library; by default " VANTREL_PLUGIN_FILE_NAME "\n"
    "                            beside this program\n"
    "  --workdir DIR             the working directory of the plug-in: it keeps its\n"
    "                            settings file there (export writes the settings\n"
    "                            above into it before the plug-in starts)\n"
    "  --help                    shows this text\n"
    "\n"
    "Exits with 1 when the model can't be read or holds no geometry, the plug-in\n"
    "can't be loaded or started, the command is unknown, the plug-in asked the\n"
    "host for something it couldn't give, or the written scene is not sound;\n"
    "with 2 on a usage error.\n";

struct UsageError {
    std::string message;
};

struct Invocation {
    bool help = false;
    std::optional<std::filesystem::path> plugin;
    std::optional<std::filesystem::path> workdir;
    std::optional<std::filesystem::path> output;
    host::realmodel::ExportSettings settings;
    std::string action;
    std::string operand;  // the command to press, the model to export, the sample to write
};

double qualityOf(const std::string& text) {
    char* end = nullptr;
    const double quality = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !(quality >= 0.0 && quality <= 1.0)) {
        throw UsageError{"--quality needs a number from 0 to 1, not \"" + text + "\""};
    }
    return quality;
}

int upAxisOf(const std::string& text) {
    const int axis = host::realmodel::upAxisNamed(text);
    if (axis < 0) throw UsageError{"--up needs x, y, z, -x, -y or -z, not \"" + text + "\""};
    return axis;
}

void check(const Invocation& invocation) {
    constexpr std::string_view actions[] = {"commands", "press", "export", "sample"};
    if (invocation.action.empty()) throw UsageError{"no action given"};
    if (std::find(std::begin(actions), std::end(actions), invocation.action) == std::end(actions))
        throw UsageError{"unknown action \"" + invocation.action + "\""};
    if (invocation.action == "press" && invocation.operand.empty()) throw UsageError{"press needs a command name"};
    if (invocation.action == "export" && invocation.operand.empty()) throw UsageError{"export needs a model file"};
    if (invocation.action == "export" && !invocation.output) throw UsageError{"export needs -o OUT.vnz"};
    if (invocation.action == "sample" && invocation.operand.empty()) throw UsageError{"sample needs OUT.step"};
}

Invocation parse(int argc, char** argv) {
    Invocation invocation;
    for (int index = 1; index < argc; ++index) {
        std::string_view argument = argv[index];
        auto value = [&]() -> std::string {
            if (index + 1 >= argc) throw UsageError{std::string(argument) + " needs a value"};
            return argv[++index];
        };
        if (argument == "--help" || argument == "-h") invocation.help = true;
        else if (argument == "--plugin") invocation.plugin = value();
        else if (argument == "--workdir") invocation.workdir = value();
        else if (argument == "-o" || argument == "--output") invocation.output = value();
        else if (argument == "--quality") invocation.settings.quality = qualityOf(value());
        else if (argument == "--up") invocation.settings.upAxis = upAxisOf(value());
        else if (argument == "--no-nurbs") invocation.settings.includeNurbs = false;
        else if (argument == "--no-separate-materials") invocation.settings.separateMaterials = false;
        else if (argument == "--assembly-materials") invocation.settings.useAssemblyMaterials = true;
        else if (argument.starts_with("-") && argument != "-") throw UsageError{"unknown option " + std::string(argument)};
        else if (invocation.action.empty()) invocation.action = argument;
        else if (invocation.action != "commands" && invocation.operand.empty()) invocation.operand = argument;
        else throw UsageError{"unexpected argument \"" + std::string(argument) + "\""};
    }
    if (!invocation.help) check(invocation);
    return invocation;
}

std::filesystem::path defaultPlugin() {
    return std::filesystem::path(platform::executableDirectory()) / VANTREL_PLUGIN_FILE_NAME;
}

void changeDirectory(const std::filesystem::path& directory) {
    std::error_code error;
    std::filesystem::current_path(directory, error);
    if (error) {
        throw host::HostError("can't change to the working directory \"" + directory.string() +
                              "\": " + error.message());
    }
}

int runExport(const Invocation& invocation) {
    host::realmodel::ExportRequest request;
    request.model = invocation.operand;
    request.output = *invocation.output;
    request.plugin = invocation.plugin.value_or(defaultPlugin());
    request.workdir = invocation.workdir.value_or(std::filesystem::path());
    request.settings = invocation.settings;
    return host::cli::exportModel(std::move(request));
}

int run(const Invocation& invocation) {
    if (invocation.action == "export") return runExport(invocation);
    if (invocation.action == "sample") return host::cli::writeSample(invocation.operand);
    if (invocation.workdir) changeDirectory(*invocation.workdir);
    host::Session session;
    host::Host host(session, invocation.plugin.value_or(defaultPlugin()));
    if (invocation.action == "commands") {
        host::cli::listCommands(session.commands(), std::cout);
    } else {
        int answer = host.press(invocation.operand);
        std::cout << "pressed \"" << invocation.operand << "\": the action answered " << answer << "\n";
        host::cli::listIcons(session.commands(), std::cout);
    }
    for (const std::string& error : session.errors().messages()) std::cerr << "vantrel-host: " << error << "\n";
    return session.errors().empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    try {
        Invocation invocation = parse(argc, argv);
        if (invocation.help) {
            std::cout << usage;
            return 0;
        }
        return run(invocation);
    } catch (const UsageError& error) {
        std::cerr << "vantrel-host: " << error.message << "\nTry \"vantrel-host --help\".\n";
        return 2;
    } catch (const std::runtime_error& error) {
        // The host's, the model loader's and the export's errors.
        std::cerr << "vantrel-host: error: " << error.what() << "\n";
        return 1;
    }
}
