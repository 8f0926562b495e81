// POSIX implementation: this file may contain only POSIX code.
#include <dlfcn.h>

#include "platform/CodePage.h"
#include "platform/DynamicLibraryNative.h"

namespace platform::native {

void* loadLibrary(const std::u16string& path, std::string& error) {
    // RTLD_LOCAL keeps the library's symbols to itself, as on Windows.
    void* handle = ::dlopen(wideToSystem(path).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        const char* reason = ::dlerror();
        error = reason ? reason : "unknown error";
    }
    return handle;
}

void* findSymbol(void* handle, const char* name) { return ::dlsym(handle, name); }

void freeLibrary(void* handle) { ::dlclose(handle); }

}  // namespace platform::native
