#pragma once
// Marks a function that the plug-in library exports to its host. Everything
// else in the library is compiled with hidden visibility and stays inside.
#ifdef _WIN32
#define VANTREL_EXPORT __declspec(dllexport)
#else
#define VANTREL_EXPORT __attribute__((visibility("default")))
#endif
