// Windows implementation: this file may contain only Windows code.
#include "platform/Process.h"

#include <windows.h>

namespace platform {

bool startProcess(const std::u16string& executable) {
    STARTUPINFOW startup;
    ZeroMemory(&startup, sizeof startup);
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process;
    ZeroMemory(&process, sizeof process);
    BOOL created = CreateProcessW(reinterpret_cast<const wchar_t*>(executable.c_str()), nullptr, nullptr, nullptr,
                                  FALSE, 0, nullptr, nullptr, &startup, &process);
    // The process runs on its own: neither handle is kept.
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    return created == 1;
}

void sleepMilliseconds(int milliseconds) { Sleep(static_cast<DWORD>(milliseconds)); }

}  // namespace platform
