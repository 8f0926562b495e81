// Scenes converted to glTF and read back with the kernel's glTF reader: the
// node tree, the triangles, the positions in metres with +Y up and the
// material colours must be those of the scene.
#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <Image_AlienPixMap.hxx>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>

#include "scenereader/SceneReader.h"
#include "scenetools/GlbContainer.h"
#include "scenetools/GltfExport.h"
#include "tests/scenereader/SceneBytes.h"
#include "tests/scenetools/GltfReadBack.h"
#include "tests/toolkit/FileText.h"

namespace {

using scenetools::testing::ReadGltf;
using Point = std::array<double, 3>;

// Coordinates in centimetres with +Z up. "left" is lifted 50 along Z;
// "right" is turned a quarter about Z (X to Y, Y to -X) and moved 300 along X.
std::string twoPartScene(const std::string& texture) {
    return SceneBytes()
        .text("version 7\nload \"nvxrtopt.so\" {\n\"import_up_vector\" 2,\n\"meter_scale\" 100,\n}\n")
        .text("group \"asm\" {\nflags 32768\ngroup \"left\" {\nflags 1024\nobject \"plate\" {\n")
        .text("geometry \"triangles\" {\n\"vertices\" [ ")
        .floats('c', {0, 0, 0, 100, 0, 0, 0, 200, 0})
        .text("] ,\n\"triangles\" [ ")
        .ints({0, 1, 2})
        .text("] ,\n}\nmaterial \"red\" {\nsurface \"nvx_diffuse\" {\n\"diffuse\" 1 0 0,\n}\n}\n}\n")
        .text("transform 1 0 0 0 0 1 0 0 0 0 1 0 0 0 50 1\n}\n")
        .text("group \"right\" {\nflags 1024\nobject \"tile\" {\ngeometry \"triangles\" {\n\"vertices\" [ ")
        .floats('c', {0, 0, 0, 100, 0, 0, 100, 100, 0, 0, 100, 0})
        .text("] ,\n\"normals\" [ ")
        .floats('c', {0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1})
        .text("] ,\n\"uv_tex\" [ ")
        .floats('f', {0, 0, 1, 0, 1, 1, 0, 1})
        .text("] ,\n\"triangles\" [ ")
        .ints({0, 1, 2, 0, 2, 3})
        .text("] ,\n}\nmaterial \"wood\" {\nsurface \"nvx_advanced\" {\n\"diffuse\" 0.6 0.4 0.2,\n")
        .text("\"diffuse\" ! \"texture_rgb\" {\n\"project\" 3,\n\"wrap\" on,\n\"default_color\" 0 0 0,\n\"texture\" \"")
        .text(texture)
        .text("\",\n},\n}\n}\n}\n")
        .text("transform 0 1 0 0 -1 0 0 0 0 0 1 0 300 0 0 1\n}\n}\n")
        .str();
}

class GltfRoundTrip : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_ / "textures");
        Image_AlienPixMap image;
        ASSERT_TRUE(image.InitZero(Image_Format_RGB, 2, 2));
        ASSERT_TRUE(image.Save(TCollection_AsciiString((folder_ / "textures" / "wood.png").string().c_str())));
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path write(const std::string& name, const std::string& bytes) {
        std::ofstream(folder_ / name, std::ios::binary) << bytes;
        return folder_ / name;
    }

    // Converts the scene and reads the result back.
    ReadGltf convert(const std::string& bytes) {
        const std::filesystem::path scene = write("scene.vnz", bytes);
        output_ = folder_ / (std::string("out") + GetParam());
        scenetools::writeGltf(scenetools::buildScene(scenereader::readSceneFile(scene.string())), folder_, output_);
        return scenetools::testing::readGltf(output_);
    }

    std::string json() const {
        const std::string bytes = testsupport::fileText(output_);
        return output_.extension() == ".glb" ? scenetools::splitGlb(bytes).json : bytes;
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("vantrel_gltf_round_trip_" + std::to_string(::getpid()));
    std::filesystem::path output_;
};

void expectPositions(const std::vector<Point>& actual, const std::vector<Point>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t i = 0; i < actual.size(); ++i) {
        for (int k = 0; k < 3; ++k) EXPECT_NEAR(actual[i][k], expected[i][k], 1e-6) << "vertex " << i << " axis " << k;
    }
}

