#pragma once
// The animation blocks of a read scene: `animation "type" "name" {` with the
// start time, the duration in seconds, the folder, the element array
// "matrices" of 16 numbers each and the element array "timestamps" of
// integers (text or a binary block), in milliseconds.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "scenereader/SceneDocument.h"

namespace scenereader {

// The plug-in's frame rate: the time base that durations and stamps follow.
inline constexpr int animationFramesPerSecond = 25;

struct Animation {
    const Block* block = nullptr;
    std::string where;  // animation "name" at line 12
    std::string type;
    std::string name;
    bool hasStartTime = false;
    int32_t startTime = 0;
    bool hasDuration = false;
    double duration = 0;
    std::string folder;
    std::vector<std::array<double, 16>> matrices;
    std::vector<int32_t> timestamps;

    // The number of frames that the duration stands for at the frame rate.
    long long impliedFrames() const;
};

// Every animation block below `block`, at any depth, in file order. A
// statement of the wrong shape is left out of the result and reported in
// `problems`, one sentence each.
std::vector<Animation> readAnimations(const Block& block, std::vector<std::string>& problems);

// The shape problems, and for each block: a start time and a duration;
// as many matrices and time stamps as the duration's frames; stamps that are
// the frame index times the milliseconds of a frame.
std::vector<std::string> checkAnimations(const Document& document);

}  // namespace scenereader
