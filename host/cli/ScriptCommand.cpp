// vantrel-host script FILE: a session run from a script of the user's steps.
#include <fstream>
#include <iostream>
#include <sstream>

#include "host/cli/SessionScript.h"
#include "host/cli/StartedPlugin.h"
#include "host/cli/Subcommands.h"

namespace host::cli {

int runScript(const Invocation& invocation) {
    const std::filesystem::path file = std::filesystem::absolute(operandOf(invocation));
    std::ifstream in(file);
    if (!in) throw UsageError{"can't read the script " + file.string()};
    std::stringstream script;
    script << in.rdbuf();
    return withStartedPlugin(invocation, [&](Session& session, Host& host) {
        try {
            runSessionScript(script.str(), file.parent_path(), session, host, std::cout);
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
