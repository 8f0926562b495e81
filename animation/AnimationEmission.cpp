#include "animation/AnimationEmission.h"

#include "animation/AnimationBlock.h"
#include "plugin/core/VantrelPlugin.h"

void emitAnimation(nvxScene_api& scene, const AnimationFrameTable& frames, std::int32_t frameCount,
                   std::int32_t frameRate, const ProAsmcomppath& fullPath, const ProAsmcomppath& localPath,
                   const std::string& name) {
    auto entry = frames.find(fullPath);
    if (entry == frames.end()) return;
    ProMatrix placement = {};
    ProAsmcomppath path = localPath;
    ProAsmcomppathTrfGet(&path, PRO_B_TRUE, placement);
    writeAnimationBlock(scene, entry->second, frameCount, frameRate, placement, name);
}

void emitAnimation(nvxScene_api& scene, const VantrelPlugin& plugin, const ProAsmcomppath& fullPath,
                   const ProAsmcomppath& localPath, const std::string& name) {
    emitAnimation(scene, plugin.animationFrames, plugin.animationFrameCount,
                  plugin.animationFrameRate, fullPath, localPath, name);
}
