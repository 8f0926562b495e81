// POSIX implementation: this file may contain only POSIX code.
#include "platform/Files.h"

#include <unistd.h>

#include "platform/CodePage.h"

namespace platform {

FILE* openFile(const std::u16string& path, const std::u16string& mode) {
    return std::fopen(wideToSystem(path).c_str(), wideToSystem(mode).c_str());
}

FILE* takeStandardOutput() {
    std::fflush(stdout);
    int duplicate = ::dup(STDOUT_FILENO);
    if (duplicate < 0) return nullptr;
    FILE* stream = ::fdopen(duplicate, "wb");
    if (!stream) {
        ::close(duplicate);
        return nullptr;
    }
    ::dup2(STDERR_FILENO, STDOUT_FILENO);
    // POSIX streams have no text mode: the duplicate is binary already.
    return stream;
}

}  // namespace platform
