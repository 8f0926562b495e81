#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#include "scenereader/SceneCheckTool.h"
#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"
#include "tests/scenereader/SceneBytes.h"

namespace {

// An object with one "triangles" geometry over three vertices.
SceneBytes triangleObject(const char* name, std::initializer_list<int32_t> indices, std::initializer_list<float> normals) {
    SceneBytes bytes;
    bytes.text("object \"").text(name).text("\" {\ngeometry \"triangles\" {\n\"vertices\" [ ")
        .floats('c', {0, 0, 0, 1, 0, 0, 0, 1, 0}).text("] ,\n\"normals\" [ ").floats('c', normals)
        .text("] ,\n\"uv_tex\" [ ").floats('f', {0, 0, 1, 0, 0, 1}).text("] ,\n\"triangles\" [ ").ints(indices)
        .text("] ,\n}\n}\n");
    return bytes;
}

const std::initializer_list<float> threeNormals{0, 0, 1, 0, 0, 1, 0, 0, 1};

std::vector<std::string> problemsOf(const std::string& bytes) {
    return scenereader::checkScene(scenereader::parseScene(bytes));
}

bool mentions(const std::vector<std::string>& problems, std::string_view text) {
    for (const std::string& problem : problems) {
        if (problem.find(text) != std::string::npos) return true;
    }
    return false;
}

TEST(SceneChecks, SoundMeshesPassInBinaryAndTextForm) {
    EXPECT_EQ(problemsOf(triangleObject("a", {0, 1, 2}, threeNormals).str()), std::vector<std::string>{});
    EXPECT_EQ(problemsOf("object \"t\" {\ngeometry \"triangles\" {\n\"vertices\" [ 0 0 0,1 0 0,0 1 0 ] ,\n"
                         "\"triangles\" [ 2,1,0 ] ,\n}\n}\n"),
              std::vector<std::string>{});
}

TEST(SceneChecks, IndexEqualToTheVertexCountIsCaught) {
    auto problems = problemsOf(triangleObject("a", {0, 1, 3}, threeNormals).str());
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0], "object \"a\" / geometry \"triangles\" at line 2: \"triangles\" index 3 at position 2 "
                           "is not a vertex: the vertex count is 3");
}

TEST(SceneChecks, NormalsCountMismatchIsCaught) {
    auto problems = problemsOf(triangleObject("a", {0, 1, 2}, {0, 0, 1, 0, 0, 1}).str());
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_NE(problems[0].find("\"normals\" holds 2 normals for 3 vertices"), std::string::npos);
}

TEST(SceneChecks, BadShapesAndValuesAreCaught) {
    EXPECT_TRUE(mentions(problemsOf(triangleObject("a", {0, 1, -1, 2}, threeNormals).str()),
                         "\"triangles\" holds 4 indices, not a multiple of 3"));
    EXPECT_TRUE(mentions(problemsOf(triangleObject("a", {0, 1, -1}, threeNormals).str()), "index -1 at position 2"));
    EXPECT_TRUE(mentions(problemsOf(triangleObject("a", {0, 1, 2}, {0, 0, std::numeric_limits<float>::infinity(),
                                                                   0, 0, 1, 0, 0, 1}).str()),
                         "\"normals\" value 2 is inf, not a finite number"));
    auto wrongKinds = problemsOf(SceneBytes()
        .text("geometry \"triangles\" {\n\"vertices\" [ ").floats('f', {0, 0, 0}).text("] ,\n\"uv_tex\" 1,\n}\n").str());
    EXPECT_TRUE(mentions(wrongKinds, "\"vertices\" at line 2 is not an array of float triples"));
    EXPECT_TRUE(mentions(wrongKinds, "\"uv_tex\" at line 3 is not an array of floats"));
    EXPECT_TRUE(mentions(wrongKinds, "\"triangles\" is missing"));
    EXPECT_TRUE(mentions(problemsOf("geometry \"triangles\" {\n\"triangles\" [ ] ,\n}\n"), "\"vertices\" is missing"));
    EXPECT_TRUE(mentions(problemsOf("camera {\nfov nan\n}\n"), "line 2: \"fov\" holds the number \"nan\""));
}

