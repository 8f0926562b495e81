#include "plugin/VantrelPlugin.h"

#include "plugin/Commands.h"
#include "plugin/SettingsFile.h"
#include "toolkit/Startup.h"

namespace {

VantrelPlugin* current = nullptr;

}  // namespace

VantrelPlugin::VantrelPlugin() {
    loadSettings(*this);
    reservedTextA[0] = u'\0';
    reservedTextB[0] = u'\0';
    previousTessellationQuality = settings.tessellationQuality;
}

VantrelPlugin* VantrelPlugin::instance() {
    if (!current) current = new VantrelPlugin();
    return current;
}

void VantrelPlugin::destroyInstance() {
    delete current;
    current = nullptr;
}

// The host's arguments are of no use to the plug-in. Registration can fail
// only command by command, and the plug-in loads all the same.
int user_initialize(int, char**, const char*, const char*, ProWchar*) {
    registerCommands(*VantrelPlugin::instance());
    return 0;
}

void user_terminate() { VantrelPlugin::destroyInstance(); }
