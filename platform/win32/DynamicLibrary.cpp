// Windows implementation: this file may contain only Windows code.
#include "platform/DynamicLibrary.h"

#include <windows.h>

#include <utility>

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
    HMODULE module = LoadLibraryW(reinterpret_cast<const wchar_t*>(path.c_str()));
    if (!module) error = "LoadLibraryW failed with error " + std::to_string(GetLastError());
    return DynamicLibrary(module);
}

void* DynamicLibrary::symbol(const char* name) const {
    return handle_ ? reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name)) : nullptr;
}

void DynamicLibrary::close() {
    if (handle_) FreeLibrary(static_cast<HMODULE>(std::exchange(handle_, nullptr)));
}

}  // namespace platform
