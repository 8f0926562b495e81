#pragma once
// What one run of vantrel-host was asked to do: the options given and the
// subcommand's operands.
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/cad/CadLoader.h"
#include "host/realmodel/ExportSettings.h"

namespace host::cli {

struct Invocation {
    std::optional<std::filesystem::path> plugin;
    std::optional<std::filesystem::path> workdir;
    std::optional<std::filesystem::path> output;
    realmodel::ExportSettings settings;
    cad::LoadOptions loading;
    std::vector<std::string> operands;
};

// A command line that can't be run: exit status 2, with the usage hint.
struct UsageError {
    std::string message;
};

// The plug-in to load: the one given, else the plug-in beside this program.
std::filesystem::path pluginOf(const Invocation& invocation);

// The plug-in's working directory, where it keeps its settings file: the one
// given, else a per-user one ($XDG_CONFIG_HOME/vantrel-host, else
// ~/.config/vantrel-host). Created when missing; throws HostError if it can't be.
std::filesystem::path workdirOf(const Invocation& invocation);

// The only operand, which the command line parser has made sure is there.
inline const std::string& operandOf(const Invocation& invocation) { return invocation.operands.front(); }

}  // namespace host::cli
