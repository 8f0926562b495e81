#pragma once
// The session that host calls act on. The plug-in reaches the host only
// through functions that carry the application context, so the context leads
// to one process-wide active session; the host is single-threaded and runs
// one plug-in at a time.
namespace host {

class Session;

// The token the host hands the plug-in at start-up; every host call carries it.
inline constexpr int applicationContext = 0x7A11;

// Makes a session the active one for its lifetime. A second activation while
// one is active is a HostError.
class SessionActivation {
public:
    explicit SessionActivation(Session& session);
    ~SessionActivation();
    SessionActivation(const SessionActivation&) = delete;
    SessionActivation& operator=(const SessionActivation&) = delete;
};

// The active session if `context` is the host's token, else null.
Session* sessionFor(int context);

}  // namespace host
