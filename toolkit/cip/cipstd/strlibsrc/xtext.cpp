#include "toolkit/cip/cipstd/strlibsrc/xtext.h"

#include "platform/TextCodec.h"
#include "toolkit/btk/TextConversion.h"

namespace xtext {
namespace {

// The narrow encoding in force.
platform::NarrowEncoding narrowEncoding() {
    return btk::localeCodedText() ? platform::NarrowEncoding::systemCodePage : platform::NarrowEncoding::utf8;
}

bool isLeadSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isTrailSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

bool narrowToWide(std::string_view text, std::u16string& out) {
    return platform::decodeNarrow(text, narrowEncoding(), out);
}

bool wideToNarrow(std::u16string_view text, std::string& out) {
    return platform::encodeNarrow(text, narrowEncoding(), out);
}

std::size_t narrowCharacterBytes(std::string_view text) {
    if (text.empty()) return 0;
    std::size_t used = platform::leadingCharacterBytes(text, narrowEncoding());
    return used == 0 ? 1 : used;
}

std::size_t wideCharacterUnits(std::u16string_view text) {
    if (text.empty()) return 0;
    bool pair = text.size() > 1 && isLeadSurrogate(text[0]) && isTrailSurrogate(text[1]);
    return pair ? 2 : 1;
}

std::u16string toLower(std::u16string_view text) { return platform::lowerCase(text); }
std::u16string toUpper(std::u16string_view text) { return platform::upperCase(text); }

}  // namespace xtext
