#include "host/cli/StartedPlugin.h"

#include <cstdlib>
#include <iostream>
#include <system_error>

#include "host/HostError.h"
#include "host/realmodel/ExportSettings.h"
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

std::filesystem::path workdirOf(const Invocation& invocation) {
    std::filesystem::path folder;
    if (invocation.workdir) {
        folder = *invocation.workdir;
    } else if (const char* config = std::getenv("XDG_CONFIG_HOME"); config && *config) {
        folder = std::filesystem::path(config) / "vantrel-host";
    } else if (const char* home = std::getenv("HOME"); home && *home) {
        folder = std::filesystem::path(home) / ".config" / "vantrel-host";
    } else {
        throw HostError("no working directory: give --workdir DIR (neither XDG_CONFIG_HOME nor HOME is set)");
    }
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) throw HostError("can't create the working directory \"" + folder.string() + "\": " + error.message());
    return folder;
}

int withStartedPlugin(const Invocation& invocation, const std::function<void(Session&, Host&)>& work) {
    const std::filesystem::path workdir = workdirOf(invocation);
    if (!realmodel::settingsFileIsSound(workdir)) {
        std::cerr << "vantrel-host: warning: the settings file " << (workdir / realmodel::pluginSettingsFileName).string()
                  << " is not sound XML; the plug-in ignores it\n";
    }
    changeDirectory(workdir);
    Session session;
    Host host(session, pluginOf(invocation));
    work(session, host);
    for (const std::string& error : session.errors().messages()) std::cerr << "vantrel-host: " << error << "\n";
    return session.errors().empty() ? 0 : 1;
}

}  // namespace host::cli
