// Windows implementation: this file may contain only Windows code.
#include "platform/FileSystem.h"

#include <windows.h>

namespace platform {

bool directoryExists(const std::string& path) {
    DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

}  // namespace platform
