#pragma once
// Conversion between 16-bit wide text and the system's narrow code page: the
// ANSI code page on Windows, the charset of the process locale elsewhere.
#include <string>
#include <string_view>

namespace platform {

// Narrows wide text. A character that the code page can't represent is left
// out, never replaced by a look-alike.
std::string wideToSystem(std::u16string_view text);

// Widens text of the system code page. Bytes that don't form a character are
// left out.
std::u16string systemToWide(std::string_view text);

// The name of the system code page as a converter knows it: the locale's
// charset elsewhere, "windows-" and the ANSI code page's number on Windows.
std::string systemCodePageName();

}  // namespace platform
