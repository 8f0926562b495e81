#pragma once
// The time that the live road waits and logs by: the system's clock unless a
// test puts one of its own in place.
#include <cstdint>
#include <string>

namespace nvx {

class LiveClock {
public:
    virtual ~LiveClock() = default;
    virtual void sleep(int milliseconds) = 0;
    // Milliseconds since some fixed moment, wrapping at 2^32.
    virtual std::uint32_t tick() = 0;
    // "HH:mm:ss"; false if the time can't be told.
    virtual bool time_of_day(std::string& text) = 0;
};

// The clock in use.
LiveClock& live_clock();
// Puts a clock in place; null puts the system's back. The caller keeps
// ownership and must restore the system's clock before its own goes.
void set_live_clock(LiveClock* clock);

}  // namespace nvx
