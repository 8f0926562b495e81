#pragma once
// std::strstream for xstring's stream members. Its header is a deprecated one
// of the standard library, which warns when included; the members that take
// a stream are part of xstring's interface, so it is included here once with
// the library's deprecation switch turned off around it.
#ifdef __DEPRECATED
#define XSTRSTREAM_DEPRECATED_WAS_ON
#undef __DEPRECATED
#endif
#include <strstream>
#ifdef XSTRSTREAM_DEPRECATED_WAS_ON
#define __DEPRECATED 1
#undef XSTRSTREAM_DEPRECATED_WAS_ON
#endif
