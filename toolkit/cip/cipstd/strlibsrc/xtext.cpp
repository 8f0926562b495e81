#include "toolkit/cip/cipstd/strlibsrc/xtext.h"

#include <unicode/ucnv.h>
#include <unicode/ustring.h>

#include <memory>

#include "platform/CodePage.h"
#include "toolkit/btk/TextConversion.h"

namespace xtext {
namespace {

struct ConverterClose {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterClose>;

// A converter of the narrow encoding in force, which stops at the first
// character it can't convert instead of substituting one.
Converter openNarrowConverter() {
    std::string name = btk::localeCodedText() ? platform::systemCodePageName() : "UTF-8";
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(name.c_str(), &status));
    if (U_FAILURE(status)) return nullptr;
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    return U_SUCCESS(status) ? std::move(converter) : nullptr;
}

const UChar* asUChars(std::u16string_view text) { return reinterpret_cast<const UChar*>(text.data()); }

}  // namespace

bool narrowToWide(std::string_view text, std::u16string& out) {
    out.clear();
    if (text.empty()) return true;
    Converter converter = openNarrowConverter();
    if (!converter) return false;
    out.resize(text.size() + 1);
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = ucnv_toUChars(converter.get(), reinterpret_cast<UChar*>(out.data()),
                                   static_cast<int32_t>(out.size()), text.data(), static_cast<int32_t>(text.size()),
                                   &status);
    if (U_FAILURE(status)) return false;
    out.resize(static_cast<std::size_t>(length));
    return true;
}

bool wideToNarrow(std::u16string_view text, std::string& out) {
    out.clear();
    if (text.empty()) return true;
    Converter converter = openNarrowConverter();
    if (!converter) return false;
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = ucnv_fromUChars(converter.get(), nullptr, 0, asUChars(text), static_cast<int32_t>(text.size()),
                                     &status);
    if (status != U_BUFFER_OVERFLOW_ERROR && U_FAILURE(status)) return false;
    out.resize(static_cast<std::size_t>(length) + 1);
    status = U_ZERO_ERROR;
    ucnv_fromUChars(converter.get(), out.data(), static_cast<int32_t>(out.size()), asUChars(text),
                    static_cast<int32_t>(text.size()), &status);
    if (U_FAILURE(status)) return false;
    out.resize(static_cast<std::size_t>(length));
    return true;
}

std::size_t narrowCharacterBytes(std::string_view text) {
    if (text.empty()) return 0;
    Converter converter = openNarrowConverter();
    if (!converter) return 1;
    const char* source = text.data();
    UErrorCode status = U_ZERO_ERROR;
    ucnv_getNextUChar(converter.get(), &source, text.data() + text.size(), &status);
    std::size_t used = static_cast<std::size_t>(source - text.data());
    return U_FAILURE(status) || used == 0 ? 1 : used;
}

std::size_t wideCharacterUnits(std::u16string_view text) {
    if (text.empty()) return 0;
    bool pair = text.size() > 1 && U16_IS_LEAD(text[0]) && U16_IS_TRAIL(text[1]);
    return pair ? 2 : 1;
}

namespace {

template <typename Mapping>
std::u16string mapCase(std::u16string_view text, Mapping mapping) {
    std::u16string out(text.size() + 8, u'\0');
    for (int attempt = 0; attempt < 2; ++attempt) {
        UErrorCode status = U_ZERO_ERROR;
        int32_t length = mapping(reinterpret_cast<UChar*>(out.data()), static_cast<int32_t>(out.size()),
                                 asUChars(text), static_cast<int32_t>(text.size()), "", &status);
        if (status == U_BUFFER_OVERFLOW_ERROR) {
            out.resize(static_cast<std::size_t>(length));
            continue;
        }
        if (U_FAILURE(status)) return std::u16string(text);
        out.resize(static_cast<std::size_t>(length));
        return out;
    }
    return std::u16string(text);
}

}  // namespace

std::u16string toLower(std::u16string_view text) { return mapCase(text, u_strToLower); }
std::u16string toUpper(std::u16string_view text) { return mapCase(text, u_strToUpper); }

}  // namespace xtext
