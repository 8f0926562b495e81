// Shaders in the scene file writer: capture into handles, their use, and the
// stacks that save state across nesting.
#include <gtest/gtest.h>

#include <string>

#include "importers/sceneapi/GrowingStack.h"
#include "importers/sceneapi/ShaderHandle.h"
#include "tests/sceneapi/SceneCapture.h"

namespace {

using scenetest::golden;
using scenetest::SceneCapture;

const float RED[3] = {1, 0, 0};

ShaderHandle* diffuseShader(nvxScene_api& scene) {
    scene.begin_shader(nullptr, "nvx_diffuse");
    scene.set_attribute("diffuse", ATTR_FLOAT3, RED);
    scene.end_shader();
    return scene.current_shader();
}

TEST(FileWriterShaders, InlineShaderIsCapturedAndWrittenWhereAttached) {
    SceneCapture out;
    EXPECT_EQ(out->current_shader(), nullptr);
    out->set_shader(SHADER_SURFACE, nullptr);
    out->begin_object("o", true);
    out->begin_material("m", true);
    ShaderHandle* handle = diffuseShader(out.scene());
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(out.openText(), "object \"o\" {\nmaterial \"m\" {\n");
    out->set_shader(SHADER_SURFACE, handle);
    out->set_shader(SHADER_SHADOW, handle);
    out->set_shader(7, handle);
    out->set_attribute("env", ATTR_SHADER, &handle);
    out->end_material();
    out->end_object();
    EXPECT_EQ(out.text(), golden("inline_shader.txt"));
}

TEST(FileWriterShaders, ShaderAsTheParameterOfAnother) {
    SceneCapture out;
    out->begin_shader(nullptr, "texture_rgb");
    out->set_attribute("texture", ATTR_STRING, "wood.png");
    ShaderHandle* texture = out->current_shader();
    out->end_shader();
    out->begin_shader(nullptr, "nvx_advanced");
    out->set_shader_attribute("diffuse", texture);
    ShaderHandle* surface = out->current_shader();
    out->end_shader();
    EXPECT_NE(texture, surface);
    out->set_shader(SHADER_SURFACE, surface);
    EXPECT_EQ(out.text(), golden("shader_as_parameter.txt"));
}

TEST(FileWriterShaders, BinaryBlocksInsideACapturedShader) {
    SceneCapture out;
    const float values[2] = {0.25f, 4};
    const ArrayRecord record{values, 2};
    out->begin_shader(nullptr, "ramp");
    out->set_attribute("keys", ATTR_FLOAT_ARRAY, &record);
    out->set_attribute("name", ATTR_STRING, "caf\xc3\xa9");
    out->end_shader();
    ShaderHandle* handle = out->current_shader();
    EXPECT_TRUE(handle->has_binary);
    out->set_shader(SHADER_VOLUME, handle);
    out->set_shader_attribute("p", handle);
    EXPECT_EQ(out.text(), scenetest::spelledGolden("shader_with_blocks.txt"));
}

TEST(FileWriterShaders, NamedAndNumberedDefinitionsAreWrittenInPlace) {
    SceneCapture out;
    out->begin_group("g", true);
    out->begin_shader("wood", "nvx_diffuse");
    out->set_attribute("diffuse", ATTR_FLOAT3, RED);
    out->end_shader();
    out->define_shader("nvx_diffuse", 3);
    out->end_shader();
    out->set_attribute("after", ATTR_FLOAT3, RED);
    out->end_group();
    EXPECT_EQ(out.text(), golden("named_and_numbered_shaders.txt"));
}

TEST(FileWriterShaders, PushAndPopRestoreTheCurrentHandle) {
    SceneCapture out;
    ShaderHandle* first = diffuseShader(out.scene());
    out->push_shader();
    ShaderHandle* second = diffuseShader(out.scene());
    EXPECT_EQ(out->current_shader(), second);
    out->pop_shader();
    EXPECT_EQ(out->current_shader(), first);
}

TEST(FileWriterStacks, MoreThanThirtyTwoNestedLevels) {
    SceneCapture out;
    out->set_mode(0);
    std::string expected;
    const int levels = 40;
    for (int i = 0; i < levels; ++i) {
        const std::string pad(static_cast<std::size_t>(i), ' ');
        if (i % 2 == 0) {
            out->begin_group("g", true);
            expected += pad + "\n" + pad + "group \"g\" {\n";
        } else {
            out->begin_accel("a");
            expected += pad + "\n" + pad + "accel \"a\" {\n";
        }
    }
    const int one = 1;
    for (int i = levels - 1; i >= 0; --i) {
        out->begin_shader(nullptr, "s");
        out->end_shader();
        out->set_attribute("k", ATTR_INT, &one);
        const std::string inner(static_cast<std::size_t>(i + 1), ' ');
        expected += inner + (i % 2 == 0 ? "k 1\n" : "\"k\" 1,\n");
        i % 2 == 0 ? out->end_group() : out->end_accel();
        expected += std::string(static_cast<std::size_t>(i), ' ') + "}\n";
    }
    out->set_attribute("top", ATTR_INT, &one);
    expected += "\"top\" 1,\n";
    EXPECT_EQ(out.text(), expected);
}

TEST(FileWriterStacks, GrowthAndPoppingWhenEmpty) {
    GrowingStack<int> stack;
    for (int i = 1; i <= 100; ++i) stack.push(i);
    for (int i = 100; i >= 1; --i) ASSERT_EQ(stack.pop(), i);
    EXPECT_EQ(stack.pop(), 1) << "an empty stack answers its bottom slot";
    EXPECT_EQ(stack.size(), 0u);
}

// A handle grows as text comes, also from its own buffer.
TEST(FileWriterShaders, HandleGrowsWithItsText) {
    ShaderHandle handle;
    EXPECT_STREQ(handle.name, "ERROR");
    const std::string big(600, 'x');
    handle.append("abcd", 4);
    handle.append(big.data(), big.size());
    handle.append(handle.text, 4);
    EXPECT_EQ(handle.length, 608);
    EXPECT_EQ(std::string(handle.text), "abcd" + big + "abcd");
}

}  // namespace
