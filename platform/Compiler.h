#pragma once
// The compiler-specific attributes of the project, in one place.

// Marks a function that the plug-in library exports to its host. Everything
// else in the library is compiled with hidden visibility and stays inside.
// A Windows DLL exports exactly what its module-definition file lists, by the
// same names: marking a class there would export its private and inline
// members too.
#ifdef _WIN32
#define VANTREL_EXPORT
#else
#define VANTREL_EXPORT __attribute__((visibility("default")))
#endif

// Marks a member of an exported class that stays inside the library.
#ifdef _WIN32
#define VANTREL_HIDDEN
#else
#define VANTREL_HIDDEN __attribute__((visibility("hidden")))
#endif

// A function whose arguments from `formatIndex` on follow a printf format
// given at `formatIndex`; counted from 1, with `this` as 1 for members.
#if defined(__GNUC__) || defined(__clang__)
#define VANTREL_PRINTF_FORMAT(formatIndex, firstArgument) \
    __attribute__((format(printf, formatIndex, firstArgument)))
#else
#define VANTREL_PRINTF_FORMAT(formatIndex, firstArgument)
#endif
