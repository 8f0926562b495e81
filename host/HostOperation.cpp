#include "host/HostOperation.h"

#include <array>

namespace host {
namespace {

constexpr std::array<std::string_view, hostOperationCount> names = {
#define PRO_OPERATION(result, name, parameters, arguments, miss) #name,
#include "toolkit/ProOperations.def"
#undef PRO_OPERATION
};

}  // namespace

std::string_view operationName(HostOperation operation) { return names[static_cast<size_t>(operation)]; }

std::optional<HostOperation> operationNamed(std::string_view name) {
    for (size_t index = 0; index < names.size(); ++index) {
        if (names[index] == name) return static_cast<HostOperation>(index);
    }
    return std::nullopt;
}

}  // namespace host
