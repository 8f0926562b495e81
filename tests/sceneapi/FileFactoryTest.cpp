// The file road as a whole: a scene written through the object layer onto a
// LightFileFactory, standard output as the destination, and failures to open.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "importers/sceneapi/DemoContent.h"
#include "importers/sceneapi/LightCamera.h"
#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/LightNode.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "tests/sceneapi/SceneCapture.h"

namespace {

const char* const MARKER = "stray print after the factory opened";

const demo::TexturedMaterial WOOD{
    "wood_0.8_0.6_0.4", "wood.png", {0.8f, 0.6f, 0.4f}, {0.1f, 0.1f, 0.1f}, 0.25f, 1.5f, 16,
};

// One triangle, facing +z.
const demo::TriangleMesh TRIANGLE{
    {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
    {{0, 0, 1}, {0, 0, 1}, {0, 0, 1}},
    {0, 0, 1, 0, 0, 1},
    {0, 1, 2},
};

void writeScene(nvx::nvxSceneapi_oo& layer) {
    nvx::DefaultRTModule module;
    module.set_up_vector(1);
    module.set_meter_scale(0.001f);
    layer.add(module);
    layer.begin_group("Assembly");
    nvx::LightCamera camera("Default");
    camera.set_position(0, 0, 10);
    camera.set_fov(30);
    layer.add(camera);

    layer.begin_group("Part");
    nvxScene_api& scene = *layer.scene();
    scene.begin_object("Part_1", true);
    demo::writeGeometry(scene, TRIANGLE);
    demo::writeMaterial(scene, WOOD);
    scene.end_object();
    const double placement[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1};
    layer.apply_transform(placement);
    layer.set_flags(1024);
    layer.end_group();
    layer.end_group();
}

TEST(LightFileFactory, WholeSceneMatchesTheHandWrittenFile) {
    const scenetest::ScratchFile file("vantrel_scene");
    {
        nvx::LightFileFactory factory(file.path());
        nvx::nvxSceneapi_oo layer(factory);
        writeScene(layer);
    }
    const std::string expected =
        scenetest::decodeGolden(scenetest::fileText(VANTREL_SCENEAPI_GOLDEN_DIR "/object_layer_scene.vnz.txt"));
    ASSERT_GT(expected.size(), 1000u);
    const std::string written = scenetest::fileText(file.path());
    EXPECT_EQ(written, expected);
    scenetest::SceneCapture::keepWholeFile(written);
}

TEST(LightFileFactory, UnopenablePathThrowsWithThePath) {
    const std::string path = "/nonexistent-vantrel-dir/scene.vnz";
    try {
        nvx::LightFileFactory factory(path);
        ADD_FAILURE() << "opened " << path;
    } catch (const std::runtime_error& failure) {
        EXPECT_EQ(std::string(failure.what()), "could not open file: \"" + path + "\"");
    }
}

std::string drain(int descriptor) {
    std::string bytes;
    char chunk[4096];
    for (ssize_t got; (got = ::read(descriptor, chunk, sizeof chunk)) > 0;) bytes.append(chunk, static_cast<std::size_t>(got));
    ::close(descriptor);
    return bytes;
}

// In a child: the scene goes to the original standard output, and what the
// process prints afterwards goes to standard error.
TEST(LightFileFactory, DashWritesToStandardOutputAndMovesStrayPrintsAway) {
    int out[2], err[2];
    ASSERT_EQ(::pipe(out), 0);
    ASSERT_EQ(::pipe(err), 0);
    std::fflush(nullptr);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::dup2(out[1], STDOUT_FILENO);
        ::dup2(err[1], STDERR_FILENO);
        for (int descriptor : {out[0], out[1], err[0], err[1]}) ::close(descriptor);
        try {
            nvx::LightFileFactory factory("-");
            nvx::nvxSceneapi_oo layer(factory);
            std::printf("%s\n", MARKER);
            std::fflush(stdout);
            layer.begin_group("g");
            layer.end_group();
        } catch (...) {
            ::_exit(2);
        }
        ::_exit(0);
    }
    ::close(out[1]);
    ::close(err[1]);
    const std::string scene = drain(out[0]);
    const std::string stray = drain(err[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(scene,
              "//---norvex:dal:7---\n//---import:dal:1---\n//---id:1---\n// This is a Vantrel scene file\n\n"
              "#print \"Vantrel SceneApi oo 7.0.219  (built Mon Feb 27 10:39:17 2017)\"\nversion 7\n\n"
              "\ngroup \"g\" {\n}\n");
    EXPECT_EQ(stray, std::string(MARKER) + "\n");
    scenetest::SceneCapture::keepWholeFile(scene);
}

}  // namespace
