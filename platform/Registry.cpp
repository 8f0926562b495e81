// The portable part of a registry key: ownership of the handle. The system
// calls are in posix/ and win32/.
#include "platform/Registry.h"

#include <utility>

#include "platform/RegistryNative.h"

namespace platform {

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}

RegistryKey& RegistryKey::operator=(RegistryKey&& other) noexcept {
    if (this != &other) {
        close();
        handle_ = std::exchange(other.handle_, nullptr);
    }
    return *this;
}

RegistryKey::~RegistryKey() { close(); }

RegistryKey RegistryKey::open(Hive hive, const std::u16string& path) {
    return RegistryKey(native::openKey(hive, path));
}

std::optional<std::u16string> RegistryKey::readText(const std::u16string& name, std::size_t capacity) const {
    if (!handle_) return std::nullopt;
    return native::readText(handle_, name, capacity);
}

std::optional<std::uint32_t> RegistryKey::readNumber(const std::u16string& name) const {
    if (!handle_) return std::nullopt;
    return native::readNumber(handle_, name);
}

void RegistryKey::close() {
    if (handle_) native::closeKey(std::exchange(handle_, nullptr));
}

}  // namespace platform
