#include "scenereader/ParseError.h"

namespace scenereader {

namespace {

std::string composeMessage(const std::string& expected, const std::string& found, size_t line, size_t offset,
                           const std::string& file) {
    std::string message = file.empty() ? std::string() : file + ": ";
    message += "line " + std::to_string(line) + ", byte " + std::to_string(offset);
    message += ": expected " + expected + ", found " + found;
    return message;
}

}  // namespace

ParseError::ParseError(std::string expected, std::string found, size_t line, size_t offset, std::string file)
    : std::runtime_error(composeMessage(expected, found, line, offset, file)),
      expected_(std::move(expected)),
      found_(std::move(found)),
      line_(line),
      offset_(offset),
      file_(std::move(file)) {}

}  // namespace scenereader
