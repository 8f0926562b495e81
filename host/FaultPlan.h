#pragma once
// Answers that a test wants the host to give instead of doing the operation:
// an operation, which of its calls, and optionally which handle, with the
// status to answer. A call that a fault matches leaves its outputs untouched.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/HostOperation.h"
#include "toolkit/ProConstants.h"

namespace host {

struct Fault {
    std::string operation;          // its name in the list, e.g. "ProMdlVerstampGet"
    uint64_t call = 0;              // the n-th call of the operation, from 1; 0: every call
    const void* handle = nullptr;   // only calls whose first argument is this pointer; null: any call
    int status = PRO_TK_GENERAL_ERROR;
};

class FaultPlan {
public:
    // A name that is no host operation is a HostError.
    void add(const Fault& fault);
    void clear() { rules_.clear(); }
    bool empty() const { return rules_.empty(); }

    // The status of the first fault that matches the call, or none.
    std::optional<int> answerFor(HostOperation operation, uint64_t call, const void* handle) const;

private:
    struct Rule {
        HostOperation operation;
        uint64_t call;
        const void* handle;
        int status;
    };
    std::vector<Rule> rules_;
};

}  // namespace host
