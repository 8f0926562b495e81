// Feeds arbitrary bytes to the parser of the registry files that stand in
// for the system registry on POSIX systems, as they are read from disk.
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/posix/RegistryFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text =
        platform::native::decodeRegistryFile(std::string(reinterpret_cast<const char*>(data), size));
    const platform::native::RegistryKeys keys = platform::native::parseRegistryExport(text);
    for (const auto& [path, values] : keys) {
        if (path != platform::native::lowerAscii(path)) __builtin_trap();
        for (const auto& [name, value] : values) {
            if (name != platform::native::lowerAscii(name)) __builtin_trap();
        }
    }
    return 0;
}
