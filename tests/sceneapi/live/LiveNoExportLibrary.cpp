// A stand-in library that loads but lacks the initialisation export.
#include "platform/Compiler.h"

extern "C" VANTREL_EXPORT int vantrel_live_version() { return 6; }
