// POSIX only: the terminal test of platform/Terminal.h.
#include "platform/Terminal.h"

#include <unistd.h>

namespace platform {

bool standardErrorIsTerminal() { return isatty(STDERR_FILENO) == 1; }

}  // namespace platform
