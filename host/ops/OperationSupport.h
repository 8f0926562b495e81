#pragma once
// What the host's operations share: the session a call acts on, and the
// host's fixed-size text lines.
#include <algorithm>
#include <string_view>

#include "host/ActiveSession.h"
#include "host/Session.h"
#include "toolkit/ProToolkit.h"

namespace host::ops {

// Units in a ProLine, the terminating zero included.
inline constexpr size_t lineCapacity = sizeof(ProLine) / sizeof(ProWchar);

// Writes `text` into a line: cut to fit, always zero-terminated.
inline void copyToLine(ProWchar* line, std::u16string_view text) {
    size_t length = std::min(text.size(), lineCapacity - 1);
    std::copy_n(text.begin(), length, line);
    line[length] = u'\0';
}

}  // namespace host::ops
