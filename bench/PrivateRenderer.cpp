#include "bench/PrivateRenderer.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

#include "renderer/InstanceDirectory.h"
#include "renderer/Registration.h"

extern char** environ;

namespace {

namespace fs = std::filesystem;

void usePrivateHome(const fs::path& folder) {
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_RUNTIME_DIR", "XDG_DATA_HOME"}) {
        fs::create_directories(folder / name);
        setenv(name, (folder / name).c_str(), 1);
    }
}

}  // namespace

PrivateRenderer::PrivateRenderer(const fs::path& folder) : held_(folder / "held") {
    usePrivateHome(folder);
    renderer::registerRenderer({VANTREL_BIN_DIR "/vantrel-app", folder / "resources", 47600, 47699});
    std::string program = VANTREL_BIN_DIR "/vantrel-app", outOption = "--out", outFolder = held_.string();
    char* arguments[] = {program.data(), outOption.data(), outFolder.data(), nullptr};
    if (posix_spawn(&app_, program.c_str(), nullptr, nullptr, arguments, environ) != 0) app_ = 0;
    for (int wait = 0; app_ != 0 && wait < 500 && !running(); ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

PrivateRenderer::~PrivateRenderer() {
    if (app_ == 0) return;
    kill(app_, SIGTERM);
    waitpid(app_, nullptr, 0);
}

bool PrivateRenderer::running() const { return !renderer::runningInstances().empty(); }

std::size_t PrivateRenderer::streamsReceived() const {
    std::ifstream log(held_ / "vantrel-app.log");
    std::size_t count = 0;
    for (std::string line; std::getline(log, line);) count += line.rfind("stream received", 0) == 0;
    return count;
}
