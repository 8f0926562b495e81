// Windows implementation: this file may contain only Windows code.
#include "platform/Clock.h"

#include <windows.h>

namespace platform {

bool timeOfDay(std::string& text) {
    char buffer[200];
    if (GetTimeFormatA(LOCALE_USER_DEFAULT, 0, nullptr, "HH':'mm':'ss", buffer, sizeof buffer) == 0) return false;
    text = buffer;
    return true;
}

std::uint32_t tickMilliseconds() { return GetTickCount(); }

}  // namespace platform
