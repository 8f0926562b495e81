#include "RendererProcesses.h"

#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <sstream>
#include <thread>

#include "renderer/InstanceDirectory.h"
#include "renderer/LinkProtocol.h"
#include "renderer/LinkSocket.h"

extern char** environ;

namespace renderer::testing {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

const char* const VARIABLES[] = {"HOME", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_RUNTIME_DIR", "XDG_DATA_HOME"};
const char* const FOLDERS[] = {"home", "config", "machine", "run", "data"};

bool stillRunning(pid_t process) { return kill(process, 0) == 0; }

void stop(pid_t process) {
    kill(process, SIGTERM);
    for (int wait = 0; wait < 50 && stillRunning(process); ++wait) {
        waitpid(process, nullptr, WNOHANG);
        std::this_thread::sleep_for(20ms);
    }
    if (stillRunning(process)) kill(process, SIGKILL);
    waitpid(process, nullptr, WNOHANG);
}

}  // namespace

PrivateHome::PrivateHome() {
    char pattern[] = "/tmp/vantrel-renderer-test-XXXXXX";
    root_ = mkdtemp(pattern);
    for (std::size_t i = 0; i < std::size(VARIABLES); ++i) {
        const char* value = std::getenv(VARIABLES[i]);
        savedEnvironment_.emplace_back(VARIABLES[i], value ? value : "\x01");
        fs::create_directories(root_ / FOLDERS[i]);
        setenv(VARIABLES[i], (root_ / FOLDERS[i]).c_str(), 1);
    }
}

PrivateHome::~PrivateHome() {
    // The renderers launched by the plug-in are children of no one here:
    // they are found by their announcements.
    for (const Instance& instance : runningInstances()) stop(instance.processId);
    for (pid_t process : started_) stop(process);
    for (const auto& [name, value] : savedEnvironment_) {
        if (value == "\x01") {
            unsetenv(name.c_str());
        } else {
            setenv(name.c_str(), value.c_str(), 1);
        }
    }
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

pid_t PrivateHome::startApp(const std::vector<std::string>& arguments) {
    const std::size_t before = runningInstances().size();
    std::vector<std::string> words{VANTREL_BIN_DIR "/vantrel-app"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawn(&process, argv.front(), nullptr, nullptr, argv.data(), environ) != 0) return 0;
    started_.push_back(process);
    waitForInstances(before + 1);
    return process;
}

bool PrivateHome::waitForInstances(std::size_t count) const {
    for (auto waited = 0ms; waited < 10s; waited += 20ms) {
        if (runningInstances().size() >= count) return true;
        std::this_thread::sleep_for(20ms);
    }
    return false;
}

int PrivateHome::portOf(pid_t process) const {
    for (const Instance& instance : runningInstances())
        if (instance.processId == process) return instance.port;
    return 0;
}

int runProgram(const std::string& program, const std::string& arguments, int seconds) {
    const std::string command = "timeout " + std::to_string(seconds) + " " VANTREL_BIN_DIR "/" + program + " " +
                                arguments + " >/dev/null 2>&1";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string sendStream(int port, const std::string& bytes, bool finish) {
    const int socket = connectTo("127.0.0.1", port);
    if (socket < 0) return "no connection";
    sendAll(socket, bytes);
    if (finish) sendAll(socket, END_OF_STREAM);
    shutdown(socket, SHUT_WR);
    std::string answer = receiveAll(socket, 20s);
    close(socket);
    return answer;
}

std::size_t logLinesStartingWith(const fs::path& log, const std::string& start) {
    std::istringstream lines(fileText(log));
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line);) count += line.rfind(start, 0) == 0;
    return count;
}

}  // namespace renderer::testing
