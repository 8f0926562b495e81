#pragma once
// The command line of vantrel-host read against the tables of subcommands
// and options.
#include "host/cli/Invocation.h"
#include "host/cli/Subcommands.h"

namespace host::cli {

struct ParsedCommandLine {
    enum class Request { Run, Help, Version };
    Request request = Request::Run;
    const Subcommand* subcommand = nullptr;  // set for Run
    Invocation invocation;
};

// No arguments ask for the help. Throws UsageError for a command line that
// names no subcommand, an unknown one, an option that it doesn't take, or
// operands it doesn't take.
ParsedCommandLine parseCommandLine(int argc, const char* const* argv);

}  // namespace host::cli
