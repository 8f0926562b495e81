// POSIX implementation: this file may contain only POSIX code.
#include "platform/FileSystem.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>

#include "platform/CodePage.h"

namespace platform {

bool directoryExists(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::u16string executableDirectory() {
    char buffer[PATH_MAX];
    ssize_t length = ::readlink("/proc/self/exe", buffer, sizeof buffer);
    if (length <= 0 || static_cast<size_t>(length) >= sizeof buffer) return {};
    std::string path(buffer, static_cast<size_t>(length));
    size_t slash = path.rfind('/');
    if (slash == std::string::npos) return {};
    return systemToWide(path.substr(0, slash == 0 ? 1 : slash));
}

std::u16string temporaryFolder() {
    const char* folder = std::getenv("TMPDIR");
    return systemToWide(folder && *folder ? folder : "/tmp");
}

}  // namespace platform
