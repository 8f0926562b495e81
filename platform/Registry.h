#pragma once
// Read-only look-ups of named values in the two hives of the system registry.
// On Windows this is the registry itself; elsewhere each hive is a text file
// in the registry-export format (see posix/RegistryFile.h). A key or value
// that can't be read counts as missing.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace platform {

enum class Hive { CurrentUser, LocalMachine };

// An open key, closed when the object goes.
class RegistryKey {
public:
    RegistryKey() = default;
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&& other) noexcept;
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey();

    // Opens a key below the hive for reading, e.g. u"SOFTWARE\\Norvex"; the
    // result is not open if the key doesn't exist.
    static RegistryKey open(Hive hive, const std::u16string& path);

    bool isOpen() const { return handle_ != nullptr; }
    // A text value read into a buffer of `capacity` bytes: missing if it is
    // not text, or if it doesn't fit with its terminating zero.
    std::optional<std::u16string> readText(const std::u16string& name, std::size_t capacity) const;
    // A 32-bit number value; missing if the value is not a number.
    std::optional<std::uint32_t> readNumber(const std::u16string& name) const;
    void close();

private:
    explicit RegistryKey(void* handle) : handle_(handle) {}
    void* handle_ = nullptr;
};

}  // namespace platform
