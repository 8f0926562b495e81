#pragma once
// The text layer under xstring: conversion between the toolkit's narrow text
// and 16-bit wide text, the boundaries of narrow characters, and case mapping.
// The narrow text is UTF-8 while the host runs with Unicode encoding, and the
// system code page once the toolkit's start-up has said otherwise.
#include <cstddef>
#include <string>
#include <string_view>

namespace xtext {

// Whole conversions; false when the input holds something that is no
// character of its encoding, or a character the target can't hold.
bool narrowToWide(std::string_view text, std::u16string& out);
bool wideToNarrow(std::u16string_view text, std::string& out);

// The bytes of the narrow character that starts the text (at least 1 for a
// text that isn't empty, so that a walk always moves on).
std::size_t narrowCharacterBytes(std::string_view text);

// The units of the wide character that starts the text: 2 for a surrogate pair.
std::size_t wideCharacterUnits(std::u16string_view text);

// The text split into its characters, in either form.
template <typename Char>
std::size_t characterSize(std::basic_string_view<Char> text) {
    if constexpr (sizeof(Char) == 1)
        return narrowCharacterBytes(text);
    else
        return wideCharacterUnits(text);
}

std::u16string toLower(std::u16string_view text);
std::u16string toUpper(std::u16string_view text);

}  // namespace xtext
