#pragma once
// UTF-8 to 16-bit wide text, for paths handed to the platform's file calls.
#include <string>
#include <string_view>

namespace nvx {

// Characters beyond the basic plane become surrogate pairs. A byte sequence
// that is not UTF-8 (a stray continuation byte, a truncated, overlong or
// surrogate form, a value above U+10FFFF) becomes U+FFFD.
std::u16string utf8ToWide(std::string_view text);

}  // namespace nvx
