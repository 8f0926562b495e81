// A stand-in library whose initialisation answers no root object.
#include "platform/Compiler.h"

class nvxLiveRoot;

extern "C" VANTREL_EXPORT nvxLiveRoot* vantrel_live_initialize() { return nullptr; }
