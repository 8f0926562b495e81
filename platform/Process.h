#pragma once
// Starting programs and waiting.
#include <string>

namespace platform {

// Starts the executable at the path with no arguments and no inherited
// handles, and lets it run on its own. Answers whether it was started.
bool startProcess(const std::u16string& executable);

// Blocks the calling thread for the given milliseconds.
void sleepMilliseconds(int milliseconds);

}  // namespace platform
