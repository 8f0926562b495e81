#include "platform/Utf8.h"

namespace platform {

namespace {

constexpr char16_t REPLACEMENT = 0xFFFD;

// The number of bytes that a lead byte announces, 0 for a byte that can't lead.
int sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

// The smallest code point that needs a sequence of each length: anything
// below is an overlong form.
constexpr char32_t SMALLEST[] = {0, 0, 0x80, 0x800, 0x10000};

}  // namespace

std::u16string utf8ToWide(std::string_view text) {
    std::u16string wide;
    wide.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const int length = sequenceLength(lead);
        if (length == 0) {
            wide.push_back(REPLACEMENT);
            ++i;
            continue;
        }
        char32_t code = length == 1 ? lead : lead & (0x7F >> length);
        int taken = 1;
        for (; taken < length && i + taken < text.size(); ++taken) {
            const auto next = static_cast<unsigned char>(text[i + taken]);
            if ((next & 0xC0) != 0x80) break;
            code = (code << 6) | (next & 0x3F);
        }
        i += static_cast<std::size_t>(taken);
        if (taken < length || code < SMALLEST[length] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
            wide.push_back(REPLACEMENT);
        } else if (code >= 0x10000) {
            code -= 0x10000;
            wide.push_back(static_cast<char16_t>(0xD800 + (code >> 10)));
            wide.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
        } else {
            wide.push_back(static_cast<char16_t>(code));
        }
    }
    return wide;
}

namespace {

void appendUtf8(std::string& out, char32_t code) {
    if (code < 0x80) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (code >> 6)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else if (code < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (code >> 12)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (code >> 18)));
        out.push_back(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    }
}

bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

std::string wideToUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            appendUtf8(out, 0x10000 + ((static_cast<char32_t>(unit) - 0xD800) << 10) + (text[i + 1] - 0xDC00));
            ++i;
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            appendUtf8(out, REPLACEMENT);
        } else {
            appendUtf8(out, unit);
        }
    }
    return out;
}

}  // namespace platform
