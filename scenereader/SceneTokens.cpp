#include "scenereader/SceneTokens.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdint>

namespace scenereader {

namespace {

bool isSeparator(char c) {
    switch (c) {
        case ' ': case '\t': case '\n': case '\r': case ',':
        case '[': case ']': case '{': case '}': case '"':
            return true;
        default:
            return false;
    }
}

bool isLowerHex(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); }

bool isWordStart(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }

// The bytes up to the next separator.
std::string_view tokenAt(const ByteCursor& cursor) {
    std::string_view rest = cursor.rest();
    return rest.substr(0, static_cast<size_t>(std::find_if(rest.begin(), rest.end(), isSeparator) - rest.begin()));
}

bool isHexForm(std::string_view token, std::string_view prefix) {
    return token.starts_with(prefix) && std::all_of(token.begin() + 2, token.end(), isLowerHex);
}

bool readsAsNumber(std::string_view token, double& value) {
    const char* end = token.data() + token.size();
    auto [stop, error] = std::from_chars(token.data(), end, value);
    return error == std::errc() && stop == end;
}

int hexDigitValue(char c) { return c <= '9' ? c - '0' : c - 'a' + 10; }

// The hex digits after the two-letter prefix, as bytes.
std::string readHexForm(ByteCursor& cursor) {
    std::string_view digits = tokenAt(cursor).substr(2);
    if (digits.size() % 2 != 0) cursor.fail("an even number of hex digits after \"" + std::string(cursor.rest().substr(0, 2)) + "\"");
    cursor.takeText(2 + digits.size());
    std::string bytes(digits.size() / 2, '\0');
    for (size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(hexDigitValue(digits[2 * i]) * 16 + hexDigitValue(digits[2 * i + 1]));
    }
    return bytes;
}

std::string readQuoted(ByteCursor& cursor) {
    ByteCursor::Mark start = cursor.mark();
    std::string_view rest = cursor.rest();
    for (size_t i = 1; i < rest.size(); ++i) {
        auto byte = static_cast<unsigned char>(rest[i]);
        ByteCursor::Mark here{start.offset + i, start.line};
        if (byte == '"') {
            std::string text(rest.substr(1, i - 1));
            cursor.takeText(i + 1);
            return text;
        }
        if (byte == '\n' || byte == '\r') cursor.failAt(here, "a closing double quote before the end of the line");
        if (byte >= 128) cursor.failAt(here, "a closing double quote (bytes of 128 and above are written in the xX form)");
    }
    cursor.failAt({start.offset + rest.size(), start.line}, "a closing double quote");
}

uint32_t littleEndian32(const char* bytes) {
    uint32_t value = 0;
    for (int i = 3; i >= 0; --i) value = (value << 8) | static_cast<unsigned char>(bytes[i]);
    return value;
}

uint64_t littleEndian64(const char* bytes) {
    return littleEndian32(bytes) | (uint64_t{littleEndian32(bytes + 4)} << 32);
}

size_t scalarSize(char kind) { return kind == 'r' ? 8 : 4; }

void decodeScalars(BinaryArray& array, const char* data) {
    switch (array.kind) {
        case 'c': case 'f':
            array.floats.resize(array.count);
            for (uint32_t i = 0; i < array.count; ++i) array.floats[i] = std::bit_cast<float>(littleEndian32(data + 4 * i));
            break;
        case 'i':
            array.ints.resize(array.count);
            for (uint32_t i = 0; i < array.count; ++i) array.ints[i] = std::bit_cast<int32_t>(littleEndian32(data + 4 * i));
            break;
        default:
            array.doubles.resize(array.count);
            for (uint32_t i = 0; i < array.count; ++i) array.doubles[i] = std::bit_cast<double>(littleEndian64(data + 8 * i));
            break;
    }
}

}  // namespace

TokenKind nextToken(const ByteCursor& cursor) {
    if (cursor.atEnd()) return TokenKind::End;
    if (cursor.peek() == '"') return TokenKind::Quoted;
    std::string_view token = tokenAt(cursor);
    double number = 0;
    if (token.empty()) return TokenKind::Other;
    if (isHexForm(token, "xX")) return TokenKind::Hex;
    if (isHexForm(token, "bX")) return TokenKind::Bytes;
    if (readsAsNumber(token, number)) return TokenKind::Number;
    if (isWordStart(token.front())) return TokenKind::Word;
    return TokenKind::Other;
}

bool isStringToken(TokenKind kind) { return kind == TokenKind::Quoted || kind == TokenKind::Hex; }

std::string readString(ByteCursor& cursor) {
    switch (nextToken(cursor)) {
        case TokenKind::Quoted: return readQuoted(cursor);
        case TokenKind::Hex: return readHexForm(cursor);
        default: cursor.fail("a quoted string");
    }
}

std::string readWord(ByteCursor& cursor) {
    if (nextToken(cursor) != TokenKind::Word) cursor.fail("a word");
    return std::string(cursor.takeText(tokenAt(cursor).size()));
}

Value readScalar(ByteCursor& cursor) {
    Value value;
    TokenKind kind = nextToken(cursor);
    switch (kind) {
        case TokenKind::Quoted:
        case TokenKind::Hex:
        case TokenKind::Bytes:
            value.kind = ValueKind::String;
            value.form = kind == TokenKind::Quoted ? StringForm::Quoted
                         : kind == TokenKind::Hex  ? StringForm::Hex
                                                   : StringForm::Bytes;
            value.text = kind == TokenKind::Quoted ? readQuoted(cursor) : readHexForm(cursor);
            return value;
        case TokenKind::Number:
            value.kind = ValueKind::Number;
            value.text = cursor.takeText(tokenAt(cursor).size());
            readsAsNumber(value.text, value.number);
            return value;
        case TokenKind::Word:
            value.kind = ValueKind::Word;
            value.text = readWord(cursor);
            return value;
        default:
            cursor.fail("a value (a number, a string or a word)");
    }
}

BinaryArray readBinaryArray(ByteCursor& cursor) {
    ByteCursor::Mark start = cursor.mark();
    if (!cursor.startsWith("\x01\x02\x03")) cursor.fail("the binary array marker 01 02 03");
    BinaryArray array;
    array.kind = cursor.peek(3);
    if (std::string_view("cfir").find(array.kind) == std::string_view::npos) {
        cursor.failAt({start.offset + 3, start.line}, "a binary array kind 'c', 'f', 'i' or 'r' after the marker");
    }
    if (cursor.remaining() < 8) cursor.failAt(start, "a binary array marker and its count (8 bytes)");
    array.count = littleEndian32(cursor.takeRaw(8).data() + 4);
    uint64_t size = uint64_t{array.count} * scalarSize(array.kind);
    if (size > cursor.remaining()) {
        cursor.failAt(cursor.mark(), std::to_string(size) + " bytes of data for a binary array of " + std::to_string(array.count) +
                          " values of kind '" + array.kind + "'",
                      "only " + std::to_string(cursor.remaining()) + " bytes before the end of the input");
    }
    decodeScalars(array, cursor.takeRaw(static_cast<size_t>(size)).data());
    return array;
}

}  // namespace scenereader
