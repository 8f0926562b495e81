#pragma once
// A whole file's bytes, as they lie on disk.
#include <filesystem>
#include <optional>
#include <string>

namespace platform {

// Nothing when the file can't be opened.
std::optional<std::string> readWholeFile(const std::filesystem::path& path);

}  // namespace platform
