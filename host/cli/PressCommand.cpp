// vantrel-host press NAME: runs one of the plug-in's commands.
#include <iostream>

#include "host/cli/CommandListing.h"
#include "host/cli/StartedPlugin.h"
#include "host/cli/Subcommands.h"

namespace host::cli {

int runPress(const Invocation& invocation) {
    return withStartedPlugin(invocation, [&](Session& session, Host& host) {
        const std::string& command = operandOf(invocation);
        const int answer = host.press(command);
        std::cout << "pressed \"" << command << "\": the action answered " << answer << "\n";
        listIcons(session.commands(), std::cout);
    });
}

}  // namespace host::cli
