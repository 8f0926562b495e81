// Windows implementation: this file may contain only Windows code.
#include <windows.h>

#include "platform/DynamicLibraryNative.h"

namespace platform::native {

void* loadLibrary(const std::u16string& path, std::string& error) {
    HMODULE module = LoadLibraryW(reinterpret_cast<const wchar_t*>(path.c_str()));
    if (!module) error = "LoadLibraryW failed with error " + std::to_string(GetLastError());
    return module;
}

void* findSymbol(void* handle, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle), name));
}

void freeLibrary(void* handle) { FreeLibrary(static_cast<HMODULE>(handle)); }

}  // namespace platform::native
