#include "host/FaultPlan.h"

#include "host/HostError.h"

namespace host {

void FaultPlan::add(const Fault& fault) {
    std::optional<HostOperation> operation = operationNamed(fault.operation);
    if (!operation) throw HostError("fault plan: \"" + fault.operation + "\" is no host operation");
    rules_.push_back(Rule{*operation, fault.call, fault.handle, fault.status});
}

std::optional<int> FaultPlan::answerFor(HostOperation operation, uint64_t call, const void* handle) const {
    for (const Rule& rule : rules_) {
        if (rule.operation != operation) continue;
        if (rule.call != 0 && rule.call != call) continue;
        if (rule.handle && rule.handle != handle) continue;
        return rule.status;
    }
    return std::nullopt;
}

}  // namespace host
