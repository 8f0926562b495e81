// Windows implementation: this file may contain only Windows code.
#include "platform/FileSystem.h"

#include <windows.h>

namespace platform {

bool directoryExists(const std::string& path) {
    DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::u16string executableDirectory() {
    wchar_t buffer[MAX_PATH];
    DWORD length = GetModuleFileNameW(nullptr, buffer, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return {};
    std::u16string path(reinterpret_cast<const char16_t*>(buffer), length);
    size_t separator = path.find_last_of(u"\\/");
    if (separator == std::u16string::npos) return {};
    return path.substr(0, separator);
}

std::u16string temporaryFolder() {
    wchar_t buffer[MAX_PATH];
    DWORD length = GetTempPathW(MAX_PATH, buffer);
    if (length == 0 || length > MAX_PATH) return {};
    return std::u16string(reinterpret_cast<const char16_t*>(buffer), length);
}

}  // namespace platform
