// The statements of the scene file writer, byte for byte.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>

#include "tests/sceneapi/SceneCapture.h"

namespace {

using scenetest::golden;
using scenetest::SceneCapture;

const int FIVE = 5;

TEST(FileWriterBlocks, GroupsAndObjectsSwitchToKeywordFormAndBack) {
    SceneCapture out;
    out->set_attribute("top", ATTR_INT, &FIVE);
    EXPECT_TRUE(out->begin_group("g", true));
    out->set_attribute("in_group", ATTR_INT, &FIVE);
    out->begin_group("d", false);
    out->end_group();
    EXPECT_TRUE(out->begin_object("o", true));
    out->begin_geometry("triangles");
    out->set_attribute("in_geometry", ATTR_INT, &FIVE);
    out->end_geometry();
    out->set_attribute("in_object", ATTR_INT, &FIVE);
    out->end_object();
    out->begin_object("def", false);
    out->end_object();
    out->end_group();
    out->set_attribute("after", ATTR_INT, &FIVE);
    EXPECT_EQ(out.text(), golden("groups_and_objects.txt"));
}

TEST(FileWriterBlocks, AnimationLoadLightAccelOutputMatrixMaterial) {
    SceneCapture out;
    out->begin_group("g", true);
    out->begin_animation("fbx_animation", "walk");
    out->set_attribute("start_time", ATTR_INT, &FIVE);
    out->end_animation();
    out->begin_load("nvxrtopt.so");
    out->set_attribute("inherits", ATTR_INT, &FIVE);
    out->end_load();
    out->begin_light("sun");
    out->end_light();
    out->begin_accel("bvh");
    out->set_attribute("a", ATTR_INT, &FIVE);
    out->end_accel();
    out->begin_output("rgba", "png", "out.png");
    out->set_attribute("b", ATTR_INT, &FIVE);
    out->end_output();
    out->begin_matrix("m");
    out->end_matrix();
    out->begin_material("inline", true);
    out->end_material();
    out->begin_material("defined", false);
    out->end_material();
    EXPECT_TRUE(out->use_material("defined"));
    out->set_attribute("c", ATTR_INT, &FIVE);
    out->end_group();
    EXPECT_EQ(out.text(), golden("blocks_in_a_group.txt"));
}

TEST(FileWriterBlocks, TopLevelBlocksAreRefusedWhileAnotherIsOpen) {
    SceneCapture out;
    out->begin_object("o", true);
    EXPECT_FALSE(out->begin_camera("c"));
    EXPECT_FALSE(out->begin_options());
    EXPECT_FALSE(out->begin_image());
    EXPECT_FALSE(out->modify_camera("c"));
    out->end_object();
    EXPECT_TRUE(out->begin_camera("c"));
    out->set_attribute("fov", ATTR_INT, &FIVE);
    EXPECT_FALSE(out->begin_camera("second"));
    out->end_camera();
    out->end_camera();
    EXPECT_TRUE(out->begin_camera(nullptr));
    out->end_camera();
    EXPECT_TRUE(out->begin_options());
    out->end_options();
    EXPECT_TRUE(out->begin_image());
    out->end_image();
    EXPECT_TRUE(out->modify_camera("m"));
    out->end_camera();
    EXPECT_EQ(out.text(), golden("top_level_blocks.txt"));
}

TEST(FileWriterBlocks, EndOptionsWithNothingOpenOnlyResetsTheForm) {
    SceneCapture out;
    out->begin_group("g", true);
    out->end_options();
    out->set_attribute("a", ATTR_INT, &FIVE);
    out->end_group();
    EXPECT_EQ(out.text(), "\ngroup \"g\" {\n\"a\" 5,\n}\n");
}

TEST(FileWriterStatements, TransformsNarrowMatrixValuesToFloat) {
    SceneCapture out;
    const double m[16] = {1e39, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0.1, 2.5, -3, 1};
    out->apply_transform(m);
    out->set_transform(m);
    out->scale(1.5, 2, 3);
    out->rotate(0, 90, 0);
    out->translate(1e39, 0, -0.25);
    EXPECT_EQ(out.text(), golden("transforms.txt"));
}

TEST(FileWriterStatements, OneLineStatements) {
    SceneCapture out;
    const unsigned char icon[] = {0x01, 0xab, 0x0a};
    out->declare_attribute("float", "x");
    out->write_text("// %d-%s\n", 3, "x");
    out->set_version(7);
    out->set_version(~0u);
    out->progress("half", 0.5f);
    out->set_icon(icon, 3);
    out->set_blob_attribute("blob", icon, 2);
    out->set_id(5);
    out->set_flags(66560);
    EXPECT_TRUE(out->render());
    out->print_message("hello");
    out->print_error("100%% wrong");
    out->set_shader_id(SHADER_SURFACE, 4);
    out->set_shader_id(SHADER_REFLECTION_MAP, 2);
    out->set_shader_id(7, 5);
    out->set_shader_attribute_id("diffuse", 4);
    EXPECT_EQ(out.text(), golden("one_line_statements.txt"));
}

TEST(FileWriterQuoting, PlainAndHexForms) {
    SceneCapture out;
    for (const char* text : {"a", "", "back\\slash", "say \"hi\"", "caf\xc3\xa9", "two\nlines", "cr\r"}) {
        out->set_attribute(text, ATTR_STRING, text);
    }
    EXPECT_EQ(out.text(), golden("quoting.txt"));
}

TEST(FileWriterIndentation, DepthShowsOnlyWhenTheModeAllowsIt) {
    SceneCapture out;
    out->set_mode(0);
    out->begin_group("g", true);
    out->set_attribute("a", ATTR_INT, &FIVE);
    out->begin_array("t");
    out->add_array_value(ATTR_INT, &FIVE);
    out->end_array();
    out->end_group();
    EXPECT_EQ(out.text(), "\ngroup \"g\" {\n a 5\n \"t\" [\n  5 ],\n}\n");
}

// An inline shader is captured from depth 0 and takes the depth of the
// material where it is attached.
TEST(FileWriterIndentation, ShaderInAMaterialInAGroup) {
    SceneCapture out;
    out->set_mode(0);
    out->begin_group("g", true);
    out->begin_material("m", true);
    out->begin_shader(nullptr, "nvx_diffuse");
    const float colour[3] = {1, 0.5f, 0.25f};
    out->set_attribute("diffuse", ATTR_FLOAT3, colour);
    out->end_shader();
    out->set_shader(SHADER_SURFACE, out->current_shader());
    out->end_material();
    out->end_group();
    EXPECT_EQ(out.text(), "\ngroup \"g\" {\n material \"m\" {\n  surface   \"nvx_diffuse\" {\n"
                          "   \"diffuse\" 1 0.5 0.25,\n  }\n }\n}\n");
}

TEST(FileWriterFailures, NoStreamWritesNothingAndShortWritesAreRemembered) {
    nvxScene_api_file silent(nullptr, true);
    const float values[3] = {1, 2, 3};
    const ArrayRecord triples{values, 1};
    silent.begin_group("g", true);
    silent.set_attribute("v", ATTR_FLOAT3_ARRAY, &triples);
    silent.end_group();
    EXPECT_FALSE(silent.any_write_failed());

    FILE* readOnly = std::fopen("/dev/null", "r");
    ASSERT_NE(readOnly, nullptr);
    {
        nvxScene_api_file writer(readOnly, true);
        EXPECT_FALSE(writer.any_write_failed());
        writer.set_attribute("v", ATTR_FLOAT3_ARRAY, &triples);
        EXPECT_TRUE(writer.any_write_failed());
    }
    std::fclose(readOnly);
}

// The writer switches numbers to the "C" locale and leaves it so: what it
// restores is the name it got back when switching, which is "C" itself.
TEST(FileWriterLocale, NumericLocaleStaysCAfterTheWriter) {
#ifdef _WIN32
    const char* other = "German_Germany.1252";
#else
    const char* other = "C.utf8";
#endif
    ASSERT_NE(std::setlocale(LC_NUMERIC, other), nullptr) << other;
    {
        SceneCapture out;
        EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    }
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

}  // namespace
