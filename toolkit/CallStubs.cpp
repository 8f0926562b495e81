// The call stubs of every host operation that the plug-in calls.
#include "toolkit/CallStub.h"

#define PRO_OPERATION VANTREL_CALL_STUB
#include "toolkit/ProOperations.def"
#undef PRO_OPERATION
