#pragma once
// Whether a person watches the program's output.
namespace platform {

// True when the standard error stream is a terminal, so that a tool may show
// its progress there.
bool standardErrorIsTerminal();

}  // namespace platform
