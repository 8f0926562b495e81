#pragma once
// The plug-in's two exported entry points, through which the host starts and
// stops it, and the plug-in's own entries that they end in.
#include "platform/Compiler.h"
#include "toolkit/ProToolkit.h"

extern "C" {

// Called by the host once, after loading. Takes over the host's function table
// and context, sets up the foundation and ends in user_initialize. Answers the
// start-up status, 0 for success.
VANTREL_EXPORT int user_initialize_plus(int argc, char** argv, const char* version, const char* build,
                                        int unusedFlags, ProWchar* errorText, const char* textRoot,
                                        const char* unusedPath, const char* auxiliaryPath, int context,
                                        int unusedMode, const HostFunctionEntry* table, int count,
                                        int language);

// Called by the host at unload; ends in user_terminate. The table and the
// stubs' pointers stay as they are, so the plug-in's tear-down can still call
// the host.
VANTREL_EXPORT void user_terminate_plus();

// The plug-in's entries, defined by the plug-in itself.
int user_initialize(int argc, char** argv, const char* version, const char* build, ProWchar* errorText);
void user_terminate();

}  // extern "C"

using UserInitializePlus = decltype(&user_initialize_plus);
using UserTerminatePlus = decltype(&user_terminate_plus);
