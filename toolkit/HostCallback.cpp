#include "toolkit/HostCallback.h"

#include <cstdio>
#include <utility>

namespace toolkit {
namespace {

// One thread runs the plug-in, so one slot serves every visit.
std::exception_ptr pendingFailure;

}  // namespace

void keepVisitFailure(std::exception_ptr failure) noexcept {
    if (!pendingFailure) pendingFailure = std::move(failure);
}

void rethrowVisitFailure() {
    if (pendingFailure) std::rethrow_exception(std::exchange(pendingFailure, nullptr));
}

void forgetVisitFailure() noexcept { pendingFailure = nullptr; }

void reportFailure(const char* what, const char* reason) noexcept { std::fprintf(stderr, "%s: %s\n", what, reason); }

}  // namespace toolkit
