#pragma once
// The host's function table: one entry per host operation, named after it
// with "_v" behind, sorted in byte order of the names so that the plug-in can
// search it by halves.
#include <span>

#include "toolkit/ProToolkit.h"

namespace host {

std::span<const HostFunctionEntry> hostFunctionTable();

}  // namespace host
