#include "importers/sceneapi/LiveClock.h"

#include "platform/Clock.h"
#include "platform/Process.h"

namespace nvx {

namespace {

class SystemClock : public LiveClock {
public:
    void sleep(int milliseconds) override { platform::sleepMilliseconds(milliseconds); }
    std::uint32_t tick() override { return platform::tickMilliseconds(); }
    bool time_of_day(std::string& text) override { return platform::timeOfDay(text); }
};

SystemClock system_clock;
LiveClock* current_clock = &system_clock;

}  // namespace

LiveClock& live_clock() { return *current_clock; }

void set_live_clock(LiveClock* clock) { current_clock = clock ? clock : &system_clock; }

}  // namespace nvx
