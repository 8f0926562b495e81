#pragma once
// The one error of the scene reader: malformed input, with where it was found
// and what was expected there.
#include <cstddef>
#include <stdexcept>
#include <string>

namespace scenereader {

class ParseError : public std::runtime_error {
public:
    // The message reads "FILE: line L, byte O: expected E, found F"; without a
    // file name the first part is left out. Lines count from 1, bytes from 0;
    // line feeds inside binary array blocks don't count as lines.
    ParseError(std::string expected, std::string found, size_t line, size_t offset, std::string file = {});

    const std::string& expected() const { return expected_; }
    const std::string& found() const { return found_; }
    size_t line() const { return line_; }
    size_t offset() const { return offset_; }
    const std::string& file() const { return file_; }

private:
    std::string expected_;
    std::string found_;
    size_t line_;
    size_t offset_;
    std::string file_;
};

}  // namespace scenereader
