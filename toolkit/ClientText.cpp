#include "toolkit/ClientText.h"

#include <cstring>
#include <string>

#include "toolkit/btk/TextConversion.h"

char* ProWstringToString(char* narrow, const ProWchar* wide) {
    if (!narrow || !wide) return nullptr;
    std::string text = btk::toolkitNarrow(wide);
    std::memcpy(narrow, text.c_str(), text.size() + 1);
    return narrow;
}

ProWchar* ProStringToWstring(ProWchar* wide, const char* narrow) {
    if (!wide || !narrow) return nullptr;
    std::u16string text = btk::toolkitWiden(narrow);
    std::memcpy(wide, text.c_str(), (text.size() + 1) * sizeof(ProWchar));
    return wide;
}
