#pragma once
// The plug-in's one context object: the settings, the ids of the commands,
// the scene of the run in progress, and the tables that outlive a run. Every
// command action, dialog callback and visit callback reaches it through the
// data pointer that the host hands back or through VantrelPlugin::instance.
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "export/MaterialRecord.h"
#include "plugin/PluginSettings.h"
#include "plugin/ScratchArrays.h"
#include "toolkit/ProAsmcomppathOrder.h"
#include "toolkit/ProToolkit.h"

namespace nvx {
class nvxSceneapi_oo;
}

// A host matrix that can be kept in a container: 4 rows of 4 doubles.
using FrameMatrix = std::array<std::array<double, 4>, 4>;

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

    ScratchArrays scratchArrays;
    uiCmdCmdId renderCommand = nullptr;
    uiCmdCmdId exportCommand = nullptr;
    uiCmdCmdId settingsCommand = nullptr;
    uiCmdCmdId updateCommand = nullptr;
    uiCmdCmdId manualSelectionCommand = nullptr;
    uiCmdCmdId automaticSelectionCommand = nullptr;
    // The version of each component as last sent.
    std::map<ProAsmcomppath, ProMdlVerstamp, ProAsmcomppathLess> versionStamps;
    // The scene of the run in progress; stale after the run.
    nvx::nvxSceneapi_oo* scene = nullptr;
    double previousTessellationQuality = 0.2;
    // The matrices of each moving component, frame by frame.
    std::map<ProAsmcomppath, std::vector<FrameMatrix>, ProAsmcomppathLess> animationFrames;
    std::int32_t animationFrameCount = 0;
    bool updateRun = false;
    std::int32_t reservedA = -1;
    ProSelection* selection = nullptr;  // the host's
    std::int32_t selectionCount = 0;
    bool renderToFile = false;
    ProWchar reservedTextA[1024] = {};
    ProWchar reservedTextB[1024] = {};
    std::int32_t animationFrameRate = 25;
    std::int32_t reservedB = -1;
    float meterScale = 1.0f;  // model units in one metre
    PluginSettings settings;
    std::int32_t reservedC = 0;
    // Instance ids by material for each part or assembly name.
    std::map<std::string, std::map<MaterialRecord, std::vector<std::int32_t>>> partInstances;
};
