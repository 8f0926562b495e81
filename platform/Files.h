#pragma once
// Files by wide path, and the standard streams.
#include <cstdio>
#include <string>

namespace platform {

// The separator of directories in paths that the system hands out.
#ifdef _WIN32
inline constexpr char16_t pathSeparator = u'\\';
#else
inline constexpr char16_t pathSeparator = u'/';
#endif

// Opens a file by its wide path; the mode is that of fopen ("wb+", "r").
// Answers null on failure, with errno set.
FILE* openFile(const std::u16string& path, const std::u16string& mode);

// Gives a binary stream on the process's original standard output and points
// the standard output descriptor at standard error, so that stray prints can't
// corrupt what is written to the stream. Null on failure.
FILE* takeStandardOutput();

}  // namespace platform
