#include "plugin/VantrelPlugin.h"

#include "plugin/SettingsFile.h"

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
