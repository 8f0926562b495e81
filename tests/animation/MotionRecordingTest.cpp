// The host's mechanism: the component paths of an assembly, and motions that
// it writes in the host's format and the plug-in's reader reads back.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "animation/FraReader.h"
#include "host/realmodel/MotionRecording.h"
#include "host/testing/ModelBuilder.h"

namespace {

using namespace host::fixtures;
using host::Move;

class MotionRecording : public ::testing::Test {
protected:
    // rig: frame 11 [bolt 21 at x 1, bolt 22], cover 12 at z 5, 13 not loaded.
    MotionRecording() {
        addComponent(frame, &bolt, 21, translation(1, 0, 0));
        addComponent(frame, &bolt, 22);
        addComponent(rig, &frame, 11);
        addComponent(rig, &cover, 12, translation(0, 0, 5));
        addComponent(rig, nullptr, 13);
    }

    ProAsmcomppath pathOf(std::initializer_list<int> ids) {
        ProAsmcomppath path{};
        for (int id : ids) path.componentIds[path.componentIdCount++] = id;
        return path;
    }

    host::Model bolt = part(u"bolt");
    host::Model cover = part(u"cover");
    host::Model frame = assembly(u"frame");
    host::Model rig = assembly(u"rig");
};

TEST_F(MotionRecording, ListsEveryComponentPathFromTheTopDown) {
    EXPECT_EQ(host::describeComponentPaths(host::listComponentPaths(rig)),
              "11\tframe\n11 21\tframe/bolt\n11 22\tframe/bolt\n12\tcover\n13\t?\n");
}

// A quarter turn of the sub-assembly about z and a lift of the cover by 10,
// over 5 frames: steps of 22.5 degrees and of 2.5.
TEST_F(MotionRecording, WritesWhatTheReaderReadsBackAsMovingComponents) {
    host::MotionDescription motion;
    motion.frames = 5;
    motion.moves.push_back(Move{.kind = Move::Kind::Rotate, .path = {11}, .axis = 2, .degrees = 90});
    motion.moves.push_back(Move{.kind = Move::Kind::Translate, .path = {12}, .by = {0, 0, 10}});
    std::ostringstream file;
    ASSERT_EQ(host::writeMotionFile(host::listComponentPaths(rig), motion, file), "");
    const std::string head = "parts: 5\nframes: 5\nMaFrame 1\nPart: 1 (11) 1 0 0 0 1 0 0 0 1 0 0 0\nPart: 2 (11 21) ";
    EXPECT_EQ(file.str().substr(0, head.size()), head);

    AnimationFrameTable frames;
    std::int32_t frameCount = 0;
    readFraFile(file.str(), frames, frameCount);
    EXPECT_EQ(frameCount, 5);
    ASSERT_EQ(frames.size(), 2u) << "only the turned sub-assembly and the lifted cover move";
    const FrameSequence& turned = frames.at(pathOf({11}));
    const FrameSequence& lifted = frames.at(pathOf({12}));
    ASSERT_EQ(turned.size(), 5u);
    ASSERT_EQ(lifted.size(), 5u);
    const double half = std::sqrt(0.5);
    const FrameMatrix quarter{{{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
    const FrameMatrix eighth{{{half, half, 0, 0}, {-half, half, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            EXPECT_NEAR(turned[4][row][column], quarter[row][column], 1e-7) << row << " " << column;
            EXPECT_NEAR(turned[2][row][column], eighth[row][column], 1e-7) << row << " " << column;
        }
    }
    for (size_t k = 0; k < 5; ++k) EXPECT_EQ(lifted[k][3], (std::array<double, 4>{0, 0, 5 + 2.5 * k, 1})) << k;
}

TEST_F(MotionRecording, RefusesDescriptionsItCannotRecord) {
    struct Case {
        host::MotionDescription motion;
        const char* message;
    };
    const Case cases[] = {
        {{0, {}}, "a motion needs at least one frame, not 0"},
        {{5, {Move{.path = {21}}}}, "\"21\" is no component path of the model"},
        {{5, {Move{.path = {11}, .axis = 3}}}, "the axis of a turn is x, y or z"},
    };
    for (const Case& c : cases) {
        std::ostringstream file;
        EXPECT_EQ(host::writeMotionFile(host::listComponentPaths(rig), c.motion, file), c.message);
        EXPECT_EQ(file.str(), "");
    }
}

}  // namespace
