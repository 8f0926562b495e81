// vantrel-host: loads the plug-in into the headless host and lists or
// presses its commands.
#include <clocale>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "host/Host.h"
#include "host/HostError.h"
#include "host/cli/CommandListing.h"
#include "platform/FileSystem.h"

namespace {

constexpr std::string_view usage =
    "usage: vantrel-host [--plugin PATH] [--workdir DIR] commands\n"
    "       vantrel-host [--plugin PATH] [--workdir DIR] press \"COMMAND NAME\"\n"
    "\n"
    "Loads the plug-in into a headless host session and starts it as the CAD\n"
    "host would, then:\n"
    "  commands        lists the registered commands with their labels, help\n"
    "                  texts and icons, and whether each icon file was found\n"
    "  press NAME      runs the command's action, then lists every command's icon\n"
    "\n"
    "options:\n"
    "  --plugin PATH   the plug-in library; by default " VANTREL_PLUGIN_FILE_NAME "\n"
    "                  beside this program\n"
    "  --workdir DIR   the working directory to start the plug-in in (it keeps\n"
    "                  its settings file there)\n"
    "  --help          shows this text\n"
    "\n"
    "Exits with 1 when the plug-in can't be loaded or started, the command is\n"
    "unknown, or the plug-in asked the host for something it couldn't give;\n"
    "with 2 on a usage error.\n";

struct UsageError {
    std::string message;
};

struct Invocation {
    bool help = false;
    std::optional<std::filesystem::path> plugin;
    std::optional<std::filesystem::path> workdir;
    std::string action;
    std::string command;
};

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
        else if (argument.starts_with("-")) throw UsageError{"unknown option " + std::string(argument)};
        else if (invocation.action.empty()) invocation.action = argument;
        else if (invocation.action == "press" && invocation.command.empty()) invocation.command = argument;
        else throw UsageError{"unexpected argument \"" + std::string(argument) + "\""};
    }
    if (invocation.help) return invocation;
    if (invocation.action.empty()) throw UsageError{"no action given"};
    if (invocation.action != "commands" && invocation.action != "press")
        throw UsageError{"unknown action \"" + invocation.action + "\""};
    if (invocation.action == "press" && invocation.command.empty()) throw UsageError{"press needs a command name"};
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

int run(const Invocation& invocation) {
    if (invocation.workdir) changeDirectory(*invocation.workdir);
    host::Session session;
    host::Host host(session, invocation.plugin.value_or(defaultPlugin()));
    if (invocation.action == "commands") {
        host::cli::listCommands(session.commands(), std::cout);
    } else {
        int answer = host.press(invocation.command);
        std::cout << "pressed \"" << invocation.command << "\": the action answered " << answer << "\n";
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
    } catch (const host::HostError& error) {
        std::cerr << "vantrel-host: error: " << error.what() << "\n";
        return 1;
    }
}
