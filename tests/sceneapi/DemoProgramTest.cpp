// The demo program run as a process: the scene file that it writes reads back,
// passes the checks and holds what the demo puts in it.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>

#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"
#include "tests/sceneapi/SceneCapture.h"

namespace {

struct ProgramRun {
    int status = -1;
    std::string output;
};

ProgramRun runProgram(const std::string& command) {
    ProgramRun run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return run;
    char chunk[256];
    for (std::size_t got; (got = std::fread(chunk, 1, sizeof chunk, pipe)) > 0;) run.output.append(chunk, got);
    const int wait = ::pclose(pipe);
    if (WIFEXITED(wait)) run.status = WEXITSTATUS(wait);
    return run;
}

TEST(DemoProgram, SceneReadsBackWithTheDemoContent) {
    const scenetest::ScratchFile file("vantrel_demo");
    const ProgramRun run = runProgram(std::string(VANTREL_DEMO_SCENE_PROGRAM) + " '" + file.path() + "'");
    ASSERT_EQ(run.status, 0) << run.output;
    const std::string bytes = scenetest::fileText(file.path());
    EXPECT_EQ(run.output, "wrote demo scene to " + file.path() + " (" + std::to_string(bytes.size()) + " bytes)\n");

    const scenereader::Document document = scenereader::parseScene(bytes);
    EXPECT_EQ(scenereader::checkScene(document), std::vector<std::string>{});
    // The scene's group holds the camera and the cube's group; the cube has
    // two triangles on each of its six faces.
    EXPECT_EQ(scenereader::describeSummary(scenereader::summarize(document)),
              "2 groups, 1 object, 1 triangle mesh with 12 triangles, 1 material (1 distinct), 1 camera, 0 NURBS objects");
    const scenereader::Block* scene = document.root.child("group");
    ASSERT_NE(scene, nullptr);
    EXPECT_EQ(scene->name(), "demo");
    ASSERT_NE(scene->child("camera"), nullptr);
    EXPECT_EQ(scene->child("camera")->name(), "front");
    ASSERT_NE(document.root.child("load"), nullptr);
    EXPECT_EQ(document.root.child("load")->name(), "nvxrtopt.so");
}

TEST(DemoProgram, WithoutAPathItSaysHowToCallIt) {
    const ProgramRun run = runProgram(std::string(VANTREL_DEMO_SCENE_PROGRAM) + " 2>&1");
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.output.find("usage: "), std::string::npos) << run.output;
}

}  // namespace
