#pragma once
// The binary glTF container: a 12-byte header and the JSON and BIN chunks.
// The kernel's writer makes it; this splits it again so that a JSON edit
// can be put back, with each chunk padded to four bytes as the format asks.
#include <string>

namespace scenetools {

struct GlbChunks {
    std::string json;
    std::string bin;  // empty when the file has no BIN chunk
};

// Throws std::runtime_error naming what is wrong.
GlbChunks splitGlb(const std::string& bytes);
std::string joinGlb(const GlbChunks& chunks);

}  // namespace scenetools
