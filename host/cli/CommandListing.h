#pragma once
// How the command line shows the plug-in's commands: names, resolved labels
// and help texts, and icons with whether their files were found.
#include <ostream>

#include "host/CommandRegistry.h"

namespace host::cli {

// Every command with its label, help text and icon, in registration order.
void listCommands(const CommandRegistry& commands, std::ostream& out);

// One line a command: its name and icon.
void listIcons(const CommandRegistry& commands, std::ostream& out);

}  // namespace host::cli
