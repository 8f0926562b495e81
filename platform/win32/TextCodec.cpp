// Windows implementation: this file may contain only Windows code.
// The conversions are the system's, strict: invalid input and characters
// without a mapping fail instead of turning into a default character. Case
// mapping is the invariant locale's, with Unicode's one-to-many mappings
// added, as ICU's root locale maps.
#include "platform/TextCodec.h"

#include <windows.h>

#include "platform/win32/SpecialCasing.h"

namespace platform {
namespace {

UINT codePageOf(NarrowEncoding encoding) { return encoding == NarrowEncoding::utf8 ? CP_UTF8 : CP_ACP; }

const wchar_t* wide(const char16_t* text) { return reinterpret_cast<const wchar_t*>(text); }
wchar_t* wide(char16_t* text) { return reinterpret_cast<wchar_t*>(text); }

int decodedLength(std::string_view text, UINT codePage) {
    return MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, text.data(), static_cast<int>(text.size()), nullptr, 0);
}

std::u16string mapSimple(std::u16string_view text, DWORD flags) {
    if (text.empty()) return {};
    int length = LCMapStringEx(LOCALE_NAME_INVARIANT, flags, wide(text.data()), static_cast<int>(text.size()),
                               nullptr, 0, nullptr, nullptr, 0);
    if (length <= 0) return std::u16string(text);
    std::u16string out(static_cast<std::size_t>(length), u'\0');
    LCMapStringEx(LOCALE_NAME_INVARIANT, flags, wide(text.data()), static_cast<int>(text.size()), wide(out.data()),
                  length, nullptr, nullptr, 0);
    return out;
}

}  // namespace

bool decodeNarrow(std::string_view text, NarrowEncoding encoding, std::u16string& out) {
    out.clear();
    if (text.empty()) return true;
    UINT codePage = codePageOf(encoding);
    int length = decodedLength(text, codePage);
    if (length <= 0) return false;
    out.resize(static_cast<std::size_t>(length));
    MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, text.data(), static_cast<int>(text.size()), wide(out.data()),
                        length);
    return true;
}

bool encodeNarrow(std::u16string_view text, NarrowEncoding encoding, std::string& out) {
    out.clear();
    if (text.empty()) return true;
    UINT codePage = codePageOf(encoding);
    // UTF-8 fails on lone surrogates; a code page reports a character it can
    // only give as its default character.
    DWORD flags = codePage == CP_UTF8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
    BOOL defaulted = FALSE;
    BOOL* usedDefault = codePage == CP_UTF8 ? nullptr : &defaulted;
    int length = WideCharToMultiByte(codePage, flags, wide(text.data()), static_cast<int>(text.size()), nullptr, 0,
                                     nullptr, usedDefault);
    if (length <= 0 || defaulted) return false;
    out.resize(static_cast<std::size_t>(length));
    WideCharToMultiByte(codePage, flags, wide(text.data()), static_cast<int>(text.size()), out.data(), length,
                        nullptr, nullptr);
    return true;
}

std::size_t leadingCharacterBytes(std::string_view text, NarrowEncoding encoding) {
    // The shortest start of the text that decodes whole is its first character.
    UINT codePage = codePageOf(encoding);
    for (std::size_t bytes = 1; bytes <= 4 && bytes <= text.size(); ++bytes)
        if (decodedLength(text.substr(0, bytes), codePage) > 0) return bytes;
    return 0;
}

std::u16string lowerCase(std::u16string_view text) {
    // The one lower-case mapping of Unicode to more than one character.
    std::u16string out;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (i < text.size() && text[i] != u'\u0130') continue;
        out += mapSimple(text.substr(start, i - start), LCMAP_LOWERCASE);
        if (i < text.size()) out += u"i\u0307";
        start = i + 1;
    }
    return out;
}

std::u16string upperCase(std::u16string_view text) {
    std::u16string out;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        const char16_t* expansion = i < text.size() ? win32::upperExpansion(text[i]) : nullptr;
        if (i < text.size() && !expansion) continue;
        out += mapSimple(text.substr(start, i - start), LCMAP_UPPERCASE);
        if (expansion) out += expansion;
        start = i + 1;
    }
    return out;
}

}  // namespace platform
