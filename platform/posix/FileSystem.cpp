// POSIX implementation: this file may contain only POSIX code.
#include "platform/FileSystem.h"

#include <sys/stat.h>

namespace platform {

bool directoryExists(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace platform
