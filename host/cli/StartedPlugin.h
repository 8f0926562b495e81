#pragma once
// The plug-in started in a fresh session in the invocation's working
// directory, for the subcommands that work on its commands.
#include <functional>

#include "host/Host.h"
#include "host/Session.h"
#include "host/cli/Invocation.h"

namespace host::cli {

// Runs `work` on the started plug-in, then reports the errors the session
// logged on standard error. Answers 1 if there were any, else 0.
int withStartedPlugin(const Invocation& invocation, const std::function<void(Session&, Host&)>& work);

}  // namespace host::cli
