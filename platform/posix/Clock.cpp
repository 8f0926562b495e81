// POSIX implementation: this file may contain only POSIX code.
#include "platform/Clock.h"

#include <time.h>

namespace platform {

bool timeOfDay(std::string& text) {
    time_t now = ::time(nullptr);
    tm local{};
    if (now == static_cast<time_t>(-1) || !::localtime_r(&now, &local)) return false;
    char buffer[16];
    if (::strftime(buffer, sizeof buffer, "%H:%M:%S", &local) == 0) return false;
    text = buffer;
    return true;
}

std::uint32_t tickMilliseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(now.tv_sec) * 1000u +
                                      static_cast<std::uint64_t>(now.tv_nsec) / 1000000u);
}

}  // namespace platform
