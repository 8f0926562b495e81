#pragma once
// Strict conversion between 16-bit wide text and a narrow encoding (UTF-8 or
// the system code page), and case mapping of wide text by Unicode's full
// mappings without a language's own rules: the text services under the
// object toolkit's text class.
#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

enum class NarrowEncoding { utf8, systemCodePage };

// Whole conversions; false when the input holds something that is no
// character of its encoding, or a character the target can't hold.
bool decodeNarrow(std::string_view text, NarrowEncoding encoding, std::u16string& out);
bool encodeNarrow(std::u16string_view text, NarrowEncoding encoding, std::string& out);

// The bytes of the character that starts the text; 0 when the text is empty
// or starts with bytes that form no character.
std::size_t leadingCharacterBytes(std::string_view text, NarrowEncoding encoding);

std::u16string lowerCase(std::u16string_view text);
std::u16string upperCase(std::u16string_view text);

}  // namespace platform
