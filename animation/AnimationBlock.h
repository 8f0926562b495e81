#pragma once
// One animation block of a node: the type "fbx_animation" and the node's
// name, its start and duration, its folder, one matrix per recorded frame and
// one time stamp per frame of the file.
#include <cstdint>
#include <string>

#include "plugin/core/AnimationFrames.h"
#include "toolkit/ProToolkit.h"

class nvxScene_api;

// The time base of the frames, all in single precision.
struct AnimationTimeBase {
    float secondsPerFrame = 0.0f;       // 1 / frame rate
    float duration = 0.0f;              // frame count times seconds per frame
    float millisecondsPerFrame = 0.0f;  // seconds per frame times 1000

    // Frame index times milliseconds per frame, truncated toward zero. A
    // stamp beyond 32 bits gives INT32_MIN, as the processor's conversion does.
    std::int32_t stamp(std::int32_t frame) const;
};

AnimationTimeBase animationTimeBase(std::int32_t frameRate, std::int32_t frameCount);

// The inverse of a placement whose upper 3x3 block is a rotation times a
// uniform scale, the scale taken from row 0. A placement whose row 0 is
// shorter than 1e-9 has no such inverse; the identity stands in for it.
void invertPlacement(const ProMatrix placement, ProMatrix inverse);

// Writes the block into the node that is open: each matrix of `frames` times
// the inverse of `placement`, and the time stamps of frames 0 to
// frameCount - 1. The two arrays are not compared.
void writeAnimationBlock(nvxScene_api& scene, const FrameSequence& frames, std::int32_t frameCount,
                         std::int32_t frameRate, const ProMatrix placement, const std::string& name);
