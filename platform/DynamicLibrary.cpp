// The portable part of a loaded library: ownership of the handle. The system
// calls are in posix/ and win32/.
#include "platform/DynamicLibrary.h"

#include <utility>

#include "platform/DynamicLibraryNative.h"

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
    return DynamicLibrary(native::loadLibrary(path, error));
}

void* DynamicLibrary::symbol(const char* name) const {
    return handle_ ? native::findSymbol(handle_, name) : nullptr;
}

void DynamicLibrary::close() {
    if (handle_) native::freeLibrary(std::exchange(handle_, nullptr));
}

}  // namespace platform
