// A test plug-in that lacks user_terminate_plus: the host must refuse it
// before starting it.
#include "toolkit/ProToolkit.h"

extern "C" int user_initialize_plus(int, char**, const char*, const char*, int, ProWchar*, const char*,
                                    const char*, const char*, int, int, const HostFunctionEntry*, int, int) {
    return 0;
}
