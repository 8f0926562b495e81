// vantrel-host commands: the plug-in's registered commands.
#include <iostream>

#include "host/cli/CommandListing.h"
#include "host/cli/StartedPlugin.h"
#include "host/cli/Subcommands.h"

namespace host::cli {

int runCommands(const Invocation& invocation) {
    return withStartedPlugin(invocation, [](Session& session, Host&) { listCommands(session.commands(), std::cout); });
}

}  // namespace host::cli
