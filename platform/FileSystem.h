#pragma once
// Questions about the file system, by narrow path in the system code page.
#include <string>

namespace platform {

bool directoryExists(const std::string& path);

// The directory that holds the running program, as a wide path without a
// trailing separator; empty if the system can't tell.
std::u16string executableDirectory();

// The folder for temporary files, as a wide path: $TMPDIR, else /tmp; on
// Windows what GetTempPathW gives, with its trailing separator.
std::u16string temporaryFolder();

}  // namespace platform
