#pragma once
// XML text read through TinyXML without letting it read past the text.
//
// The library, as the system ships it, steps over a multi-byte sequence by
// the length its lead byte announces; when the text ends inside such a
// sequence it reads a few bytes beyond the terminating zero. The text is
// therefore parsed from a copy followed by zero bytes, wider than any
// sequence, so that every such step stays inside the copy.
#include <string_view>

class TiXmlDocument;

namespace platform {

// Parses `text` into `document`; answers false when the library reports an
// error.
bool parseXmlText(TiXmlDocument& document, std::string_view text);

// Reads the file's bytes and parses them the way the library's own loading
// does (line ends CR LF and CR become LF); answers false when the file can't
// be read or the library reports an error.
bool loadXmlFile(TiXmlDocument& document, const char* path);

}  // namespace platform
