#include "animation/AnimationBlock.h"

#include <limits>

#include "importers/sceneapi/nvxScene_api.h"

namespace {

// Below this square of row 0's length the placement counts as degenerate.
constexpr double smallestSquaredScale = 1e-18;

void setIdentity(ProMatrix out) {
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column) out[row][column] = row == column ? 1.0 : 0.0;
}

// product := frame times inverse, in doubles.
void multiply(const FrameMatrix& frame, const ProMatrix inverse, ProMatrix product) {
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k) sum += frame[row][k] * inverse[k][column];
            product[row][column] = sum;
        }
    }
}

void writeMatrices(nvxScene_api& scene, const FrameSequence& frames, const ProMatrix inverse) {
    scene.begin_array("matrices");
    ProMatrix product;
    for (const FrameMatrix& frame : frames) {
        multiply(frame, inverse, product);
        scene.add_array_value(ATTR_MATRIX, &product[0][0]);
    }
    scene.end_array();
}

void writeTimestamps(nvxScene_api& scene, const AnimationTimeBase& timeBase, std::int32_t frameCount) {
    scene.begin_array("timestamps");
    for (std::int32_t frame = 0; frame < frameCount; ++frame) {
        std::int32_t stamp = timeBase.stamp(frame);
        scene.add_array_value(ATTR_INT, &stamp);
    }
    scene.end_array();
}

}  // namespace

std::int32_t AnimationTimeBase::stamp(std::int32_t frame) const {
    float milliseconds = static_cast<float>(frame) * millisecondsPerFrame;
    constexpr float limit = 2147483648.0f;  // 2^31
    if (!(milliseconds < limit && milliseconds > -limit)) return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(milliseconds);
}

AnimationTimeBase animationTimeBase(std::int32_t frameRate, std::int32_t frameCount) {
    AnimationTimeBase timeBase;
    timeBase.secondsPerFrame = 1.0f / static_cast<float>(frameRate);
    timeBase.duration = static_cast<float>(frameCount) * timeBase.secondsPerFrame;
    timeBase.millisecondsPerFrame = timeBase.secondsPerFrame * 1000.0f;
    return timeBase;
}

void invertPlacement(const ProMatrix placement, ProMatrix inverse) {
    const double squaredScale =
        placement[0][0] * placement[0][0] + placement[0][1] * placement[0][1] + placement[0][2] * placement[0][2];
    if (squaredScale < smallestSquaredScale) {
        setIdentity(inverse);
        return;
    }
    const double reciprocal = 1.0 / squaredScale;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) inverse[i][j] = reciprocal * placement[j][i];
        inverse[i][3] = 0.0;
    }
    for (int j = 0; j < 3; ++j) {
        const double dot =
            placement[3][0] * placement[j][0] + placement[3][1] * placement[j][1] + placement[3][2] * placement[j][2];
        inverse[3][j] = -reciprocal * dot;
    }
    inverse[3][3] = 1.0;
}

void writeAnimationBlock(nvxScene_api& scene, const FrameSequence& frames, std::int32_t frameCount,
                         std::int32_t frameRate, const ProMatrix placement, const std::string& name) {
    ProMatrix inverse;
    invertPlacement(placement, inverse);
    const AnimationTimeBase timeBase = animationTimeBase(frameRate, frameCount);
    const std::int32_t startTime = 0;
    scene.begin_animation("fbx_animation", name.c_str());
    scene.set_attribute("start_time", ATTR_INT, &startTime);
    scene.set_attribute("duration", ATTR_FLOAT, &timeBase.duration);
    scene.set_attribute("folder", ATTR_STRING, "Creo animation");
    writeMatrices(scene, frames, inverse);
    writeTimestamps(scene, timeBase, frameCount);
    scene.end_animation();
}
