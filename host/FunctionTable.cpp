#include "host/FunctionTable.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "host/OperationShims.h"

namespace host {
namespace {

bool nameBefore(const HostFunctionEntry& first, const HostFunctionEntry& second) {
    return std::strcmp(first.name, second.name) < 0;
}

std::vector<HostFunctionEntry> buildTable() {
    // The cast names the toolkit signature with the context in front, so a
    // shim of another shape doesn't compile.
    std::vector<HostFunctionEntry> table = {
#define PRO_OPERATION(result, name, parameters, arguments, miss) \
    {reinterpret_cast<void*>(static_cast<HostSignature<decltype(&::name)>>(&shims::name)), #name "_v"},
#include "toolkit/ProOperations.def"
#undef PRO_OPERATION
    };
    std::sort(table.begin(), table.end(), nameBefore);
    // Strictly ascending: a name listed twice would make look-ups ambiguous.
    auto adjacent = std::adjacent_find(table.begin(), table.end(),
                                       [](const auto& first, const auto& second) { return !nameBefore(first, second); });
    if (adjacent != table.end()) {
        std::fprintf(stderr, "host function table: \"%s\" is listed twice\n", adjacent->name);
        std::abort();
    }
    return table;
}

}  // namespace

std::span<const HostFunctionEntry> hostFunctionTable() {
    static const std::vector<HostFunctionEntry> table = buildTable();
    return table;
}

}  // namespace host
