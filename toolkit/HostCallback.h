#pragma once
// The C boundary. Every function of the plug-in that the host calls (the
// entries, the command actions, the dialog and visit callbacks) runs its body
// through one of these guards, so that nothing thrown ever unwinds through
// the host's frames.
#include <exception>

#include "toolkit/ProToolkit.h"

namespace toolkit {

// Keeps the first failure of the callbacks of a visit in progress.
void keepVisitFailure(std::exception_ptr failure) noexcept;

// Rethrows, and forgets, the failure that a callback kept during the host's
// last visit. Called right after each visit that the plug-in starts, so the
// failure goes on from there as if no host stood between.
void rethrowVisitFailure();

// Drops a failure that no one rethrew: each entry starts with none.
void forgetVisitFailure() noexcept;

// Writes one line about a failure that ended a command to standard error.
void reportFailure(const char* what, const char* reason) noexcept;

// The body of a visit action or filter. A failure is kept and the host gets
// `failed`: an action's error ends the visit, a filter's PRO_TK_CONTINUE
// passes over the item.
template <typename Body>
ProError guardVisit(Body&& body, ProError failed = PRO_TK_GENERAL_ERROR) noexcept {
    try {
        return body();
    } catch (...) {
        keepVisitFailure(std::current_exception());
        return failed;
    }
}

// The body of an entry, a command action or a dialog callback: a failure
// ends it here, reported under `what`, and the host gets `failed`.
template <typename Result, typename Body>
Result guardEntry(const char* what, Result failed, Body&& body) noexcept {
    Result result = failed;
    try {
        result = body();
    } catch (const std::exception& error) {
        reportFailure(what, error.what());
    } catch (...) {
        reportFailure(what, "an unknown exception");
    }
    forgetVisitFailure();
    return result;
}

// The same for a callback that answers nothing.
template <typename Body>
void guardEntry(const char* what, Body&& body) noexcept {
    guardEntry(what, 0, [&] {
        body();
        return 0;
    });
}

}  // namespace toolkit
