// Starting a program, the clock, and the temporary folder.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Process.h"
#include "tests/toolkit/FileText.h"

namespace {

namespace fs = std::filesystem;

TEST(Process, StartsAnExecutableWithoutArgumentsOrInheritedHandles) {
    fs::path folder = fs::temp_directory_path() / ("vantrel-process-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    fs::path script = folder / "child";
    fs::path report = folder / "report";
    int kept = ::dup(STDOUT_FILENO);  // a descriptor that must not pass over
    // The child reports where its standard streams and the kept descriptor
    // lead (a closed one prints nothing), then its argument count.
    std::string fd = "/proc/$$/fd/";
    std::ofstream(script) << "#!/bin/sh\nreadlink " << fd << "0 " << fd << "1 " << fd << "2 " << fd << kept
                          << " | cat > '" << report.string() << ".tmp'\necho \"$#\" >> '" << report.string()
                          << ".tmp'\nmv '" << report.string() << ".tmp' '" << report.string() << "'\n";
    fs::permissions(script, fs::perms::owner_all);

    ASSERT_TRUE(platform::startProcess(script.u16string()));
    for (int wait = 0; wait < 200 && !fs::exists(report); ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(25));
    ::close(kept);
    EXPECT_EQ(testsupport::fileText(report), "/dev/null\n/dev/null\n/dev/null\n0\n");
    fs::remove_all(folder);

    EXPECT_FALSE(platform::startProcess(u"/nonexistent/program"));
}

TEST(Clock, TimeOfDayAndTick) {
    std::string time;
    ASSERT_TRUE(platform::timeOfDay(time));
    int hours = -1, minutes = -1, seconds = -1;
    char rest = 0;
    ASSERT_EQ(time.size(), 8u) << time;
    EXPECT_EQ(std::sscanf(time.c_str(), "%2d:%2d:%2d%c", &hours, &minutes, &seconds, &rest), 3) << time;
    EXPECT_TRUE(hours >= 0 && hours < 24 && minutes >= 0 && minutes < 60 && seconds >= 0 && seconds < 61) << time;
    std::uint32_t before = platform::tickMilliseconds();
    platform::sleepMilliseconds(30);
    std::uint32_t elapsed = platform::tickMilliseconds() - before;
    EXPECT_GE(elapsed, 30u);
    EXPECT_LT(elapsed, 5000u);
}

TEST(FileSystem, TemporaryFolderFollowsTmpdir) {
    const char* old = std::getenv("TMPDIR");
    std::string saved = old ? old : "";
    ::setenv("TMPDIR", "/var/tmp/vantrel", 1);
    EXPECT_EQ(platform::temporaryFolder(), u"/var/tmp/vantrel");
    ::setenv("TMPDIR", "", 1);
    EXPECT_EQ(platform::temporaryFolder(), u"/tmp");
    ::unsetenv("TMPDIR");
    EXPECT_EQ(platform::temporaryFolder(), u"/tmp");
    if (old) ::setenv("TMPDIR", saved.c_str(), 1);
}

}  // namespace
