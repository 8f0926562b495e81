#pragma once
// The one shape of every call stub. A stub has the toolkit function's own name
// and signature; on its first call it looks up "<name>_v" in the host's table
// and keeps the pointer. A miss is reported, answers the stub's miss value and
// is not kept, so the next call searches again. A hit is called with the
// application context in front of the stub's own arguments.
//
// Used with the list of host operations:
//   #define PRO_OPERATION VANTREL_CALL_STUB
//   #include "toolkit/ProOperations.def"
#include "toolkit/HostBinding.h"
#include "toolkit/HostErrorReport.h"
#include "toolkit/ProToolkit.h"

#define VANTREL_CALL_WITH_CONTEXT(...) (::toolkit::applicationContext __VA_OPT__(, ) __VA_ARGS__)

#define VANTREL_CALL_STUB(result, name, parameters, arguments, miss)                                   \
    extern "C" result name parameters {                                                                 \
        static HostSignature<decltype(&name)> hostFunction = nullptr;                                   \
        if (!hostFunction) {                                                                            \
            hostFunction =                                                                              \
                reinterpret_cast<HostSignature<decltype(&name)>>(::toolkit::findHostFunction(#name "_v")); \
        }                                                                                               \
        if (!hostFunction) {                                                                            \
            ::toolkit::reportHostError(#name "_v", "couldn't find pointer to ProE-side function");      \
            return miss;                                                                                \
        }                                                                                               \
        return hostFunction VANTREL_CALL_WITH_CONTEXT arguments;                                        \
    }
