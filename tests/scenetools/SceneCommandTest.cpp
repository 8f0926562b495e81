// The subcommands of vantrel-scene as a user calls them: their output, their
// exit statuses and their usage errors.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "scenetools/SceneCommand.h"
#include "tests/scenereader/SceneBytes.h"

namespace {

// An object with one "triangles" geometry over three vertices.
SceneBytes triangleObject(const char* name, std::initializer_list<int32_t> indices) {
    SceneBytes bytes;
    bytes.text("object \"")
        .text(name)
        .text("\" {\ngeometry \"triangles\" {\n\"vertices\" [ ")
        .floats('c', {0, 0, 0, 1000, 0, 0, 0, 2000, 0})
        .text("] ,\n\"triangles\" [ ")
        .ints(indices)
        .text("] ,\n}\nmaterial \"m\" {\nsurface \"nvx_diffuse\" {\n\"diffuse\" 0.5 0.25 1,\n}\n}\n}\n");
    return bytes;
}

class SceneCommand : public testing::Test {
protected:
    void SetUp() override { std::filesystem::create_directories(directory_); }
    void TearDown() override { std::filesystem::remove_all(directory_); }

    std::string write(const std::string& name, const std::string& bytes) {
        std::string path = (directory_ / name).string();
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    int run(const std::vector<std::string>& arguments) {
        out_.str("");
        err_.str("");
        return scenetools::runSceneCommand(arguments, out_, err_);
    }

    std::filesystem::path directory_ =
        std::filesystem::temp_directory_path() / ("vantrel_scene_command_test_" + std::to_string(::getpid()));
    std::ostringstream out_;
    std::ostringstream err_;
};

TEST_F(SceneCommand, CheckPrintsSummaryAndFailsOnParseErrorsAndFailedChecks) {
    std::string good = write("good.vnz", triangleObject("a", {0, 1, 2}).str());
    EXPECT_EQ(run({"check", good}), 0);
    EXPECT_EQ(out_.str(), good +
                              ": 0 groups, 1 object, 1 triangle mesh with 1 triangle, 1 material (1 distinct), "
                              "0 cameras, 0 NURBS objects\n");
    EXPECT_EQ(err_.str(), "");

    std::string broken = write("broken.vnz", "version 7\ngroup \"g\" {\n");
    std::string failing = write("failing.vnz", triangleObject("a", {0, 1, 3}).str());
    EXPECT_EQ(run({"check", broken, good, failing, (directory_ / "missing.vnz").string()}), 1);
    EXPECT_NE(err_.str().find(broken + ": line 3, byte 22: expected \"}\" to close group \"g\""), std::string::npos);
    EXPECT_NE(err_.str().find(failing + ": object \"a\""), std::string::npos);
    EXPECT_NE(err_.str().find("could not open the scene file \"" + directory_.string() + "/missing.vnz\""),
              std::string::npos);

    EXPECT_EQ(run({"check", "--json", good, failing}), 1);
    const std::string json = out_.str();
    EXPECT_TRUE(json.starts_with("{\"file\":\"" + good +
                                 "\",\"sound\":true,\"problems\":[],\"warnings\":[],\"summary\":{\"groups\":0,"
                                 "\"objects\":1,\"triangleMeshes\":1,\"triangles\":1,"))
        << json;
    EXPECT_NE(json.find("\n{\"file\":\"" + failing + "\",\"sound\":false,\"problems\":[\"object \\\"a\\\""),
              std::string::npos)
        << json;
}

TEST_F(SceneCommand, InfoGivesScaleUpAxisBoundsInMetresAndTheTreeInWords) {
    // Millimetres with +Z up; the part is lifted 500 along Z.
    std::string scene = write(
        "tree.vnz",
        SceneBytes()
            .text("load \"nvxrtopt.so\" {\n\"import_up_vector\" 2,\n\"meter_scale\" 1000,\n}\n")
            .text("group \"asm\" {\nflags 32768\ncamera \"v\" {\nprojection \"orthographic\"\n}\ngroup \"part\" "
                  "{\nflags 66560\n")
            .text(triangleObject("a", {0, 1, 2, 2, 1, 0}).str())
            .text("object \"b\" {\ngeometry \"nurbs\" {\n}\n}\ntransform 1 0 0 0 0 1 0 0 0 0 1 0 0 0 500 1\n}\n}\n")
            .str());
    EXPECT_EQ(run({"info", "--tree", scene}), 0) << err_.str();
    EXPECT_EQ(out_.str(),
              scene +
                  ": 2 groups, 2 objects, 1 triangle mesh with 2 triangles, 1 material (1 distinct), 1 camera, "
                  "1 NURBS object\n"
                  "exact surfaces: 1\n"
                  "materials: 1 distinct in 1 block\n"
                  "cameras: 1 (\"v\")\n"
                  "animation blocks: 0\n"
                  "meter scale: 1000 units in a metre\n"
                  "up axis: +z\n"
                  "bounding box (metres, +y up): 0 0.5 -2 to 1 0.5 0, size 1 x 0 x 2\n"
                  "group \"asm\" (assembly)\n"
                  "  group \"part\" (part, exact surfaces)\n"
                  "    object \"a\": 2 triangles, material \"m\" 0.5 0.25 1\n"
                  "    1 exact surface\n"
                  "camera \"v\" (orthographic)\n");
}

TEST_F(SceneCommand, UsageErrorsExitWithTwoAndHelpWithZero) {
    std::string good = write("good.vnz", triangleObject("a", {0, 1, 2}).str());
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_TRUE(out_.str().starts_with("usage: vantrel-scene info [--tree] FILE.vnz...\n")) << out_.str();
    const std::vector<std::vector<std::string>> bad = {
        {},
        {"convert", good},
        {"check", "--bogus", good},
        {"info"},
        {"to-gltf", good},
        {"to-gltf", good, "-o", "out.obj"},
        {"to-gltf", good, good, "-o", "out.glb"},
        {"preview", good, "-o", "pic.png", "--size", "big"},
        {"preview", good, "-o", "pic.jpg"},
        {"preview", good, "-o"},
    };
    for (const auto& arguments : bad) {
        EXPECT_EQ(run(arguments), 2) << testing::PrintToString(arguments);
        EXPECT_NE(err_.str().find("usage: vantrel-scene"), std::string::npos) << testing::PrintToString(arguments);
    }
    EXPECT_EQ(run({"to-gltf", (directory_ / "missing.vnz").string(), "-o", (directory_ / "out.glb").string()}), 1);
}

}  // namespace
