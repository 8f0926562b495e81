#pragma once
// The one converter between UTF-8 and 16-bit wide text.
#include <string>
#include <string_view>

namespace platform {

// Characters beyond the basic plane become surrogate pairs. A byte sequence
// that is not UTF-8 (a stray continuation byte, a truncated, overlong or
// surrogate form, a value above U+10FFFF) becomes U+FFFD.
std::u16string utf8ToWide(std::string_view text);

// Surrogate pairs become one character; a lone surrogate becomes U+FFFD.
std::string wideToUtf8(std::u16string_view text);

}  // namespace platform
