#include "toolkit/btk/TextConversion.h"

#include <cstring>

#include "platform/CodePage.h"
#include "platform/Utf8.h"

namespace btk {
namespace {

bool localeCoded = false;

bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

// The number of units of the character that starts at `index`.
std::size_t characterUnits(std::u16string_view text, std::size_t index) {
    bool pair = isHighSurrogate(text[index]) && index + 1 < text.size() && isLowSurrogate(text[index + 1]);
    return pair ? 2 : 1;
}

// Too long a text is narrowed again character by character, so that the cut
// falls between two whole characters of the code page.
std::size_t narrowWholeCharacters(std::u16string_view text, char* buffer, std::size_t size) {
    std::size_t used = 0;
    for (std::size_t index = 0; index < text.size();) {
        std::size_t units = characterUnits(text, index);
        std::string bytes = platform::wideToSystem(text.substr(index, units));
        if (used + bytes.size() >= size) break;
        std::memcpy(buffer + used, bytes.data(), bytes.size());
        used += bytes.size();
        index += units;
    }
    return used;
}

}  // namespace

std::size_t narrowToBuffer(std::u16string_view text, char* buffer, std::size_t size) {
    if (size == 0) return 0;
    std::string narrow = platform::wideToSystem(text);
    std::size_t length = narrow.size();
    if (length < size) {
        std::memcpy(buffer, narrow.data(), length);
    } else {
        length = narrowWholeCharacters(text, buffer, size);
    }
    buffer[length] = '\0';
    return length;
}

std::size_t widenToBuffer(std::string_view text, char16_t* buffer, std::size_t capacity) {
    if (capacity == 0) return 0;
    std::u16string wide = platform::systemToWide(text);
    std::size_t length = wide.size();
    if (length >= capacity) {
        length = capacity - 1;
        // The first half of a surrogate pair doesn't stay without its second.
        if (length > 0 && isHighSurrogate(wide[length - 1])) --length;
    }
    std::memcpy(buffer, wide.data(), length * sizeof(char16_t));
    buffer[length] = u'\0';
    return length;
}

void setUpLocaleCodedText() { localeCoded = true; }

bool localeCodedText() { return localeCoded; }

std::string toolkitNarrow(std::u16string_view text) {
    return localeCoded ? platform::wideToSystem(text) : platform::wideToUtf8(text);
}

std::u16string toolkitWiden(std::string_view text) {
    return localeCoded ? platform::systemToWide(text) : platform::utf8ToWide(text);
}

}  // namespace btk
