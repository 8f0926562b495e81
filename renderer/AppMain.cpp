// vantrel-app: the stand-in renderer. It listens on 127.0.0.1, announces
// itself while it runs, takes scene streams into the models it holds, writes
// each model as a scene file after every stream (and, given a display, a
// picture of it from its first camera), and answers what it holds.
//
//   vantrel-app [--port N] [--out DIR] [--max-stream BYTES] [--idle-timeout MS] [--keep-streams DIR]
//   vantrel-app --register [--ports FIRST-LAST]
//   vantrel-app --unregister
#include <signal.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <system_error>

#include "renderer/InstanceDirectory.h"
#include "renderer/LinkProtocol.h"
#include "renderer/LinkServer.h"
#include "renderer/Picture.h"
#include "renderer/Registration.h"

namespace {

namespace fs = std::filesystem;

// The range that --register writes when none is given.
constexpr int DEFAULT_FIRST_PORT = 47600;
constexpr int DEFAULT_LAST_PORT = 47609;

volatile std::sig_atomic_t stopRequested = 0;

void requestStop(int) { stopRequested = 1; }

struct Options {
    bool registering = false;
    bool unregistering = false;
    int port = 0;
    int firstPort = DEFAULT_FIRST_PORT;
    int lastPort = DEFAULT_LAST_PORT;
    fs::path out;
    renderer::LinkLimits limits;
};

const char* const USAGE =
    "usage: vantrel-app [--port N] [--out DIR] [--max-stream BYTES] [--idle-timeout MS] [--keep-streams DIR]\n"
    "       vantrel-app --register [--ports FIRST-LAST]\n"
    "       vantrel-app --unregister\n";

fs::path defaultOutputFolder() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data && *data) return fs::path(data) / "vantrel-app";
    const char* home = std::getenv("HOME");
    return fs::path(home ? home : ".") / ".local" / "share" / "vantrel-app";
}

bool parseOptions(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        const bool hasValue = i + 1 < argc;
        if (option == "--register") {
            options.registering = true;
        } else if (option == "--unregister") {
            options.unregistering = true;
        } else if (option == "--port" && hasValue) {
            options.port = std::atoi(argv[++i]);
        } else if (option == "--ports" && hasValue) {
            const std::string range = argv[++i];
            options.firstPort = std::atoi(range.c_str());
            const std::size_t dash = range.find('-');
            options.lastPort = dash == std::string::npos ? options.firstPort : std::atoi(range.c_str() + dash + 1);
        } else if (option == "--out" && hasValue) {
            options.out = argv[++i];
        } else if (option == "--max-stream" && hasValue) {
            options.limits.maxStreamBytes = std::strtoull(argv[++i], nullptr, 10);
        } else if (option == "--keep-streams" && hasValue) {
            options.limits.keptStreams = argv[++i];
        } else if (option == "--idle-timeout" && hasValue) {
            options.limits.idleTimeout = std::chrono::milliseconds(std::atol(argv[++i]));
        } else {
            return false;
        }
    }
    return true;
}

fs::path ownExecutable() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error);
}

int runRegistration(const Options& options) {
    const std::string failed =
        options.unregistering
            ? renderer::unregisterRenderer()
            : renderer::registerRenderer({ownExecutable(), defaultOutputFolder(), options.firstPort, options.lastPort});
    if (!failed.empty()) {
        std::cerr << "vantrel-app: " << failed << "\n";
        return 1;
    }
    std::cout << (options.unregistering ? "unregistered from " : "registered in ") << renderer::machineHiveFile().string()
              << " and " << renderer::userHiveFile().string() << "\n";
    return 0;
}

int runApplication(const Options& options) {
    const fs::path out = options.out.empty() ? defaultOutputFolder() : options.out;
    std::error_code error;
    fs::create_directories(out, error);
    std::ofstream log(out / "vantrel-app.log", std::ios::app);
    log << "vantrel-app " << getpid() << " started" << std::endl;

    renderer::HeldScenes scenes(out);
    // Pictures are drawn by processes of their own, reaped by the system.
    signal(SIGCHLD, SIG_IGN);
    scenes.saved = [](const fs::path& file, const std::string& camera) { renderer::drawPictureAside(file, camera); };
    renderer::LinkServer server(scenes, log, options.limits);
    int first = options.port, last = options.port;
    if (first == 0 && !renderer::registeredPorts(first, last)) {
        first = DEFAULT_FIRST_PORT;
        last = DEFAULT_LAST_PORT;
    }
    const int port = server.listenOnFirstFree(first, last);
    if (port == 0) {
        log << "no free port from " << first << " to " << last << std::endl;
        std::cerr << "vantrel-app: no free port from " << first << " to " << last << "\n";
        return 1;
    }
    const fs::path announced = renderer::announce(renderer::MAJOR_VERSION, port);
    log << "listening on 127.0.0.1:" << port << ", announced as " << announced.string() << std::endl;

    struct sigaction action {};
    action.sa_handler = requestStop;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGHUP, &action, nullptr);
    server.serve([] { return stopRequested != 0; });

    fs::remove(announced, error);
    log << "vantrel-app " << getpid() << " stopped" << std::endl;
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!parseOptions(argc, argv, options) || (options.registering && options.unregistering)) {
        std::cerr << USAGE;
        return 2;
    }
    if (options.registering || options.unregistering) return runRegistration(options);
    return runApplication(options);
}
