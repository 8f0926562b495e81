// Feeds arbitrary bytes to the project's scene reader and, when they parse,
// to its checks and summary: a hostile scene file ends in an exception, never
// in a crash or a hang.
#include <cstddef>
#include <cstdint>
#include <exception>
#include <string_view>

#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const scenereader::Document scene = scenereader::parseScene(
            std::string_view(reinterpret_cast<const char*>(data), size));
        scenereader::checkScene(scene);
        scenereader::summarize(scene);
    } catch (const std::exception&) {
    }
    return 0;
}
