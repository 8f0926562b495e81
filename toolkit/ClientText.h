#pragma once
// The toolkit's text conversions that run in the plug-in itself, without the
// host. The target must have room for the converted text and its zero.
#include "toolkit/ProToolkit.h"

extern "C" {

// Narrows `wide` into `narrow`. Null in either argument: answers null and
// converts nothing; otherwise answers `narrow`.
char* ProWstringToString(char* narrow, const ProWchar* wide);

// Widens `narrow` into `wide`, with the same rule for null.
ProWchar* ProStringToWstring(ProWchar* wide, const char* narrow);

}  // extern "C"
