#pragma once
// Texts written in tests in POSIX form, in the form the system writes them:
// "\" between folders and "\r\n" at line ends on Windows.
#include <algorithm>
#include <string>

#include "platform/Files.h"

namespace testsupport {

template <typename Char>
std::basic_string<Char> native(std::basic_string<Char> path) {
    std::replace(path.begin(), path.end(), Char('/'), static_cast<Char>(platform::pathSeparator));
    return path;
}

inline std::string native(const char* path) { return native(std::string(path)); }
inline std::u16string native(const char16_t* path) { return native(std::u16string(path)); }

// A text file's content as a file opened in text mode holds it.
inline std::string nativeLineEnds(const std::string& text) {
#ifdef _WIN32
    std::string lines;
    for (char c : text) {
        if (c == '\n') lines += '\r';
        lines += c;
    }
    return lines;
#else
    return text;
#endif
}

}  // namespace testsupport
