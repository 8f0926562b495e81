// vantrel-host script FILE: a session run from a script of the user's steps.
#include <iostream>

#include "host/cli/SessionScript.h"
#include "host/cli/StartedPlugin.h"
#include "host/cli/Subcommands.h"
#include "platform/WholeFile.h"

namespace host::cli {

int runScript(const Invocation& invocation) {
    const std::filesystem::path file = std::filesystem::absolute(operandOf(invocation));
    const std::optional<std::string> script = platform::readWholeFile(file);
    if (!script) throw UsageError{"can't read the script " + file.string()};
    return withStartedPlugin(invocation, [&](Session& session, Host& host) {
        try {
            runSessionScript(*script, file.parent_path(), session, host, std::cout);
        } catch (const ScriptError& error) {
            session.errors().add(file.filename().string() + ": " + error.message);
        }
    });
}

int runRender(const Invocation& invocation) {
    const std::filesystem::path model = std::filesystem::absolute(operandOf(invocation));
    return withStartedPlugin(invocation, [&](Session& session, Host& host) {
        try {
            runSessionScript("open " + model.filename().string() + "\npress Vantrel Plugin Render\n", model.parent_path(),
                             session, host, std::cout);
        } catch (const ScriptError& error) {
            session.errors().add(error.message);
        }
    });
}

}  // namespace host::cli
