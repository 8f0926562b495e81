#pragma once
// The host operations by number, in the order of the list, with their names.
#include <optional>
#include <string_view>

namespace host {

enum class HostOperation : int {
#define PRO_OPERATION(result, name, parameters, arguments, miss) name,
#include "toolkit/ProOperations.def"
#undef PRO_OPERATION
};

inline constexpr int hostOperationCount = 0
#define PRO_OPERATION(result, name, parameters, arguments, miss) +1
#include "toolkit/ProOperations.def"
#undef PRO_OPERATION
    ;

// The operation's name in the list, e.g. "ProMdlNameGet".
std::string_view operationName(HostOperation operation);
// The operation of that name, or none.
std::optional<HostOperation> operationNamed(std::string_view name);

}  // namespace host
