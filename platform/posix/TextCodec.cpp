// POSIX implementation: this file may contain only POSIX code.
// The conversions and case mappings are ICU's.
#include "platform/TextCodec.h"

#include <unicode/ucnv.h>
#include <unicode/ustring.h>

#include <memory>

#include "platform/CodePage.h"

namespace platform {
namespace {

struct ConverterClose {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterClose>;

// A converter that stops at the first character it can't convert instead of
// substituting one.
Converter openConverter(NarrowEncoding encoding) {
    std::string name = encoding == NarrowEncoding::systemCodePage ? systemCodePageName() : "UTF-8";
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(name.c_str(), &status));
    if (U_FAILURE(status)) return nullptr;
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    return U_SUCCESS(status) ? std::move(converter) : nullptr;
}

const UChar* asUChars(std::u16string_view text) { return reinterpret_cast<const UChar*>(text.data()); }

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

bool decodeNarrow(std::string_view text, NarrowEncoding encoding, std::u16string& out) {
    out.clear();
    if (text.empty()) return true;
    Converter converter = openConverter(encoding);
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

bool encodeNarrow(std::u16string_view text, NarrowEncoding encoding, std::string& out) {
    out.clear();
    if (text.empty()) return true;
    Converter converter = openConverter(encoding);
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

std::size_t leadingCharacterBytes(std::string_view text, NarrowEncoding encoding) {
    if (text.empty()) return 0;
    Converter converter = openConverter(encoding);
    if (!converter) return 0;
    const char* source = text.data();
    UErrorCode status = U_ZERO_ERROR;
    ucnv_getNextUChar(converter.get(), &source, text.data() + text.size(), &status);
    return U_FAILURE(status) ? 0 : static_cast<std::size_t>(source - text.data());
}

std::u16string lowerCase(std::u16string_view text) { return mapCase(text, u_strToLower); }
std::u16string upperCase(std::u16string_view text) { return mapCase(text, u_strToUpper); }

}  // namespace platform
