#pragma once
// Sessions for tests: one made active for host operations called directly,
// and the plug-in started in a session through the real handshake.
#include <filesystem>
#include <memory>

#include "host/ActiveSession.h"
#include "host/Host.h"
#include "host/Session.h"

namespace host::fixtures {

// A session that host operations act on for the life of the object.
class ActiveTestSession {
public:
    Session session;

private:
    SessionActivation activation_{session};
};

// The plug-in library of this build.
std::filesystem::path pluginLibrary();

// Loads the plug-in library and starts it in `session`, which the host makes
// active until the host goes. A library that isn't built yet is a HostError.
std::unique_ptr<Host> startPlugin(Session& session, const std::filesystem::path& library = pluginLibrary());

}  // namespace host::fixtures
