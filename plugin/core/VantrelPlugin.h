#pragma once
// The plug-in's one context object: what persists between runs. The
// settings, the ids of the commands, the version of each component as last
// sent, the animation frames, and the state of an Update. What lives for one
// run only is in the export's run context.
#include <array>
#include <cstdint>
#include <map>
#include <vector>

#include "plugin/core/AnimationFrames.h"
#include "plugin/core/PluginSettings.h"
#include "toolkit/ProAsmcomppathOrder.h"
#include "toolkit/ProToolkit.h"

// The version of each component's model as last sent, by full path.
using VersionStamps = std::map<ProAsmcomppath, ProMdlVerstamp, ProAsmcomppathLess>;

class VantrelPlugin {
public:
    // Builds every member with its starting value, then overlays the settings
    // file on the settings.
    VantrelPlugin();
    VantrelPlugin(const VantrelPlugin&) = delete;
    VantrelPlugin& operator=(const VantrelPlugin&) = delete;

    // The context of the process, created on first use.
    static VantrelPlugin* instance();
    // Destroys the context if there is one; the next instance() builds anew.
    static void destroyInstance();

    PluginSettings getSettings() const { return settings; }

    // Every change of the quality goes through here: the value before it is
    // kept for one step of undo, and the new one is held in single precision.
    void setTessellationQuality(float quality) {
        previousTessellationQuality = settings.tessellationQuality;
        settings.tessellationQuality = quality;
    }

    uiCmdCmdId renderCommand = nullptr;
    uiCmdCmdId exportCommand = nullptr;
    uiCmdCmdId settingsCommand = nullptr;
    uiCmdCmdId updateCommand = nullptr;
    uiCmdCmdId manualSelectionCommand = nullptr;
    uiCmdCmdId automaticSelectionCommand = nullptr;
    VersionStamps versionStamps;
    double previousTessellationQuality = 0.2;
    // Only Render empties them: an Export or Update takes them up again.
    AnimationFrameTable animationFrames;
    std::int32_t animationFrameCount = 0;
    std::int32_t animationFrameRate = 25;
    // The state of an Update outlives its run: an Update whose choice of
    // representation the user cancels leaves updateRun set and its picks in
    // place, and the next run then walks the assembly as an Update does.
    bool updateRun = false;
    ProSelection* selection = nullptr;  // the host's
    std::int32_t selectionCount = 0;
    bool renderToFile = false;
    PluginSettings settings;
};
