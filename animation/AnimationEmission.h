#pragma once
// The motion of a node, from the frames read out of the host's animation
// file, written into the scene on that node.
#include <string>

#include "importers/sceneapi/nvxScene_api.h"
#include "toolkit/ProToolkit.h"

class VantrelPlugin;

void emitAnimation(nvxScene_api& scene, VantrelPlugin& plugin, const ProAsmcomppath& fullPath,
                   const ProAsmcomppath& localPath, const std::string& name);
