#pragma once
// The one way out for a fatal internal error of the foundation.

namespace btk {

// Prints the message to standard error and ends the process with status 1.
[[noreturn]] void foundationAbort(const char* message);

}  // namespace btk
