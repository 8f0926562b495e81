#include "tests/realmodel/HostProgram.h"

#include "tests/toolkit/FileText.h"

#include <sys/wait.h>

#include <cstdio>

namespace host::realmodel::testing {

std::string contentsOf(const std::filesystem::path& path) { return testsupport::fileText(path); }

ProgramRun runHost(const cad::testing::ScratchFolder& folder, const std::string& arguments, int seconds) {
    const std::filesystem::path errors = folder.path() / "stderr.txt";
    // The sample and the host's mechanism need no plug-in, and take no option for one.
    const bool pluginless =
        arguments.starts_with("sample") || arguments.starts_with("components") || arguments.starts_with("motion");
    const std::string plugin = pluginless ? "" : std::string("--plugin '") + VANTREL_PLUGIN_FILE + "' ";
    // The per-user working directory is the folder's own.
    const std::string command = "XDG_CONFIG_HOME='" + folder.path().string() + "/config' timeout " +
                                std::to_string(seconds) + " '" + VANTREL_HOST_PROGRAM + "' " + plugin + arguments +
                                " 2>'" + errors.string() + "'";
    ProgramRun result;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return result;
    char buffer[4096];
    for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) result.out.append(buffer, n);
    const int status = pclose(pipe);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.err = contentsOf(errors);
    return result;
}

}  // namespace host::realmodel::testing
