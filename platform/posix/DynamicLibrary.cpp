// POSIX implementation: this file may contain only POSIX code.
#include "platform/DynamicLibrary.h"

#include <dlfcn.h>

#include <utility>

#include "platform/CodePage.h"

namespace platform {

DynamicLibrary::DynamicLibrary(DynamicLibrary&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)) {}

DynamicLibrary& DynamicLibrary::operator=(DynamicLibrary&& other) noexcept {
    if (this != &other) {
        close();
        handle_ = std::exchange(other.handle_, nullptr);
    }
    return *this;
}

DynamicLibrary::~DynamicLibrary() { close(); }

DynamicLibrary DynamicLibrary::open(const std::u16string& path, std::string& error) {
    // RTLD_LOCAL keeps the library's symbols to itself, as on Windows.
    void* handle = ::dlopen(wideToSystem(path).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        const char* reason = ::dlerror();
        error = reason ? reason : "unknown error";
    }
    return DynamicLibrary(handle);
}

void* DynamicLibrary::symbol(const char* name) const {
    return handle_ ? ::dlsym(handle_, name) : nullptr;
}

void DynamicLibrary::close() {
    if (handle_) ::dlclose(std::exchange(handle_, nullptr));
}

}  // namespace platform
