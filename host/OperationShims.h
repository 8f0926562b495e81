#pragma once
// The functions of the host's table: for each operation of the list,
// host::shims::<name> with the host signature (the application context in
// front of the toolkit's). Each one finds the active session (none: a
// failure), counts the call in the session's call record, answers the status
// of a matching fault of the session's fault plan if there is one, and only
// then calls the implementation host::ops::<name> with the session.
#include <type_traits>

#include "toolkit/ProToolkit.h"

namespace host::shims {

#define PRO_OPERATION(result, name, parameters, arguments, miss) \
    std::remove_pointer_t<HostSignature<decltype(&::name)>> name;
#include "toolkit/ProOperations.def"
#undef PRO_OPERATION

}  // namespace host::shims
