#include "host/ActiveSession.h"

#include "host/HostError.h"

namespace host {
namespace {

Session* activeSession = nullptr;

}  // namespace

SessionActivation::SessionActivation(Session& session) {
    if (activeSession) throw HostError("another host session is active: the host runs one plug-in at a time");
    activeSession = &session;
}

SessionActivation::~SessionActivation() { activeSession = nullptr; }

Session* sessionFor(int context) { return context == applicationContext ? activeSession : nullptr; }

}  // namespace host
