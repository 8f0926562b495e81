// Feeds arbitrary bytes to the motion file reader. Bytes that leave a table
// are read a second time into it, as an Export after an Export would, so that
// appending and the removal of still components run over a table that is not
// empty.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "animation/FraReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    AnimationFrameTable frames;
    std::int32_t frameCount = 0;
    readFraFile(bytes, frames, frameCount);
    if (!frames.empty()) readFraFile(bytes, frames, frameCount);
    for (const auto& [path, sequence] : frames) {
        if (path.componentIdCount < 1 || path.componentIdCount > PRO_MAX_ASSEM_LEVEL || sequence.empty()) __builtin_trap();
    }
    return 0;
}
