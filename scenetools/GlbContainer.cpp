#include "scenetools/GlbContainer.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace scenetools {

namespace {

constexpr uint32_t magic = 0x46546C67;  // "glTF"
constexpr uint32_t jsonChunk = 0x4E4F534A;
constexpr uint32_t binChunk = 0x004E4942;

uint32_t readWord(const std::string& bytes, size_t offset) {
    if (offset + 4 > bytes.size()) throw std::runtime_error("binary glTF ends inside a header");
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data() + offset);
    return data[0] | data[1] << 8 | data[2] << 16 | static_cast<uint32_t>(data[3]) << 24;
}

void appendWord(std::string& bytes, uint32_t word) {
    for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<char>(word >> shift & 0xFF));
}

void appendChunk(std::string& bytes, uint32_t type, const std::string& data, char padding) {
    const size_t padded = (data.size() + 3) / 4 * 4;
    appendWord(bytes, static_cast<uint32_t>(padded));
    appendWord(bytes, type);
    bytes += data;
    bytes.append(padded - data.size(), padding);
}

}  // namespace

GlbChunks splitGlb(const std::string& bytes) {
    if (readWord(bytes, 0) != magic || readWord(bytes, 4) != 2) throw std::runtime_error("not a binary glTF 2 file");
    GlbChunks chunks;
    for (size_t offset = 12; offset < bytes.size();) {
        const uint32_t length = readWord(bytes, offset);
        const uint32_t type = readWord(bytes, offset + 4);
        if (offset + 8 + length > bytes.size()) throw std::runtime_error("binary glTF chunk runs past the end");
        std::string data = bytes.substr(offset + 8, length);
        if (type == jsonChunk) chunks.json = std::move(data);
        if (type == binChunk) chunks.bin = std::move(data);
        offset += 8 + length;
    }
    if (chunks.json.empty()) throw std::runtime_error("binary glTF without a JSON chunk");
    return chunks;
}

std::string joinGlb(const GlbChunks& chunks) {
    std::string body;
    appendChunk(body, jsonChunk, chunks.json, ' ');
    if (!chunks.bin.empty()) appendChunk(body, binChunk, chunks.bin, '\0');
    std::string bytes;
    appendWord(bytes, magic);
    appendWord(bytes, 2);
    appendWord(bytes, static_cast<uint32_t>(12 + body.size()));
    return bytes + body;
}

}  // namespace scenetools