TEST_P(GltfRoundTrip, TreeTrianglesPositionsInMetresUprightAndColoursSurvive) {
    const ReadGltf read = convert(twoPartScene("textures/wood.png"));
    EXPECT_EQ(read.tree, "asm\n  left\n    plate\n  right\n    tile\n");
    ASSERT_EQ(read.meshes.size(), 2u);
    EXPECT_EQ(read.meshes[0].triangles, 1u);
    EXPECT_EQ(read.meshes[1].triangles, 2u);
    // (x, y, z) in centimetres, +Z up, is (x, z, -y) / 100 in metres, +Y up.
    expectPositions(read.meshes[0].positions, {{0, 0.5, 0}, {1, 0.5, 0}, {0, 0.5, -2}});
    expectPositions(read.meshes[1].positions, {{3, 0, 0}, {3, 0, -1}, {2, 0, -1}, {2, 0, 0}});
    const Point red{1, 0, 0}, wood{0.6, 0.4, 0.2};
    for (int k = 0; k < 3; ++k) {
        EXPECT_NEAR(read.meshes[0].baseColour[k], red[k], 1e-6);
        EXPECT_NEAR(read.meshes[1].baseColour[k], wood[k], 1e-6);
    }
    EXPECT_FALSE(read.meshes[0].textured);
    EXPECT_TRUE(read.meshes[1].textured);
}

TEST_P(GltfRoundTrip, TextureThatIsNotFoundIsLeftOutAndTheColourStays) {
    const ReadGltf read = convert(twoPartScene("textures/missing.png"));
    ASSERT_EQ(read.meshes.size(), 2u);
    EXPECT_FALSE(read.meshes[1].textured);
    EXPECT_NEAR(read.meshes[1].baseColour[0], 0.6, 1e-6);
}

TEST_P(GltfRoundTrip, ExactSurfacesAreLeftOutWithANoteAndCamerasBecomeGltfCameras) {
    const ReadGltf read = convert(
        SceneBytes()
            .text("group \"m\" {\ncamera \"TOP\" {\nposition 0 0 2000\ndirection 0 0 -1\nup 0 1 0\n")
            .text("projection \"orthographic\"\ntransform 1 0 0 0 0 0 -1 0 0 1 0 0 0 0 0 1\n}\n")
            .text(
                "group \"p\" {\nobject \"p\" {\ngeometry \"nurbs\" {\n}\n}\nobject \"p\" {\ngeometry \"triangles\" {\n")
            .text("\"vertices\" [ ")
            .floats('c', {0, 0, 0, 1, 0, 0, 0, 1, 0})
            .text("] ,\n\"triangles\" [ ")
            .ints({0, 1, 2})
            .text("] ,\n}\n}\n}\n}\n")
            .str());
    EXPECT_EQ(read.tree, "m\n  p\n    p\n");
    rapidjson::Document document;
    document.Parse(json().c_str());
    ASSERT_TRUE(document.IsObject());
    const auto& extras = document["asset"]["extras"];
    ASSERT_TRUE(extras.HasMember("note"));
    EXPECT_NE(std::string(extras["note"].GetString()).find("1 exact (NURBS) surfaces"), std::string::npos);
    ASSERT_TRUE(document.HasMember("cameras"));
    ASSERT_EQ(document["cameras"].Size(), 1u);
    EXPECT_STREQ(document["cameras"][0]["type"].GetString(), "orthographic");
    // The top view looks down -Y with -Z up: a quarter turn about X, backwards.
    const auto& nodes = document["nodes"];
    const auto& camera = nodes[nodes.Size() - 1];
    ASSERT_TRUE(camera.HasMember("camera"));
    const double sign = camera["rotation"][3].GetDouble() < 0 ? -1 : 1;
    const double expected[4] = {-std::sqrt(0.5), 0, 0, std::sqrt(0.5)};
    for (unsigned k = 0; k < 4; ++k) EXPECT_NEAR(sign * camera["rotation"][k].GetDouble(), expected[k], 1e-9) << k;
    EXPECT_NEAR(camera["translation"][0].GetDouble(), 0.5, 1e-9);  // above the triangle's box centre
    EXPECT_NEAR(camera["translation"][2].GetDouble(), 0.0, 1e-9);
}

// The accessor's floats, read from the binary data of buffer 0.
std::vector<float> accessorFloats(const rapidjson::Document& document, const std::string& bin, unsigned index) {
    const auto& accessor = document["accessors"][index];
    const auto& view = document["bufferViews"][accessor["bufferView"].GetUint()];
    const size_t width = std::string(accessor["type"].GetString()) == "SCALAR" ? 1
                         : std::string(accessor["type"].GetString()) == "VEC3" ? 3
                                                                               : 4;
    std::vector<float> values(accessor["count"].GetUint() * width);
    const size_t offset = view["byteOffset"].GetUint() + accessor["byteOffset"].GetUint();
    EXPECT_LE(offset + values.size() * sizeof(float), bin.size());
    if (offset + values.size() * sizeof(float) <= bin.size()) {
        std::memcpy(values.data(), bin.data() + offset, values.size() * sizeof(float));
    }
    return values;
}

