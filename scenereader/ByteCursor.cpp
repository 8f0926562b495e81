#include "scenereader/ByteCursor.h"

#include <algorithm>

#include "scenereader/ParseError.h"

namespace scenereader {

namespace {

constexpr size_t excerptLength = 24;

bool isPrintable(char c) { return c >= 32 && c < 127; }

std::string hexByte(unsigned char byte) {
    const char* digits = "0123456789abcdef";
    return {'0', 'x', digits[byte >> 4], digits[byte & 15]};
}

}  // namespace

char ByteCursor::peek(size_t ahead) const {
    size_t at = offset_ + ahead;
    return at < bytes_.size() ? bytes_[at] : '\0';
}

bool ByteCursor::consume(std::string_view literal) {
    if (!startsWith(literal)) return false;
    takeText(literal.size());
    return true;
}

void ByteCursor::expect(std::string_view literal, const std::string& what) {
    if (!consume(literal)) fail(what);
}

void ByteCursor::skipBlanks() {
    while (peek() == ' ' || peek() == '\t') ++offset_;
}

void ByteCursor::skipWhitespace() {
    for (;;) {
        skipBlanks();
        if (!consume("\n")) return;
    }
}

std::string_view ByteCursor::restOfLine() const {
    std::string_view text = rest();
    return text.substr(0, text.find('\n'));
}

std::string_view ByteCursor::takeText(size_t n) {
    std::string_view taken = takeRaw(n);
    line_ += static_cast<size_t>(std::count(taken.begin(), taken.end(), '\n'));
    return taken;
}

std::string_view ByteCursor::takeRaw(size_t n) {
    if (n > remaining()) fail(std::to_string(n) + " more bytes");
    std::string_view taken = bytes_.substr(offset_, n);
    offset_ += n;
    return taken;
}

void ByteCursor::fail(const std::string& expected) const { failAt(mark(), expected); }

void ByteCursor::failAt(Mark where, const std::string& expected) const {
    failAt(where, expected, describe(where.offset));
}

void ByteCursor::failAt(Mark where, const std::string& expected, const std::string& found) const {
    throw ParseError(expected, found, where.line, where.offset);
}

std::string ByteCursor::describe(size_t offset) const {
    if (offset >= bytes_.size()) return "the end of the input";
    char first = bytes_[offset];
    if (first == '\n') return "the end of the line";
    if (!isPrintable(first)) return "the byte " + hexByte(static_cast<unsigned char>(first));
    size_t end = offset;
    while (end < bytes_.size() && end - offset < excerptLength && isPrintable(bytes_[end])) ++end;
    return "\"" + std::string(bytes_.substr(offset, end - offset)) + "\"";
}

}  // namespace scenereader
