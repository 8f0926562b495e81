#pragma once
// Windows implementation: the upper-case mappings that the system lacks.

namespace platform::win32 {

// The upper case of a character that turns into several characters; null for
// one that maps one to one.
const char16_t* upperExpansion(char16_t character);

}  // namespace platform::win32