TEST(SceneSummary, CountsBlocksAndTriangles) {
    std::string scene = SceneBytes()
        .text("group \"asm\" {\n\ncamera \"v\" {\nfov 60\n}\ngroup \"part\" {\n")
        .text(triangleObject("a", {0, 1, 2, 2, 1, 0}, threeNormals).str())
        .text("object \"b\" {\ngeometry \"nurbs\" {\n}\nmaterial \"m\" {\n}\nmaterial \"n\" {\n}\nmaterial \"m\" {\n}\n}\n")
        .text(triangleObject("c", {0, 1, 2}, threeNormals).str()).text("}\n}\n").str();
    scenereader::SceneSummary summary = scenereader::summarize(scenereader::parseScene(scene));
    EXPECT_EQ(summary.groups, 2u);
    EXPECT_EQ(summary.objects, 3u);
    EXPECT_EQ(summary.triangleMeshes, 2u);
    EXPECT_EQ(summary.triangles, 3u);
    EXPECT_EQ(summary.materials, 3u);
    EXPECT_EQ(summary.distinctMaterials, 2u);
    EXPECT_EQ(summary.cameras, 1u);
    EXPECT_EQ(summary.nurbsObjects, 1u);
    EXPECT_EQ(scenereader::describeSummary(summary), "2 groups, 3 objects, 2 triangle meshes with 3 triangles, "
                                                     "3 materials (2 distinct), 1 camera, 1 NURBS object");
}

class SceneCheckTool : public testing::Test {
protected:
    void SetUp() override { std::filesystem::create_directories(directory_); }
    void TearDown() override { std::filesystem::remove_all(directory_); }

    std::string write(const std::string& name, const std::string& bytes) {
        std::string path = (directory_ / name).string();
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    int run(const std::vector<std::string>& files) { return scenereader::runSceneCheck(files, out_, err_); }

    std::filesystem::path directory_ = std::filesystem::temp_directory_path() / "vantrel_scene_check_test";
    std::ostringstream out_;
    std::ostringstream err_;
};

TEST_F(SceneCheckTool, PrintsSummaryAndFailsOnParseErrorsAndFailedChecks) {
    std::string good = write("good.vnz", triangleObject("a", {0, 1, 2}, threeNormals).str());
    EXPECT_EQ(run({good}), 0);
    EXPECT_EQ(out_.str(), good + ": 0 groups, 1 object, 1 triangle mesh with 1 triangle, 0 materials, "
                                 "0 cameras, 0 NURBS objects\n");
    EXPECT_EQ(err_.str(), "");

    std::string broken = write("broken.vnz", "version 7\ngroup \"g\" {\n");
    std::string failing = write("failing.vnz", triangleObject("a", {0, 1, 3}, threeNormals).str());
    EXPECT_EQ(run({broken, good, failing, (directory_ / "missing.vnz").string()}), 1);
    EXPECT_NE(err_.str().find(broken + ": line 3, byte 22: expected \"}\" to close group \"g\""), std::string::npos);
    EXPECT_NE(err_.str().find(failing + ": object \"a\""), std::string::npos);
    EXPECT_NE(err_.str().find("could not open the scene file \"" + directory_.string() + "/missing.vnz\""),
              std::string::npos);
    EXPECT_EQ(run({}), 2);
}

TEST_F(SceneCheckTool, ListsTheTreeAndItsUsageWhenAsked) {
    std::string scene = write("tree.vnz", SceneBytes()
        .text("group \"asm\" {\ncamera \"v\" {\nfov 60\n}\ngroup \"part\" {\n")
        .text(triangleObject("a", {0, 1, 2, 2, 1, 0}, threeNormals).str())
        .text("object \"b\" {\ngeometry \"nurbs\" {\n}\nmaterial \"m\" {\n}\n}\n}\n}\n").str());
    EXPECT_EQ(run({"--tree", scene}), 0) << err_.str();
    const std::string listing = out_.str();
    EXPECT_EQ(listing.substr(listing.find('\n') + 1),
              "group \"asm\"\n"
              "  camera \"v\"\n"
              "  group \"part\"\n"
              "    object \"a\"\n"
              "      mesh: 2 triangles\n"
              "    object \"b\"\n"
              "      NURBS\n"
              "      material \"m\"\n");
    out_.str("");
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_TRUE(out_.str().starts_with("usage: vantrel-scene-check [--tree] FILE...\n")) << out_.str();
    EXPECT_EQ(run({"--bogus", scene}), 2);
}

}  // namespace
