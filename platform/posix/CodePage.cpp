// POSIX implementation: this file may contain only POSIX code.
// The system code page is the charset of the process locale, reached through
// ICU's default converter.
#include "platform/CodePage.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

#include <clocale>
#include <langinfo.h>
#include <memory>

namespace platform {
namespace {

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

// ICU's default converter is fixed at its first use; the process locale may
// change later, so the converter is opened by the locale's current charset.
Converter openSystemConverter() {
    UErrorCode status = U_ZERO_ERROR;
    const char* charset = std::setlocale(LC_CTYPE, nullptr) ? nl_langinfo(CODESET) : nullptr;
    UConverter* converter = ucnv_open(charset, &status);
    if (U_FAILURE(status)) {
        status = U_ZERO_ERROR;
        converter = ucnv_open(nullptr, &status);
    }
    if (U_FAILURE(status)) return nullptr;
    status = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_SKIP, nullptr, nullptr, nullptr, &status);
    ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_SKIP, nullptr, nullptr, nullptr, &status);
    // No best fit: an unmappable character is skipped, not guessed.
    ucnv_setFallback(converter, false);
    return Converter(converter);
}

}  // namespace

std::string wideToSystem(std::u16string_view text) {
    if (text.empty()) return {};
    Converter converter = openSystemConverter();
    if (!converter) return {};
    std::string out(text.size() * static_cast<size_t>(ucnv_getMaxCharSize(converter.get())) + 1, '\0');
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = ucnv_fromUChars(converter.get(), out.data(), static_cast<int32_t>(out.size()),
                                     text.data(), static_cast<int32_t>(text.size()), &status);
    if (U_FAILURE(status)) return {};
    out.resize(static_cast<size_t>(length));
    return out;
}

std::u16string systemToWide(std::string_view text) {
    if (text.empty()) return {};
    Converter converter = openSystemConverter();
    if (!converter) return {};
    std::u16string out(text.size() * 2 + 1, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = ucnv_toUChars(converter.get(), out.data(), static_cast<int32_t>(out.size()),
                                   text.data(), static_cast<int32_t>(text.size()), &status);
    if (U_FAILURE(status)) return {};
    out.resize(static_cast<size_t>(length));
    return out;
}

}  // namespace platform
