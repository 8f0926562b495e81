#include "scenereader/SceneReader.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "scenereader/SceneParser.h"

namespace scenereader {

Document parseScene(std::string_view bytes) { return SceneParser(bytes).parse(); }

Document readSceneFile(const std::string& path) {
    std::filesystem::path file(std::u8string(path.begin(), path.end()));
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        bool exists = std::filesystem::exists(file, error);
        throw std::runtime_error("could not open the scene file \"" + path + "\": " +
                                 (exists ? "it is not a regular file" : "there is no such file"));
    }
    uintmax_t size = std::filesystem::file_size(file, error);
    std::ifstream stream(file, std::ios::binary);
    std::string bytes(error ? 0 : static_cast<size_t>(size), '\0');
    if (error || !stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        throw std::runtime_error("could not read the scene file \"" + path + "\"");
    }
    try {
        return parseScene(bytes);
    } catch (const ParseError& error) {
        throw ParseError(error.expected(), error.found(), error.line(), error.offset(), path);
    }
}

}  // namespace scenereader
