// Windows only: the terminal test of platform/Terminal.h.
#include "platform/Terminal.h"

#include <io.h>
#include <stdio.h>

namespace platform {

bool standardErrorIsTerminal() { return _isatty(_fileno(stderr)) != 0; }

}  // namespace platform
