#include "host/cli/StartedPlugin.h"

#include <iostream>
#include <system_error>

#include "host/HostError.h"
#include "platform/FileSystem.h"

namespace host::cli {
namespace {

void changeDirectory(const std::filesystem::path& directory) {
    std::error_code error;
    std::filesystem::current_path(directory, error);
    if (error) {
        throw HostError("can't change to the working directory \"" + directory.string() + "\": " + error.message());
    }
}

}  // namespace

std::filesystem::path pluginOf(const Invocation& invocation) {
    if (invocation.plugin) return *invocation.plugin;
    return std::filesystem::path(platform::executableDirectory()) / VANTREL_PLUGIN_FILE_NAME;
}

int withStartedPlugin(const Invocation& invocation, const std::function<void(Session&, Host&)>& work) {
    if (invocation.workdir) changeDirectory(*invocation.workdir);
    Session session;
    Host host(session, pluginOf(invocation));
    work(session, host);
    for (const std::string& error : session.errors().messages()) std::cerr << "vantrel-host: " << error << "\n";
    return session.errors().empty() ? 0 : 1;
}

}  // namespace host::cli
