// Windows implementation: this file may contain only Windows code.
#include <windows.h>

#include <vector>

#include "platform/RegistryNative.h"

namespace platform::native {

namespace {

// Read-only access, in the process's default view of the registry.
constexpr REGSAM READ_ACCESS = 0x20019;

const wchar_t* wide(const std::u16string& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }

}  // namespace

void* openKey(Hive hive, const std::u16string& path) {
    HKEY root = hive == Hive::CurrentUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, wide(path), 0, READ_ACCESS, &key) != ERROR_SUCCESS) return nullptr;
    return key;
}

void closeKey(void* key) { RegCloseKey(static_cast<HKEY>(key)); }

std::optional<std::u16string> readText(void* key, const std::u16string& name, std::size_t capacity) {
    std::vector<char16_t> buffer(capacity / sizeof(char16_t) + 1, u'\0');
    DWORD type = 0;
    DWORD size = static_cast<DWORD>(capacity);
    if (RegQueryValueExW(static_cast<HKEY>(key), wide(name), nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()),
                         &size) != ERROR_SUCCESS)
        return std::nullopt;
    if (type != REG_SZ && type != REG_EXPAND_SZ) return std::nullopt;
    // The stored text need not end in a zero; the buffer has one spare.
    return std::u16string(buffer.data());
}

std::optional<std::uint32_t> readNumber(void* key, const std::u16string& name) {
    DWORD value = 0;
    DWORD type = 0;
    DWORD size = sizeof value;
    if (RegQueryValueExW(static_cast<HKEY>(key), wide(name), nullptr, &type, reinterpret_cast<BYTE*>(&value),
                         &size) != ERROR_SUCCESS)
        return std::nullopt;
    if (type != REG_DWORD) return std::nullopt;
    return value;
}

}  // namespace platform::native
