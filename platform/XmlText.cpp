#include "platform/XmlText.h"

#include <tinyxml.h>

#include <cstdio>
#include <string>

namespace platform {

namespace {

// More zero bytes than the longest step the library takes from a lead byte.
constexpr std::size_t zeroPadding = 8;

bool parsePadded(TiXmlDocument& document, std::string& text) {
    text.append(zeroPadding, '\0');
    document.Parse(text.c_str(), nullptr, TIXML_DEFAULT_ENCODING);
    return !document.Error();
}

}  // namespace

bool parseXmlText(TiXmlDocument& document, std::string_view text) {
    std::string copy(text);
    return parsePadded(document, copy);
}

bool loadXmlFile(TiXmlDocument& document, const char* path) {
    std::FILE* file = std::fopen(path, "rb");
    if (!file) return false;
    std::string text;
    char block[4096];
    std::size_t got = 0;
    bool previousWasCr = false;
    while ((got = std::fread(block, 1, sizeof block, file)) > 0) {
        for (std::size_t i = 0; i < got; ++i) {
            const char c = block[i];
            if (c == '\n' && previousWasCr) {
                previousWasCr = false;
                continue;
            }
            previousWasCr = c == '\r';
            text.push_back(previousWasCr ? '\n' : c);
        }
    }
    const bool readWhole = !std::ferror(file);
    std::fclose(file);
    return readWhole && parsePadded(document, text);
}

}  // namespace platform
