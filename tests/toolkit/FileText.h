#pragma once
// The whole content of a file as bytes; empty when it can't be read.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace testsupport {

inline std::string fileText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace testsupport
