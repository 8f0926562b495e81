#pragma once
// POSIX implementation: this file may contain only POSIX code.
// A hive of the registry kept as a text file in the registry-export format:
//
//   Windows Registry Editor Version 5.00
//
//   [HKEY_LOCAL_MACHINE\SOFTWARE\Norvex\Vantrel 6]
//   "BinName"="/opt/vantrel/bin/vantrel"
//   "LiveLinkPort"=dword:0000176f
//
// Text values take the escapes \\ and \". Key paths and value names compare
// without regard to ASCII case, as the registry does. Other value types,
// deletions and comments (";") are passed over.
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace platform::native {

struct RegistryValue {
    bool isNumber = false;
    std::u16string text;
    std::uint32_t number = 0;
};

// Values of one key by lower-cased name.
using RegistryValues = std::map<std::u16string, RegistryValue>;

// Keys by lower-cased full path, the hive's name first.
using RegistryKeys = std::map<std::u16string, RegistryValues>;

// The file's bytes as text: UTF-16 little-endian after its byte order mark,
// as the registry editor writes it, else UTF-8 (with or without a mark).
std::u16string decodeRegistryFile(const std::string& bytes);

RegistryKeys parseRegistryExport(std::u16string_view text);

std::u16string lowerAscii(std::u16string_view text);

}  // namespace platform::native
