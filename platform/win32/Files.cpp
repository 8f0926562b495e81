// Windows implementation: this file may contain only Windows code.
#include "platform/Files.h"

#include <fcntl.h>
#include <io.h>

namespace platform {

FILE* openFile(const std::u16string& path, const std::u16string& mode) {
    return _wfopen(reinterpret_cast<const wchar_t*>(path.c_str()),
                   reinterpret_cast<const wchar_t*>(mode.c_str()));
}

FILE* takeStandardOutput() {
    std::fflush(stdout);
    int duplicate = _dup(_fileno(stdout));
    if (duplicate < 0) return nullptr;
    FILE* stream = _fdopen(duplicate, "wb");
    if (!stream) {
        _close(duplicate);
        return nullptr;
    }
    _dup2(_fileno(stderr), _fileno(stdout));
    _setmode(duplicate, _O_BINARY);
    return stream;
}

}  // namespace platform
