// Windows implementation: this file may contain only Windows code.
#include "platform/ErrorDialog.h"

#include <windows.h>

namespace platform {

void showErrorDialog(const std::string& text) {
    MessageBoxA(nullptr, text.c_str(), "Toolkit error", MB_OK | MB_ICONERROR);
}

}  // namespace platform
