#pragma once
// The binding between the plug-in and the host's function toolkit: the values
// that the host hands over once at start-up, and the look-up of a host
// function by name in the host's table.
#include <cstddef>
#include <cstdint>

#include "toolkit/ProToolkit.h"

namespace toolkit {

inline constexpr std::size_t hostVersionSize = 80;

// Written once by user_initialize_plus; the table stays valid for the life of
// the process.
extern const HostFunctionEntry* hostFunctionTable;
extern std::int32_t hostFunctionCount;
// The host's token for this plug-in, the first argument of every host call.
extern std::int32_t applicationContext;
extern std::int32_t hostLanguage;
// The plug-in's directory that holds its "text" directory.
extern const char* hostTextRoot;
// The ninth start-up argument, kept for the toolkit's text path getters.
extern const char* hostAuxiliaryPath;
extern char hostVersion[hostVersionSize];
extern char hostBuild[hostVersionSize];

// The function of the table's entry named exactly `name`, or null. The table
// is sorted by name in byte order.
void* findHostFunction(const char* name);

}  // namespace toolkit
