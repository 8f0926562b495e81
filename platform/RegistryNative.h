#pragma once
// The system calls behind platform::RegistryKey, one set per system in posix/
// and win32/. Only platform/ includes this header.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/Registry.h"

namespace platform::native {

// An opaque handle of an open key; null if the key can't be opened.
void* openKey(Hive hive, const std::u16string& path);
void closeKey(void* key);
std::optional<std::u16string> readText(void* key, const std::u16string& name, std::size_t capacity);
std::optional<std::uint32_t> readNumber(void* key, const std::u16string& name);

}  // namespace platform::native
