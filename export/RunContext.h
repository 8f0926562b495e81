#pragma once
// What lives for one run of Render, Update or Export: the road, the scene
// layer, the metre scale, the geometry buffers and the instance table. The
// driver builds it once the scene is open; the visits reach it through their
// data. What outlives the run stays in the plug-in's context.
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "export/ExportRoad.h"
#include "export/MaterialRecord.h"
#include "export/ScratchArrays.h"
#include "plugin/core/VantrelPlugin.h"

namespace nvx {
class nvxSceneapi_oo;
}

// Instance ids by material for each part or assembly name.
using PartInstances = std::map<std::string, std::map<MaterialRecord, std::vector<std::int32_t>>>;

struct RunContext {
    RunContext(VantrelPlugin& plugin, ExportRoad road, nvx::nvxSceneapi_oo& scene, float meterScale)
        : plugin(plugin), settings(plugin.settings), road(road), scene(scene), meterScale(meterScale) {}
    RunContext(const RunContext&) = delete;
    RunContext& operator=(const RunContext&) = delete;

    VantrelPlugin& plugin;
    const PluginSettings& settings;
    const ExportRoad road;
    nvx::nvxSceneapi_oo& scene;
    const float meterScale;  // model units in one metre
    ScratchArrays buffers;
    // Nothing fills it, so every occurrence of a part goes out in full.
    PartInstances partInstances;
};
