#pragma once
// Real renderer processes for the tests, in a private home: the test's
// process points HOME and the XDG folders into a fresh temporary folder, so
// that the registry, the announced instances and the renderer's output are
// the test's own, and the programs it runs inherit them. At the end every
// renderer announced there, and every one the test started, is killed.
#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/toolkit/FileText.h"

namespace renderer::testing {

class PrivateHome {
public:
    PrivateHome();
    PrivateHome(const PrivateHome&) = delete;
    PrivateHome& operator=(const PrivateHome&) = delete;
    ~PrivateHome();

    const std::filesystem::path& root() const { return root_; }
    // The default output folder of a renderer started without --out.
    std::filesystem::path defaultOutput() const { return root_ / "data" / "vantrel-app"; }

    // Starts vantrel-app with the arguments and waits until it is announced;
    // answers its process id.
    pid_t startApp(const std::vector<std::string>& arguments);
    // Waits until `count` renderers are announced; false after ten seconds.
    bool waitForInstances(std::size_t count) const;
    // The port that the renderer of that process announced, or 0.
    int portOf(pid_t process) const;

private:
    std::filesystem::path root_;
    std::vector<std::pair<std::string, std::string>> savedEnvironment_;
    std::vector<pid_t> started_;
};

// Runs a program of the build's bin folder with shell words as arguments,
// for at most `seconds`; answers its exit status (124 when it timed out).
int runProgram(const std::string& program, const std::string& arguments, int seconds = 120);

// Sends bytes over a new connection to the renderer's port, and, with
// `finish`, the end-of-stream line; answers what the renderer answered.
std::string sendStream(int port, const std::string& bytes, bool finish);

using testsupport::fileText;
// Lines of the renderer's log that start with the text.
std::size_t logLinesStartingWith(const std::filesystem::path& log, const std::string& start);

}  // namespace renderer::testing
