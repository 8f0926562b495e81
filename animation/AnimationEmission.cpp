#include "animation/AnimationEmission.h"

void emitAnimation(nvxScene_api&, VantrelPlugin&, const ProAsmcomppath&, const ProAsmcomppath&, const std::string&) {
    // A node moves only if the host's animation file gave frames for its path.
    // This build reads no animation file, so the frame table stays empty and
    // no node carries an animation block.
}
