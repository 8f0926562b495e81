#pragma once
// A read position in the bytes of a scene file, with the text line it stands
// on, and the one place where parse errors are raised.
#include <cstddef>
#include <string>
#include <string_view>

namespace scenereader {

class ByteCursor {
public:
    struct Mark {
        size_t offset;
        size_t line;
    };

    explicit ByteCursor(std::string_view bytes) : bytes_(bytes) {}

    bool atEnd() const { return offset_ >= bytes_.size(); }
    size_t offset() const { return offset_; }
    size_t line() const { return line_; }
    size_t remaining() const { return bytes_.size() - offset_; }
    std::string_view rest() const { return bytes_.substr(offset_); }
    Mark mark() const { return {offset_, line_}; }
    void reset(Mark where) {
        offset_ = where.offset;
        line_ = where.line;
    }

    // The byte `ahead` places on, or '\0' past the end.
    char peek(size_t ahead = 0) const;
    bool startsWith(std::string_view literal) const { return rest().starts_with(literal); }
    // Consumes the literal if it comes next, and answers whether it did.
    bool consume(std::string_view literal);
    // Consumes the literal, or fails saying that `what` was expected.
    void expect(std::string_view literal, const std::string& what);
    // Blanks and tabs.
    void skipBlanks();
    // Blanks, tabs and line feeds: indentation and empty lines.
    void skipWhitespace();
    // The bytes before the next line feed, not consumed.
    std::string_view restOfLine() const;
    // Consumes n bytes of text, counting the line feeds among them.
    std::string_view takeText(size_t n);
    // Consumes n bytes of binary data, whose line feeds are no lines.
    std::string_view takeRaw(size_t n);

    [[noreturn]] void fail(const std::string& expected) const;
    [[noreturn]] void failAt(Mark where, const std::string& expected) const;
    [[noreturn]] void failAt(Mark where, const std::string& expected, const std::string& found) const;

private:
    // What stands at an offset, for messages: a short quoted excerpt, a byte
    // in hex, the end of the line or the end of the input.
    std::string describe(size_t offset) const;

    std::string_view bytes_;
    size_t offset_ = 0;
    size_t line_ = 1;
};

}  // namespace scenereader
