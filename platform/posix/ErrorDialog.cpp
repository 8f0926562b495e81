// POSIX implementation: this file may contain only POSIX code.
// There is no message box: the text goes to the controlling terminal, so that
// it reaches the developer even when standard error is redirected.
#include "platform/ErrorDialog.h"

#include <cstdio>

namespace platform {

void showErrorDialog(const std::string& text) {
    if (FILE* terminal = std::fopen("/dev/tty", "w")) {
        std::fputs(text.c_str(), terminal);
        std::fclose(terminal);
        return;
    }
    std::fputs(text.c_str(), stderr);
}

}  // namespace platform
