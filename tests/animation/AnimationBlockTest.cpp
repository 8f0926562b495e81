// The animation block of a node: its time base in single precision, the
// inverse of the node's placement, and the block as the scene file holds it.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "animation/AnimationBlock.h"
#include "importers/sceneapi/nvxScene_api_file.h"
#include "scenereader/SceneAnimations.h"
#include "scenereader/SceneReader.h"

namespace {

using scenereader::Animation;

struct TimeBaseCase {
    int frames;
    float duration;
    std::vector<std::int32_t> stamps;  // of frames 0, 1, 2 ... and the last
};

class TimeBase : public ::testing::TestWithParam<TimeBaseCase> {};

TEST_P(TimeBase, FollowsTheFrameRateOf25) {
    AnimationTimeBase timeBase = animationTimeBase(25, GetParam().frames);
    EXPECT_EQ(timeBase.secondsPerFrame, 0.04f);
    EXPECT_EQ(timeBase.millisecondsPerFrame, 40.0f);
    EXPECT_EQ(timeBase.duration, GetParam().duration);
    for (std::size_t i = 0; i < GetParam().stamps.size(); ++i)
        EXPECT_EQ(timeBase.stamp(static_cast<std::int32_t>(i)), GetParam().stamps[i]) << i;
}

// 0.04f is 5368709 / 2^27; three of them make 0.12f exactly.
INSTANTIATE_TEST_SUITE_P(Frames, TimeBase,
                         ::testing::Values(TimeBaseCase{100, 4.0f, {0, 40, 80, 120, 160}},
                                           TimeBaseCase{3, 0.12f, {0, 40, 80}}, TimeBaseCase{0, 0.0f, {0}}));

TEST(TimeBase, TheLastStampIsOneFrameShortOfTheDurationAndHugeStampsSaturate) {
    AnimationTimeBase timeBase = animationTimeBase(25, 100);
    EXPECT_EQ(timeBase.stamp(99), 3960);
    EXPECT_EQ(timeBase.stamp(53687088), 2147483520) << "2^31 - 128, the largest float below 2^31";
    EXPECT_EQ(timeBase.stamp(60000000), INT32_MIN);
}

struct InverseCase {
    const char* what;
    ProMatrix placement;
    ProMatrix inverse;
};

class Inverse : public ::testing::TestWithParam<InverseCase> {};

TEST_P(Inverse, OfARotationWithUniformScale) {
    ProMatrix inverse;
    invertPlacement(GetParam().placement, inverse);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_DOUBLE_EQ(inverse[row][column], GetParam().inverse[row][column]) << row << " " << column;
}

// Scale 2 and a quarter turn about z: d = 4; the upper block is the transpose
// over 4; row 3 is -(T3 . Tj) / 4 with T3 = (4, 6, 8): -(12, -8, 16) / 4.
INSTANTIATE_TEST_SUITE_P(
    Placements, Inverse,
    ::testing::Values(
        InverseCase{"identity", {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}},
                    {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}},
        InverseCase{"translation", {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {1, -2, 3, 1}},
                    {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {-1, 2, -3, 1}}},
        InverseCase{"scaled", {{0, 2, 0, 0}, {-2, 0, 0, 0}, {0, 0, 2, 0}, {4, 6, 8, 1}},
                    {{0, -0.5, 0, 0}, {0.5, 0, 0, 0}, {0, 0, 0.5, 0}, {-3, 2, -4, 1}}},
        InverseCase{"degenerate", {{0, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {5, 5, 5, 1}},
                    {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}},
        InverseCase{"nearly degenerate", {{1e-10, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {5, 5, 5, 1}},
                    {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}}),
    [](const ::testing::TestParamInfo<InverseCase>& info) {
        std::string name = info.param.what;
        for (char& c : name) c = c == ' ' ? '_' : c;
        return name;
    });

FrameMatrix frameOf(const ProMatrix matrix) {
    FrameMatrix frame{};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column) frame[row][column] = matrix[row][column];
    return frame;
}

// Writes a group "node" holding the block and a transform, and reads the
// scene back.
scenereader::Document writeBlock(const FrameSequence& frames, std::int32_t frameCount, const ProMatrix placement) {
    FILE* file = std::tmpfile();
    {
        nvxScene_api_file scene(file, true);
        scene.begin_group("node", true);
        writeAnimationBlock(scene, frames, frameCount, 25, placement, "bolt");
        scene.apply_transform(&placement[0][0]);
        scene.end_group();
    }
    std::string bytes(static_cast<std::size_t>(std::ftell(file)), '\0');
    std::rewind(file);
    EXPECT_EQ(std::fread(bytes.data(), 1, bytes.size(), file), bytes.size());
    std::fclose(file);
    return scenereader::parseScene(bytes);
}

const ProMatrix scaledPlacement = {{0, 2, 0, 0}, {-2, 0, 0, 0}, {0, 0, 2, 0}, {4, 6, 8, 1}};

// Frame 0 is the placement itself, frame 1 is it moved by 10 along z in the
// parent, which is 5 in the node's own units at scale 2.
TEST(AnimationBlock, StatementsInOrderWithEachFrameTimesTheInverse) {
    FrameMatrix moved = frameOf(scaledPlacement);
    moved[3][2] += 10;
    scenereader::Document scene = writeBlock({frameOf(scaledPlacement), moved}, 2, scaledPlacement);
    const scenereader::Block& node = *scene.root.child("group");
    ASSERT_EQ(node.items.size(), 2u);
    const auto* block = std::get_if<scenereader::Block>(&node.items[0]);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(block->names, (std::vector<std::string>{"fbx_animation", "bolt"}));
    std::vector<std::string> names;
    for (const auto& item : block->items) names.push_back(std::get<scenereader::Statement>(item).name);
    EXPECT_EQ(names, (std::vector<std::string>{"start_time", "duration", "folder", "matrices", "timestamps"}));

    std::vector<std::string> problems;
    std::vector<Animation> animations = scenereader::readAnimations(scene.root, problems);
    EXPECT_EQ(problems, std::vector<std::string>{});
    ASSERT_EQ(animations.size(), 1u);
    const Animation& animation = animations[0];
    EXPECT_EQ(animation.startTime, 0);
    EXPECT_EQ(animation.duration, 0.08);
    EXPECT_EQ(animation.folder, "Creo animation");
    using Matrix16 = std::array<double, 16>;
    EXPECT_EQ(animation.matrices, (std::vector<Matrix16>{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1},
                                                         {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 5, 1}}));
    EXPECT_EQ(animation.timestamps, (std::vector<std::int32_t>{0, 40}));
    EXPECT_EQ(scenereader::checkAnimations(scene), std::vector<std::string>{});
    EXPECT_EQ(std::get<scenereader::Statement>(node.items[1]).name, "transform");
}

// A frame count of 0 still opens and closes the stamps; the matrices don't
// follow the count, and the scene check says so.
TEST(AnimationBlock, FrameCountZeroGivesEmptyStampsAndTheCheckCatchesTheMismatch) {
    const ProMatrix identity = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    FrameMatrix frame = frameOf(identity);
    frame[3][0] = 7;
    scenereader::Document scene = writeBlock({frame, frame, frame}, 0, identity);
    std::vector<std::string> problems;
    std::vector<Animation> animations = scenereader::readAnimations(scene.root, problems);
    ASSERT_EQ(animations.size(), 1u);
    EXPECT_EQ(animations[0].duration, 0.0);
    EXPECT_EQ(animations[0].matrices.size(), 3u);
    EXPECT_EQ(animations[0].matrices[2][12], 7.0);
    EXPECT_TRUE(animations[0].timestamps.empty());
    EXPECT_EQ(scenereader::checkAnimations(scene),
              std::vector<std::string>{"animation \"bolt\" at line 3: \"matrices\" holds 3 matrices for the 0 frames "
                                       "of a duration of 0.000000 s"});
}

}  // namespace
