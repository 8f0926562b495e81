// The plug-in's entries, which the toolkit's start-up handshake calls.
#include "plugin/core/VantrelPlugin.h"
#include "plugin/shell/Commands.h"
#include "toolkit/HostCallback.h"
#include "toolkit/Startup.h"

// The host's arguments are of no use to the plug-in. Registration can fail
// only command by command, and the plug-in loads all the same.
int user_initialize(int, char**, const char*, const char*, ProWchar*) {
    toolkit::guardEntry("user_initialize", [] { registerCommands(*VantrelPlugin::instance()); });
    return 0;
}

void user_terminate() {
    toolkit::guardEntry("user_terminate", [] { VantrelPlugin::destroyInstance(); });
}
