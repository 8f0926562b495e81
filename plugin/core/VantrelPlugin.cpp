#include "plugin/core/VantrelPlugin.h"

#include "plugin/core/SettingsFile.h"

namespace {

VantrelPlugin* current = nullptr;

}  // namespace

VantrelPlugin::VantrelPlugin() {
    loadSettings(*this);
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
