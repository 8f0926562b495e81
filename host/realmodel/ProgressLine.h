#pragma once
// The meshing progress of an export on one line of a terminal: rewritten in
// place at most about a hundred times, and ended once when the total is
// reached, however many requests (retries) come after.
#include <cstddef>
#include <cstdio>

namespace host::realmodel {

class ProgressLine {
public:
    explicit ProgressLine(std::FILE* out) : out_(out) {}

    void show(std::size_t done, std::size_t total);
    bool ended() const { return ended_; }

private:
    std::FILE* out_;
    bool ended_ = false;
};

}  // namespace host::realmodel
