#pragma once
// The host calls of a session, counted per operation, and the last one.
// Calls are counted, not kept: an export makes millions of them.
#include <array>
#include <cstdint>
#include <optional>

#include "host/HostOperation.h"

namespace host {

struct HostCall {
    HostOperation operation{};
    uint64_t call = 0;  // the n-th call of the operation, from 1
};

class CallRecord {
public:
    // Counts a call; answers its number among the calls of its operation.
    uint64_t record(HostOperation operation) {
        uint64_t call = ++counts_[static_cast<size_t>(operation)];
        last_ = HostCall{operation, call};
        ++total_;
        return call;
    }

    uint64_t count(HostOperation operation) const { return counts_[static_cast<size_t>(operation)]; }
    uint64_t total() const { return total_; }
    const std::optional<HostCall>& last() const { return last_; }

private:
    std::array<uint64_t, hostOperationCount> counts_{};
    uint64_t total_ = 0;
    std::optional<HostCall> last_;
};

}  // namespace host
