#include "platform/WholeFile.h"

#include <fstream>
#include <sstream>

namespace platform {

std::optional<std::string> readWholeFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return std::move(bytes).str();
}

}  // namespace platform
