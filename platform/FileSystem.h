#pragma once
// Questions about the file system, by narrow path in the system code page.
#include <string>

namespace platform {

bool directoryExists(const std::string& path);

}  // namespace platform
