#include "animation/FraScanner.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace fra {

namespace {

// Character classes by byte, looked up rather than compared: the reader
// tests every byte of the file.
enum : unsigned char { whiteSpace = 1, decimalDigit = 2, hexadecimalDigit = 4, nameCharacter = 8 };

constexpr std::array<unsigned char, 256> characterClasses = [] {
    std::array<unsigned char, 256> classes{};
    for (unsigned char c : {' ', '\t', '\n', '\v', '\f', '\r'}) classes[c] = whiteSpace;
    for (int c = '0'; c <= '9'; ++c) classes[static_cast<std::size_t>(c)] = decimalDigit | hexadecimalDigit | nameCharacter;
    for (int c = 'a'; c <= 'z'; ++c) {
        auto mark = static_cast<unsigned char>(nameCharacter | (c <= 'f' ? hexadecimalDigit : 0));
        classes[static_cast<std::size_t>(c)] = mark;
        classes[static_cast<std::size_t>(c - 'a' + 'A')] = mark;
    }
    classes['_'] = nameCharacter;
    return classes;
}();

bool isIn(char c, unsigned char characterClass) {
    return (characterClasses[static_cast<unsigned char>(c)] & characterClass) != 0;
}

bool isWhiteSpace(char c) { return isIn(c, whiteSpace); }

bool isDigit(char c, bool hexadecimal) { return isIn(c, hexadecimal ? hexadecimalDigit : decimalDigit); }

bool isNameCharacter(char c) { return isIn(c, nameCharacter); }

char lowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

void FraScanner::skipWhiteSpace() {
    while (!atEnd() && isWhiteSpace(peek())) ++position_;
}

bool FraScanner::take(char wanted) {
    if (atEnd() || peek() != wanted) return false;
    ++position_;
    return true;
}

// Consumes as much of the lower-case word as comes next, in any case, and
// answers whether all of it came.
bool FraScanner::takeNoCase(std::string_view word) {
    for (char letter : word) {
        if (atEnd() || lowerCase(peek()) != letter) return false;
        ++position_;
    }
    return true;
}

std::size_t FraScanner::takeDigits(bool hexadecimal) {
    std::size_t start = position_;
    while (!atEnd() && isDigit(peek(), hexadecimal)) ++position_;
    return position_ - start;
}

bool FraScanner::scanWord(char (&token)[tokenCapacity]) {
    skipWhiteSpace();
    if (atEnd()) return false;
    const std::size_t end = std::min(bytes_.size(), position_ + (tokenCapacity - 1));
    std::size_t length = 0;
    for (; position_ < end && !isWhiteSpace(bytes_[position_]); ++position_) token[length++] = bytes_[position_];
    token[length] = '\0';
    return true;
}

ScanResult FraScanner::scanInt(std::int32_t& value) {
    skipWhiteSpace();
    if (atEnd()) return ScanResult::End;
    bool negative = take('-');
    if (!negative) take('+');
    std::uint32_t magnitude = 0;
    std::size_t digits = 0;
    for (; !atEnd() && isDigit(peek(), false); ++digits) magnitude = magnitude * 10u + static_cast<std::uint32_t>(bytes_[position_++] - '0');
    if (digits == 0) return ScanResult::Mismatch;
    value = static_cast<std::int32_t>(negative ? 0u - magnitude : magnitude);
    return ScanResult::Converted;
}

ScanResult FraScanner::scanCharacter(char wanted) {
    if (atEnd()) return ScanResult::End;
    return take(wanted) ? ScanResult::Converted : ScanResult::Mismatch;
}

ScanResult FraScanner::scanFloat(float& value) {
    skipWhiteSpace();
    if (atEnd()) return ScanResult::End;
    std::size_t start = position_;
    if (!takeFloatItem()) return ScanResult::Mismatch;
    number_.assign(bytes_.substr(start, position_ - start));
    value = std::strtof(number_.c_str(), nullptr);
    return ScanResult::Converted;
}

bool FraScanner::takeFloatItem() {
    if (!take('-')) take('+');
    if (atEnd()) return false;
    char first = lowerCase(peek());
    if (first == 'i' || first == 'n') return takeNamedFloat();
    if (first == '0' && position_ + 1 < bytes_.size() && lowerCase(bytes_[position_ + 1]) == 'x') {
        position_ += 2;
        return takeHexadecimalFloat();
    }
    return takeDecimalFloat();
}

// "inf", "infinity", "nan", or "nan(" letters, digits and underscores ")".
bool FraScanner::takeNamedFloat() {
    if (lowerCase(peek()) == 'i') {
        if (!takeNoCase("inf")) return false;
        return atEnd() || lowerCase(peek()) != 'i' || takeNoCase("inity");
    }
    if (!takeNoCase("nan")) return false;
    if (!take('(')) return true;
    while (!atEnd() && isNameCharacter(peek())) ++position_;
    return take(')');
}

// After "0x": hexadecimal digits with an optional point, at least one digit,
// then an optional binary exponent "p" with a decimal power.
bool FraScanner::takeHexadecimalFloat() {
    std::size_t digits = takeDigits(true);
    if (take('.')) digits += takeDigits(true);
    if (digits == 0) return false;
    if (!take('p') && !take('P')) return true;
    if (!take('-')) take('+');
    return takeDigits(false) > 0;
}

bool FraScanner::takeDecimalFloat() {
    std::size_t digits = takeDigits(false);
    if (take('.')) digits += takeDigits(false);
    if (digits == 0) return false;
    if (!take('e') && !take('E')) return true;
    if (!take('-')) take('+');
    return takeDigits(false) > 0;
}

}  // namespace fra
