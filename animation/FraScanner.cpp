#include "animation/FraScanner.h"

#include <cstdlib>

namespace fra {

namespace {

bool isWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

bool isDigit(char c, bool hexadecimal) {
    if (c >= '0' && c <= '9') return true;
    return hexadecimal && ((c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'));
}

char lowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool isNameCharacter(char c) { return isDigit(c, false) || (lowerCase(c) >= 'a' && lowerCase(c) <= 'z') || c == '_'; }

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
    std::size_t length = 0;
    while (!atEnd() && !isWhiteSpace(peek()) && length < tokenCapacity - 1) token[length++] = bytes_[position_++];
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
