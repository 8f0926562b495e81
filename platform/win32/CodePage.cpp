// Windows implementation: this file may contain only Windows code.
#include "platform/CodePage.h"

#include <windows.h>

namespace platform {

std::string wideToSystem(std::u16string_view text) {
    // Character by character, so that one that can't be mapped is left out
    // instead of turning into the default character.
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        int units = (text[i] >= 0xD800 && text[i] < 0xDC00 && i + 1 < text.size()) ? 2 : 1;
        char bytes[8];
        BOOL defaulted = FALSE;
        int length = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS,
                                         reinterpret_cast<const wchar_t*>(text.data() + i), units,
                                         bytes, sizeof bytes, nullptr, &defaulted);
        if (length > 0 && !defaulted) out.append(bytes, static_cast<size_t>(length));
        i += static_cast<size_t>(units);
    }
    return out;
}

std::u16string systemToWide(std::string_view text) {
    if (text.empty()) return {};
    int length = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::u16string out(static_cast<size_t>(length), u'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                        reinterpret_cast<wchar_t*>(out.data()), length);
    return out;
}

std::string systemCodePageName() { return "windows-" + std::to_string(GetACP()); }

}  // namespace platform
