#pragma once
// The host's implementations of the toolkit operations: for each operation
// of the list, host::ops::<name> with the toolkit signature and the
// application context in front. They are defined by area in the files beside
// this one, each with its qualified name, so a definition whose shape differs
// from the list doesn't compile.
#include <type_traits>

#include "toolkit/ProToolkit.h"

namespace host::ops {

#define PRO_OPERATION(result, name, parameters, arguments, miss) \
    std::remove_pointer_t<HostSignature<decltype(&::name)>> name;
#include "toolkit/ProOperations.def"
#undef PRO_OPERATION

}  // namespace host::ops
