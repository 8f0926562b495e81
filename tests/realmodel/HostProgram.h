#pragma once
// vantrel-host run as a user runs it, from the tests: its exit status and
// what it wrote, with a time limit so that a hanging run fails the test.
#include <filesystem>
#include <string>

#include "../hostcad/CadTestSupport.h"

namespace host::realmodel::testing {

struct ProgramRun {
    int exitCode = -1;  // 124: the time limit ended it
    std::string out;
    std::string err;
};

std::string contentsOf(const std::filesystem::path& path);

// Runs vantrel-host with `arguments` (shell words) and the test's plug-in,
// the per-user working directory in `folder`, for at most `seconds`.
ProgramRun runHost(const cad::testing::ScratchFolder& folder, const std::string& arguments, int seconds = 300);

}  // namespace host::realmodel::testing
