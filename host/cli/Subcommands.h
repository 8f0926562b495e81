#pragma once
// The subcommands of vantrel-host in one table. A subcommand is a file of
// its own with its run function, and a line in the table: its name, its
// usage line, what it does, the options it takes and the operand it needs.
#include <span>
#include <string_view>

#include "host/cli/Invocation.h"

namespace host::cli {

struct Subcommand {
    std::string_view name;
    std::string_view usage;        // the usage line after "vantrel-host "
    std::string_view help;         // what it does, lines separated by '\n'
    std::string_view options;      // the long names of the options it takes, separated by spaces
    std::string_view operand;      // what its one operand is, for "NAME needs ..."; empty: it takes none
    // Answers the program's exit status; throws UsageError for a command
    // line it can't run.
    int (*run)(const Invocation& invocation);
};

std::span<const Subcommand> subcommands();

// The subcommand called `name`, or null.
const Subcommand* findSubcommand(std::string_view name);

// Whether the subcommand takes the option of that long name.
bool takesOption(const Subcommand& subcommand, std::string_view name);

// The subcommands' run functions, each in its own file.
int runCommands(const Invocation& invocation);
int runPress(const Invocation& invocation);
int runExport(const Invocation& invocation);
int runSample(const Invocation& invocation);
int runComponents(const Invocation& invocation);
int runMotion(const Invocation& invocation);
int runScript(const Invocation& invocation);
int runRender(const Invocation& invocation);

}  // namespace host::cli
