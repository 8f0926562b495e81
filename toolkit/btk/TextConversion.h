#pragma once
// The foundation's text conversion between 16-bit wide text and narrow text.
//
// Fixed buffers are filled the way the system's own conversion to and from
// its code page fills them: a character that the code page can't represent is
// lost, never guessed; a character is never split; and the result always ends
// with a zero inside the buffer.
#include <cstddef>
#include <string>
#include <string_view>

namespace btk {

// Narrows into the system code page, into `buffer` of `size` bytes. When the
// text doesn't fit, the characters that fit whole are kept and the rest is
// dropped. Answers the length written before the terminating zero. A buffer
// of no size is left untouched.
std::size_t narrowToBuffer(std::u16string_view text, char* buffer, std::size_t size);

// Widens text of the system code page into `buffer` of `capacity` 16-bit units,
// with the same rules: whole characters only, and a terminating zero.
std::size_t widenToBuffer(std::string_view text, char16_t* buffer, std::size_t capacity);

// The narrow text of the toolkit's own conversions is UTF-8 while the host
// runs with Unicode encoding, and the system code page after this one-time
// set-up, which the start-up runs when the host says that it doesn't.
void setUpLocaleCodedText();
bool localeCodedText();

// The toolkit's own conversions, following the set-up above.
std::string toolkitNarrow(std::u16string_view text);
std::u16string toolkitWiden(std::string_view text);

}  // namespace btk
