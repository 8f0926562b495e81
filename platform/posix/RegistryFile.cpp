// POSIX implementation: this file may contain only POSIX code.
#include "platform/posix/RegistryFile.h"

#include <filesystem>
#include <optional>

namespace platform::native {

namespace {

// A quoted text with its escapes, starting at `pos` on the opening quote;
// `pos` ends after the closing quote.
std::optional<std::u16string> quoted(std::u16string_view line, std::size_t& pos) {
    if (pos >= line.size() || line[pos] != u'"') return std::nullopt;
    std::u16string text;
    for (++pos; pos < line.size(); ++pos) {
        char16_t c = line[pos];
        if (c == u'"') {
            ++pos;
            return text;
        }
        if (c == u'\\' && pos + 1 < line.size()) c = line[++pos];
        text += c;
    }
    return std::nullopt;
}

std::optional<std::uint32_t> dword(std::u16string_view digits) {
    if (digits.empty() || digits.size() > 8) return std::nullopt;
    std::uint32_t value = 0;
    for (char16_t c : digits) {
        int digit = c >= u'0' && c <= u'9' ? c - u'0' : c >= u'a' && c <= u'f' ? c - u'a' + 10
                  : c >= u'A' && c <= u'F' ? c - u'A' + 10 : -1;
        if (digit < 0) return std::nullopt;
        value = value << 4 | static_cast<std::uint32_t>(digit);
    }
    return value;
}

// One line `"Name"=value` or `@=value`; false for anything else.
bool parseValue(std::u16string_view line, std::u16string& name, RegistryValue& value) {
    std::size_t pos = 0;
    if (line.starts_with(u"@")) {
        name.clear();
        pos = 1;
    } else if (auto text = quoted(line, pos)) {
        name = *text;
    } else {
        return false;
    }
    if (pos >= line.size() || line[pos] != u'=') return false;
    std::u16string_view data = line.substr(pos + 1);
    if (data.starts_with(u"\"")) {
        std::size_t start = 0;
        auto text = quoted(data, start);
        if (!text) return false;
        value = RegistryValue{false, *text, 0};
        return true;
    }
    constexpr std::u16string_view DWORD_PREFIX = u"dword:";
    if (!data.starts_with(DWORD_PREFIX)) return false;
    auto number = dword(data.substr(DWORD_PREFIX.size()));
    if (!number) return false;
    value = RegistryValue{true, {}, *number};
    return true;
}

std::u16string_view trimmed(std::u16string_view line) {
    constexpr std::u16string_view BLANKS = u" \t\r";
    std::size_t first = line.find_first_not_of(BLANKS);
    if (first == std::u16string_view::npos) return {};
    return line.substr(first, line.find_last_not_of(BLANKS) - first + 1);
}

}  // namespace

std::u16string lowerAscii(std::u16string_view text) {
    std::u16string lower(text);
    for (char16_t& c : lower)
        if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c - u'A' + u'a');
    return lower;
}

std::u16string decodeRegistryFile(const std::string& bytes) {
    if (bytes.size() >= 2 && static_cast<unsigned char>(bytes[0]) == 0xFF &&
        static_cast<unsigned char>(bytes[1]) == 0xFE) {
        std::u16string text;
        text.reserve(bytes.size() / 2);
        for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
            text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                          static_cast<unsigned char>(bytes[i + 1]) << 8);
        return text;
    }
    std::string_view utf8(bytes);
    if (utf8.starts_with("\xEF\xBB\xBF")) utf8.remove_prefix(3);
    std::u8string units(utf8.begin(), utf8.end());
    try {
        return std::filesystem::path(units).u16string();
    } catch (const std::exception&) {
        return {};  // Not UTF-8: the hive reads as empty.
    }
}

RegistryKeys parseRegistryExport(std::u16string_view text) {
    RegistryKeys keys;
    RegistryValues* current = nullptr;
    while (!text.empty()) {
        std::size_t end = text.find(u'\n');
        std::u16string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(end == std::u16string_view::npos ? text.size() : end + 1);
        if (line.starts_with(u"[")) {
            current = nullptr;
            if (line.size() > 2 && line.back() == u']' && line[1] != u'-')
                current = &keys[lowerAscii(line.substr(1, line.size() - 2))];
            continue;
        }
        std::u16string name;
        RegistryValue value;
        if (current && parseValue(line, name, value)) (*current)[lowerAscii(name)] = value;
    }
    return keys;
}

}  // namespace platform::native
