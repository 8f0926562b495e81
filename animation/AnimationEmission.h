#pragma once
// The motion of a node, from the frames read out of the host's motion file,
// written into the scene on that node: called while the node is open, ahead
// of its own transform.
#include <cstdint>
#include <string>

#include "importers/sceneapi/nvxScene_api.h"
#include "plugin/core/AnimationFrames.h"
#include "toolkit/ProToolkit.h"

class VantrelPlugin;

// If `frames` holds a sequence for `fullPath`, asks the host for the
// placement of the component in its parent (`localPath`, one level) and
// writes the animation block; otherwise does nothing at all.
void emitAnimation(nvxScene_api& scene, const AnimationFrameTable& frames, std::int32_t frameCount,
                   std::int32_t frameRate, const ProAsmcomppath& fullPath, const ProAsmcomppath& localPath,
                   const std::string& name);

// The same with the plug-in's frame table, frame count and frame rate.
void emitAnimation(nvxScene_api& scene, const VantrelPlugin& plugin, const ProAsmcomppath& fullPath,
                   const ProAsmcomppath& localPath, const std::string& name);
