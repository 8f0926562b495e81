// The members of xstring that read or make text by rule: numbers, case and
// formatted text.
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "toolkit/cip/cipstd/strlibsrc/xstring.h"
#include "toolkit/cip/cipstd/strlibsrc/xstringdetail.h"

namespace {

// Converts the whole text with `parse`; the C library's error state is the
// same after the call as before it.
template <typename Value, typename Parse>
bool parseWhole(const xstring& text, Value* value, Parse parse) {
    if (text.IsNull()) return false;
    const char* narrow = text;
    int savedErrno = errno;
    errno = 0;
    char* end = nullptr;
    Value parsed = parse(narrow, &end);
    bool ok = errno == 0 && end != narrow && *end == '\0';
    errno = savedErrno;
    if (ok && value) *value = parsed;
    return ok;
}

xstring mapCase(const xstring& text, std::u16string (*mapping)(std::u16string_view)) {
    if (text.IsEmpty()) return text;
    bool wideForm = !xstringdetail::isMarker(text.getxstring_c_unattached().wide);
    std::u16string mapped = mapping(static_cast<const xwchar*>(text));
    if (wideForm) return xstring(mapped.c_str());
    std::string narrow = xstringdetail::inForm<char>(std::u16string_view(mapped));
    return xstring(narrow.c_str());
}

// The formatter's count is checked against this after the fact.
constexpr int printfLimit = 2056;

}  // namespace

bool xstring::ToInt(int* value) const {
    return parseWhole(*this, value, [](const char* text, char** end) {
        long parsed = std::strtol(text, end, 10);
        if (parsed < INT32_MIN || parsed > INT32_MAX) errno = ERANGE;
        return static_cast<int>(parsed);
    });
}

bool xstring::ToDouble(double* value) const {
    return parseWhole(*this, value, [](const char* text, char** end) { return std::strtod(text, end); });
}

xstring xstring::ToLower() const { return mapCase(*this, xtext::toLower); }
xstring xstring::ToUpper() const { return mapCase(*this, xtext::toUpper); }

// Always narrow and at most 2055 characters. The buffer is bounded here,
// where the count alone decides the outcome: a text of the limit or longer is
// a fatal error.
xstring xstring::Printf(const char* format, ...) {
    xstring result;
    char text[printfLimit + 8];
    va_list arguments;
    va_start(arguments, format);
    int count = std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    if (count < 0) return result;
    if (count >= printfLimit) btk::foundationAbort("String too long");
    result = static_cast<const char*>(text);
    return result;
}
