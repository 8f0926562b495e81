#pragma once
// The system calls behind platform::DynamicLibrary, one set per system in
// posix/ and win32/. Only platform/ includes this header.
#include <string>

namespace platform::native {

// Loads a library by wide path; null on failure, with the system's reason in
// `error`.
void* loadLibrary(const std::u16string& path, std::string& error);
void* findSymbol(void* handle, const char* name);
void freeLibrary(void* handle);

}  // namespace platform::native
