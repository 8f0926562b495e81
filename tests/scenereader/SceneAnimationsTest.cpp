// Animation blocks read back from hand-written scenes, and what the check
// says about their arrays.
#include <gtest/gtest.h>

#include "scenereader/SceneAnimations.h"
#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"
#include "tests/scenereader/SceneBytes.h"

namespace {

const std::string identity = "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1";
const std::string moved = "1 0 0 0 0 1 0 0 0 0 1 0 2.5 0 0 1";

// A group holding an animation block with these statements, and a transform.
std::string sceneWith(const std::string& statements) {
    return "group \"arm\" {\nanimation \"fbx_animation\" \"arm\" {\n" + statements + "}\ntransform " + identity +
           "\n}\n";
}

std::string stamps(const SceneBytes& values) { return "\"timestamps\" [\n" + values.str() + " ],\n"; }

const std::string head = "\"start_time\" 0,\n\"duration\" 0.08,\n\"folder\" \"Creo animation\",\n";
const std::string twoMatrices = "\"matrices\" [\n" + identity + ", " + moved + " ],\n";

TEST(SceneAnimations, ReadsEveryPartOfTheBlockWithBinaryOrTextStamps) {
    for (const std::string& timestamps : {stamps(SceneBytes().ints({0, 40})), std::string("\"timestamps\" [\n0, 40 ],\n")}) {
        scenereader::Document scene = scenereader::parseScene(sceneWith(head + twoMatrices + timestamps));
        std::vector<std::string> problems;
        auto animations = scenereader::readAnimations(scene.root, problems);
        EXPECT_EQ(problems, std::vector<std::string>{});
        ASSERT_EQ(animations.size(), 1u);
        const scenereader::Animation& animation = animations[0];
        EXPECT_EQ(animation.type, "fbx_animation");
        EXPECT_EQ(animation.name, "arm");
        EXPECT_EQ(animation.startTime, 0);
        EXPECT_EQ(animation.duration, 0.08);
        EXPECT_EQ(animation.folder, "Creo animation");
        ASSERT_EQ(animation.matrices.size(), 2u);
        EXPECT_EQ(animation.matrices[1][12], 2.5);
        EXPECT_EQ(animation.timestamps, (std::vector<int32_t>{0, 40}));
        EXPECT_EQ(scenereader::checkScene(scene), std::vector<std::string>{});
        EXPECT_EQ(scenereader::describeSummary(scenereader::summarize(scene)),
                  "1 group, 0 objects, 0 triangle meshes with 0 triangles, 0 materials, 0 cameras, 0 NURBS objects, "
                  "1 animation");
    }
}

struct BadBlock {
    std::string statements;
    std::vector<std::string> problems;
};

class BadAnimations : public ::testing::TestWithParam<BadBlock> {};

TEST_P(BadAnimations, AreReportedByTheCheck) {
    EXPECT_EQ(scenereader::checkScene(scenereader::parseScene(sceneWith(GetParam().statements))), GetParam().problems);
}

const std::string where = "animation \"arm\" at line 2: ";

INSTANTIATE_TEST_SUITE_P(
    Shapes, BadAnimations,
    ::testing::Values(
        BadBlock{head + twoMatrices + stamps(SceneBytes().ints({0})),
                 {where + "\"timestamps\" holds 1 stamps for the 2 frames of a duration of 0.080000 s"}},
        BadBlock{"\"start_time\" 0,\n\"duration\" 0.12,\n" + twoMatrices + stamps(SceneBytes().ints({0, 40, 80})),
                 {where + "\"matrices\" holds 2 matrices for the 3 frames of a duration of 0.120000 s"}},
        BadBlock{head + twoMatrices + stamps(SceneBytes().ints({0, 41})), {where + "time stamp 1 is 41, not 40"}},
        BadBlock{"\"start_time\" 0.5,\n" + twoMatrices + stamps(SceneBytes().ints({0, 40})),
                 {where + "\"start_time\" 0.5 is not an integer", where + "\"start_time\" is missing",
                  where + "\"duration\" is missing"}},
        BadBlock{head + "\"matrices\" [\n" + identity + ", 1 2 3 ],\n" + stamps(SceneBytes().ints({0, 40})),
                 {where + "\"matrices\" element 1 is not 16 numbers",
                  where + "\"matrices\" holds 1 matrices for the 2 frames of a duration of 0.080000 s"}},
        BadBlock{head + "\"matrices\" 3,\n" + stamps(SceneBytes().ints({0, 40})),
                 {where + "\"matrices\" at line 6 is not an element array",
                  where + "\"matrices\" holds 0 matrices for the 2 frames of a duration of 0.080000 s"}}));

}  // namespace
