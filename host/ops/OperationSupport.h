#pragma once
// What the host's operations share: the session a call acts on, the host's
// fixed-size text buffers, and the handles of the host's objects.
#include <algorithm>
#include <string>
#include <string_view>

#include "host/ActiveSession.h"
#include "host/Session.h"
#include "toolkit/ProToolkit.h"

namespace host::ops {

// Units in a ProLine, the terminating zero included.
inline constexpr size_t lineCapacity = sizeof(ProLine) / sizeof(ProWchar);

// Writes `text` into a buffer of `capacity` units: cut to fit, always
// zero-terminated.
inline void copyToBuffer(ProWchar* buffer, size_t capacity, std::u16string_view text) {
    size_t length = std::min(text.size(), capacity - 1);
    std::copy_n(text.begin(), length, buffer);
    buffer[length] = u'\0';
}

inline void copyToLine(ProWchar* line, std::u16string_view text) { copyToBuffer(line, lineCapacity, text); }

// The text of a wide argument; empty for null.
inline std::u16string_view textOf(const ProWchar* text) { return text ? std::u16string_view(text) : std::u16string_view(); }
inline std::string_view textOf(const char* text) { return text ? std::string_view(text) : std::string_view(); }

// Wide text in the error log's narrow form.
std::string narrowed(std::u16string_view text);

// The handle that the plug-in holds for a host object is its address.
template <typename Handle, typename Object>
Handle handleOf(const Object& object) {
    return reinterpret_cast<Handle>(const_cast<Object*>(&object));
}
template <typename Object, typename Handle>
const Object* objectOf(Handle handle) {
    return reinterpret_cast<const Object*>(handle);
}

// The model that a model handle stands for, or null.
inline const Model* modelOf(const Session& session, ProMdl model) { return session.findModel(model); }

}  // namespace host::ops
