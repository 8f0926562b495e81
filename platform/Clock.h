#pragma once
// Time of day and a millisecond tick.
#include <cstdint>
#include <string>

namespace platform {

// The local time of day as "HH:mm:ss" with a 24-hour clock; false if the
// system can't tell.
bool timeOfDay(std::string& text);

// Milliseconds since some fixed moment, wrapping at 2^32.
std::uint32_t tickMilliseconds();

}  // namespace platform