TEST_P(GltfRoundTrip, AnimationBlockBecomesTranslationRotationAndScaleSamplersInSeconds) {
    // Centimetres, +Z up. The group stands 50 up; frame 1 moves it 100 along
    // X and turns it a quarter about Z (X to Y, Y to -X) first.
    const std::string scene =
        SceneBytes()
            .text("version 7\nload \"nvxrtopt.so\" {\n\"import_up_vector\" 2,\n\"meter_scale\" 100,\n}\n")
            .text("group \"asm\" {\ngroup \"arm\" {\nobject \"arm\" {\ngeometry \"triangles\" {\n\"vertices\" [ ")
            .floats('c', {0, 0, 0, 1, 0, 0, 0, 1, 0})
            .text("] ,\n\"triangles\" [ ")
            .ints({0, 1, 2})
            .text("] ,\n}\n}\nanimation \"fbx_animation\" \"arm\" {\n\"start_time\" 0,\n\"duration\" 0.08,\n")
            .text("\"folder\" \"Creo animation\",\n\"matrices\" [\n1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1, ")
            .text("0 1 0 0 -1 0 0 0 0 0 1 0 100 0 0 1 ],\n\"timestamps\" [\n0, 40 ],\n}\n")
            .text("transform 1 0 0 0 0 1 0 0 0 0 1 0 0 0 50 1\n}\n}\n")
            .str();
    const ReadGltf read = convert(scene);
    EXPECT_EQ(read.tree, "asm\n  arm\n    arm\n");
    const std::string bytes = testsupport::fileText(output_);
    rapidjson::Document document;
    std::string bin;
    if (output_.extension() == ".glb") {
        const scenetools::GlbChunks chunks = scenetools::splitGlb(bytes);
        document.Parse(chunks.json.c_str());
        bin = chunks.bin;
    } else {
        document.Parse(bytes.c_str());
        bin = testsupport::fileText(folder_ / document["buffers"][0]["uri"].GetString());
    }
    ASSERT_TRUE(document.HasMember("animations"));
    ASSERT_EQ(document["animations"].Size(), 1u);
    const auto& animation = document["animations"][0];
    ASSERT_EQ(animation["channels"].Size(), 3u);
    const unsigned node = animation["channels"][0]["target"]["node"].GetUint();
    EXPECT_STREQ(document["nodes"][node]["name"].GetString(), "arm");
    EXPECT_EQ(document["buffers"][0]["byteLength"].GetUint(), bin.size());
    std::map<std::string, std::vector<float>> outputs;
    std::vector<float> times;
    for (const auto& channel : animation["channels"].GetArray()) {
        const auto& sampler = animation["samplers"][channel["sampler"].GetUint()];
        times = accessorFloats(document, bin, sampler["input"].GetUint());
        outputs[channel["target"]["path"].GetString()] = accessorFloats(document, bin, sampler["output"].GetUint());
    }
    EXPECT_EQ(times, (std::vector<float>{0.0f, 0.04f}));
    // Frame 0: (0, 0, 50) cm is (0, 0.5, 0) m with +Y up; frame 1: (100, 0, 50) cm is (1, 0.5, 0) m.
    const std::vector<float> translations{0, 0.5f, 0, 1, 0.5f, 0};
    ASSERT_EQ(outputs["translation"].size(), 6u);
    for (size_t i = 0; i < 6; ++i) EXPECT_NEAR(outputs["translation"][i], translations[i], 1e-6) << i;
    // A quarter about the scene's Z is a quarter about glTF's Y: (0, sin 45, 0, cos 45).
    const std::vector<float> rotations{0, 0, 0, 1, 0, std::sqrt(0.5f), 0, std::sqrt(0.5f)};
    ASSERT_EQ(outputs["rotation"].size(), 8u);
    for (size_t i = 0; i < 8; ++i) EXPECT_NEAR(outputs["rotation"][i], rotations[i], 1e-6) << i;
    ASSERT_EQ(outputs["scale"].size(), 6u);
    for (float scale : outputs["scale"]) EXPECT_NEAR(scale, 1, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(BinaryAndText, GltfRoundTrip, testing::Values(".glb", ".gltf"),
                         [](const auto& info) { return std::string(info.param + 1); });

}  // namespace
