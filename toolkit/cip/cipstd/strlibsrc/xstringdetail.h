#pragma once
// Helpers shared by the files of xstring: markers, text lengths, and the
// conversion of an operand into the form that the target has.
#include <cstdint>
#include <string>
#include <string_view>

#include "toolkit/btk/Abort.h"
#include "toolkit/cip/cipstd/strlibsrc/xtext.h"

namespace xstringdetail {

// A text pointer of 0, 1 or 2 is a marker, not text.
inline bool isMarker(const void* text) { return reinterpret_cast<std::uintptr_t>(text) <= 2; }

// Pointers below 256 count as empty text when measured: that covers the markers.
inline bool isLowPointer(const void* text) { return reinterpret_cast<std::uintptr_t>(text) < 256; }

template <typename Char>
std::basic_string_view<Char> view(const Char* text) {
    return isMarker(text) ? std::basic_string_view<Char>() : std::basic_string_view<Char>(text);
}

// The text in the form `Target`, converted if it has the other one; a text
// that doesn't convert is a fatal error.
template <typename Target, typename Char>
std::basic_string<Target> inForm(std::basic_string_view<Char> text) {
    if constexpr (sizeof(Target) == sizeof(Char)) {
        return std::basic_string<Target>(text.begin(), text.end());
    } else if constexpr (sizeof(Target) == 1) {
        std::string narrow;
        if (!xtext::wideToNarrow(text, narrow)) btk::foundationAbort("Conversion from wide string to multibyte failed");
        return narrow;
    } else {
        std::u16string wide;
        if (!xtext::narrowToWide(text, wide)) btk::foundationAbort("Conversion from multibyte to wide string failed");
        return wide;
    }
}

// The number of characters of a text: 16-bit units for wide text, the units
// that a conversion to wide would give for narrow text.
template <typename Char>
int characterCount(std::basic_string_view<Char> text) {
    if constexpr (sizeof(Char) == 1) {
        std::u16string wide;
        if (!xtext::narrowToWide(text, wide)) btk::foundationAbort("Invalid multibyte string");
        return static_cast<int>(wide.size());
    } else {
        return static_cast<int>(text.size());
    }
}

// The byte (or unit) offset after skipping `count` characters, stopping at
// the end of the text: a character is never cut.
template <typename Char>
std::size_t skipCharacters(std::basic_string_view<Char> text, std::size_t count) {
    std::size_t offset = 0;
    for (std::size_t skipped = 0; skipped < count && offset < text.size(); ++skipped)
        offset += xtext::characterSize(text.substr(offset));
    return offset;
}

}  // namespace xstringdetail
