#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "scenereader/SceneReader.h"
#include "tests/scenereader/SceneBytes.h"

namespace {

using scenereader::Block;
using scenereader::Statement;
using scenereader::StringForm;
using scenereader::Value;
using scenereader::ValueKind;

// The one value of a statement that must exist.
const Value& soleValue(const Block& block, std::string_view name) {
    const Statement* statement = block.statement(name);
    if (!statement || statement->values.size() != 1) throw std::runtime_error("no single value for " + std::string(name));
    return statement->values.front();
}

std::vector<std::string> texts(const std::vector<Value>& values) {
    std::vector<std::string> result;
    for (const Value& value : values) result.push_back(value.text);
    return result;
}

TEST(SceneReader, HeaderMessagesVersionProgressAndLoadBlock) {
    auto document = scenereader::parseScene(
        "//---norvex:dal:7---\n//---import:dal:1---\n//---id:1---\n// This is a Vantrel scene file\n\n"
        "#print \"Vantrel SceneApi oo 7.0.219  (built Mon Feb 27 10:39:17 2017)\"\n"
        "#error \"50% \"done\"\"\n"
        "version 7\n\n"
        "progress \"Loading\" 0.500\n\n"
        "load \"nvxrtopt.so\" {\n\"import_mode\" on,\n\"import_up_vector\" 0,\n\"meter_scale\" 0.001,\n}\n");
    EXPECT_EQ(document.comments, (std::vector<std::string>{"//---norvex:dal:7---", "//---import:dal:1---",
                                                           "//---id:1---", "// This is a Vantrel scene file"}));
    const Block& root = document.root;
    EXPECT_EQ(soleValue(root, "#print").text, "Vantrel SceneApi oo 7.0.219  (built Mon Feb 27 10:39:17 2017)");
    EXPECT_EQ(soleValue(root, "#error").text, "50% \"done\"");
    EXPECT_EQ(root.statement("version")->numbers(), std::vector<double>{7});
    const Statement* progress = root.statement("progress");
    ASSERT_EQ(progress->values.size(), 2u);
    EXPECT_EQ(progress->values[0].text, "Loading");
    EXPECT_EQ(progress->values[1].text, "0.500");
    EXPECT_EQ(progress->line, 10u);
    const Block* load = root.child("load");
    ASSERT_NE(load, nullptr);
    EXPECT_EQ(load->names, std::vector<std::string>{"nvxrtopt.so"});
    EXPECT_TRUE(load->statement("import_mode")->quotedName);
    EXPECT_EQ(soleValue(*load, "import_mode").kind, ValueKind::Word);
    EXPECT_EQ(soleValue(*load, "meter_scale").number, 0.001);
    EXPECT_EQ(load->line, 12u);
}

TEST(SceneReader, EveryBlockKindPlainAndDefinedAndNested) {
    auto document = scenereader::parseScene(
        "\n#define group \"lib\" {\n}\n"
        "\ngroup \"asm\" {\nflags 32768\nid 4\n"
        "#define object \"proto\" {\n}\n"
        "object \"part\" {\ngeometry \"instance\" {\n\"id\" 3,\n}\n}\n"
        "animation \"fbx_animation\" \"anim\" {\n}\n"
        "#define matrix \"m\" {\n}\n"
        "\n#define material \"mat\" {\n}\n"
        "#define shader \"red\" \"nvx_diffuse\" {\n\"diffuse\" 1 0 0,\n}\n"
        "#define shader 3 nvx_advanced {\n}\n"
        "\naccel \"bvh\" {\n}\n\nlight \"sun\" {\n}\n"
        "transform 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1\n"
        "set transform 2 0 0 0 0 2 0 0 0 0 2 0 0 0 0 1\n"
        "scale 1 2 3\nrotate 0 90 0\ntranslate -1 0.5 1e+38\n}\n"
        "\noptions {\n}\n\nimage {\noutput \"a\" \"b\" \"c\" {\n}\n}\n");
    const Block& root = document.root;
    EXPECT_TRUE(root.child("group")->defined);
    const Block* assembly = root.children("group").at(1);
    EXPECT_FALSE(assembly->defined);
    EXPECT_EQ(assembly->name(), "asm");
    EXPECT_EQ(assembly->statement("flags")->numbers(), std::vector<double>{32768});
    EXPECT_EQ(assembly->statement("id")->numbers(), std::vector<double>{4});
    auto objects = assembly->children("object");
    ASSERT_EQ(objects.size(), 2u);
    EXPECT_TRUE(objects[0]->defined);
    EXPECT_EQ(soleValue(*objects[1]->child("geometry"), "id").number, 3);
    EXPECT_EQ(assembly->child("animation")->names, (std::vector<std::string>{"fbx_animation", "anim"}));
    EXPECT_TRUE(assembly->child("matrix")->defined);
    EXPECT_TRUE(assembly->child("material")->defined);
    auto shaders = assembly->children("shader");
    ASSERT_EQ(shaders.size(), 2u);
    EXPECT_EQ(shaders[0]->names, (std::vector<std::string>{"red", "nvx_diffuse"}));
    EXPECT_EQ(shaders[0]->statement("diffuse")->numbers(), (std::vector<double>{1, 0, 0}));
    EXPECT_EQ(shaders[1]->names, (std::vector<std::string>{"3", "nvx_advanced"}));
    EXPECT_EQ(assembly->child("accel")->name(), "bvh");
    EXPECT_EQ(assembly->child("light")->name(), "sun");
    EXPECT_EQ(assembly->statement("transform")->numbers().size(), 16u);
    EXPECT_EQ(assembly->statement("set transform")->numbers()[0], 2);
    EXPECT_EQ(assembly->statement("translate")->numbers(), (std::vector<double>{-1, 0.5, 1e38}));
    EXPECT_NE(root.child("options"), nullptr);
    EXPECT_EQ(root.child("image")->child("output")->names, (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(root.descendants("object").size(), 2u);
}

TEST(SceneReader, StringsInQuotedHexAndByteForms) {
    auto document = scenereader::parseScene(
        "group xX6772c3bc6e {\n"
        "\"path\" \"C:\\dir\\a.png\",\n\"empty\" \"\",\nxX612262 xX0a,\n"
        "icon bX0001ff\nthumbnail bX\n}\n");
    const Block* group = document.root.child("group");
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->name(), "gr\xc3\xbcn");
    EXPECT_EQ(soleValue(*group, "path").text, "C:\\dir\\a.png");
    EXPECT_EQ(soleValue(*group, "empty").text, "");
    const Value& quoteBearing = soleValue(*group, "a\"b");
    EXPECT_EQ(quoteBearing.text, "\n");
    EXPECT_EQ(quoteBearing.form, StringForm::Hex);
    const Value& icon = soleValue(*group, "icon");
    EXPECT_EQ(icon.form, StringForm::Bytes);
    EXPECT_EQ(icon.text, std::string("\x00\x01\xff", 3));
    EXPECT_EQ(soleValue(*group, "thumbnail").text, "");
}

TEST(SceneReader, KeywordStatementsTakeWordsAsTheNameAndOnOffAsValue) {
    auto document = scenereader::parseScene(
        "material \"steel\" {\n// assuming surface shader\nsurface  3\nreflection map 2\nfresnel off\n}\n"
        "object \"o\" {\nmaterial \"steel\"\nattribute \"float\" \"weight\"\ninvisible on\n}\nrender\n");
    const Block* material = document.root.child("material");
    ASSERT_NE(material, nullptr);
    const auto& comment = std::get<Statement>(material->items.front());
    EXPECT_TRUE(comment.comment);
    EXPECT_EQ(comment.name, "// assuming surface shader");
    EXPECT_EQ(material->statement("surface")->numbers(), std::vector<double>{3});
    EXPECT_EQ(material->statement("reflection map")->numbers(), std::vector<double>{2});
    EXPECT_EQ(soleValue(*material, "fresnel").text, "off");
    const Block* object = document.root.child("object");
    EXPECT_EQ(soleValue(*object, "material").text, "steel");
    EXPECT_EQ(texts(object->statement("attribute")->values), (std::vector<std::string>{"float", "weight"}));
    EXPECT_EQ(soleValue(*object, "invisible").kind, ValueKind::Word);
    EXPECT_TRUE(document.root.statement("render")->values.empty());
}

TEST(SceneReader, TextArraysOfScalarsTriplesMatricesAndStrings) {
    auto document = scenereader::parseScene(
        "\"empty\" [ ] ,\n"
        "\"ints\" [ 0,1,2,3,4,5,6,7,8,\n9 ] ,\n"
        "\"triples\" [ 1 2 3,4 5 6 ] ,\n"
        "\"matrices\" [ 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 ,\n2 0 0 0 0 2 0 0 0 0 2 0 0 0 0 2 \n] ,\n"
        "\"names\" [ \"a\",\n\"\" \n] ,\n"
        "keyword [ 1,2 ] \n");
    const Block& root = document.root;
    EXPECT_EQ(soleValue(root, "empty").kind, ValueKind::TextArray);
    EXPECT_TRUE(soleValue(root, "empty").items.empty());
    EXPECT_EQ(texts(soleValue(root, "ints").items),
              (std::vector<std::string>{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}));
    const Value& triples = soleValue(root, "triples");
    ASSERT_EQ(triples.items.size(), 2u);
    EXPECT_EQ(triples.items[1].kind, ValueKind::Tuple);
    EXPECT_EQ(texts(triples.items[1].items), (std::vector<std::string>{"4", "5", "6"}));
    const Value& matrices = soleValue(root, "matrices");
    ASSERT_EQ(matrices.items.size(), 2u);
    EXPECT_EQ(matrices.items[1].items.size(), 16u);
    EXPECT_EQ(matrices.items[1].items[15].number, 2);
    EXPECT_EQ(texts(soleValue(root, "names").items), (std::vector<std::string>{"a", ""}));
    EXPECT_EQ(soleValue(root, "keyword").items.size(), 2u);
}

TEST(SceneReader, BinaryBlocksAreReadByTheirCountWhateverBytesTheyHold) {
    // 0x205d0a0a is stored as the bytes "\n\n] ": a line feed and a closing bracket inside the data.
    const auto tricky = std::bit_cast<float>(uint32_t{0x205d0a0a});
    const auto quietNan = std::bit_cast<float>(uint32_t{0x7fc00123});
    auto document = scenereader::parseScene(SceneBytes()
        .text("geometry \"triangles\" {\n\"vertices\" [ ").floats('c', {tricky, -1.5f, quietNan}).text("] ,\n")
        .text("\"uv_tex\" [ ").floats('f', {0.25f, 1}).text("] ,\n")
        .text("\"triangles\" [ ").ints({0x205d0a0a, -1, 0}).text("] ,\n")
        .text("\"knots\" [ ").doubles({0.1, 1e300}).text("] ,\n")
        .text("\"none\" [ ").ints({}).text("] ,\n")
        .text("}\nafter 1\n").str());
    const Block* geometry = document.root.child("geometry");
    ASSERT_NE(geometry, nullptr);
    const Value& vertices = soleValue(*geometry, "vertices");
    EXPECT_EQ(vertices.kind, ValueKind::Binary);
    EXPECT_EQ(vertices.binary.kind, 'c');
    EXPECT_EQ(vertices.binary.count, 3u);
    ASSERT_EQ(vertices.binary.floats.size(), 3u);
    EXPECT_EQ(std::bit_cast<uint32_t>(vertices.binary.floats[0]), 0x205d0a0au);
    EXPECT_EQ(vertices.binary.floats[1], -1.5f);
    EXPECT_EQ(std::bit_cast<uint32_t>(vertices.binary.floats[2]), 0x7fc00123u);
    EXPECT_EQ(soleValue(*geometry, "uv_tex").binary.floats, (std::vector<float>{0.25f, 1}));
    EXPECT_EQ(soleValue(*geometry, "triangles").binary.ints, (std::vector<int32_t>{0x205d0a0a, -1, 0}));
    EXPECT_EQ(soleValue(*geometry, "knots").binary.doubles, (std::vector<double>{0.1, 1e300}));
    EXPECT_EQ(soleValue(*geometry, "none").binary.count, 0u);
    // Line feeds inside the data are no lines.
    EXPECT_EQ(document.root.statement("after")->line, 8u);
}

TEST(SceneReader, ElementArraysHoldTextElementsOrABinaryBlock) {
    auto document = scenereader::parseScene(SceneBytes()
        .text("animation \"fbx_animation\" \"a\" {\n\"start_time\" 0,\n\"timestamps\" [\n").ints({0, 40, 80})
        .text(" ],\n\"matrices\" [\n")
        .text("1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1, 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1,\n")
        .text("1 0 0 0 0 1 0 0 0 0 1 0 0 0 5 1 ],\n}\n").str());
    const Block* animation = document.root.child("animation");
    ASSERT_NE(animation, nullptr);
    const Value& timestamps = soleValue(*animation, "timestamps");
    EXPECT_EQ(timestamps.kind, ValueKind::ElementArray);
    ASSERT_EQ(timestamps.items.size(), 1u);
    EXPECT_EQ(timestamps.items[0].binary.ints, (std::vector<int32_t>{0, 40, 80}));
    const Value& matrices = soleValue(*animation, "matrices");
    ASSERT_EQ(matrices.items.size(), 3u);
    for (const Value& matrix : matrices.items) EXPECT_EQ(matrix.items.size(), 16u);
    EXPECT_EQ(matrices.items[2].items[14].number, 5);
}

TEST(SceneReader, InlineShadersNestInsideMaterialsOfObjects) {
    auto document = scenereader::parseScene(SceneBytes()
        .text("object \"part\" {\nmaterial \"m\" {\nsurface \"nvx_advanced\" {\n\"diffuse\" 0.8 0.8 0.8,\n")
        .text("\"roughness\" -1,\n\"diffuse\" ! \"texture_rgb\" {\n\"project\" 0,\n\"wrap\" on,\n")
        .text("\"default_color\" 1 1 1,\n\"texture\" \"wood.png\",\n},\n\"bump\" ! 3,\n")
        .text("\"weights\" [ ").floats('f', {0.5f}).text("] ,\n}\n}\n}\n")
        .text("\"environment\" \"nvx_envmap\" {\n\"radius\" 25,\n},\n").str());
    const Block* material = document.root.child("object")->child("material");
    ASSERT_NE(material, nullptr);
    const Block* advanced = material->statement("surface")->shader();
    ASSERT_NE(advanced, nullptr);
    EXPECT_EQ(advanced->names, std::vector<std::string>{"nvx_advanced"});
    EXPECT_EQ(advanced->statement("roughness")->numbers(), std::vector<double>{-1});
    auto diffuse = advanced->statements("diffuse");
    ASSERT_EQ(diffuse.size(), 2u);
    EXPECT_FALSE(diffuse[0]->boundShader);
    EXPECT_TRUE(diffuse[1]->boundShader);
    const Block* texture = diffuse[1]->shader();
    ASSERT_NE(texture, nullptr);
    EXPECT_EQ(texture->name(), "texture_rgb");
    EXPECT_EQ(soleValue(*texture, "texture").text, "wood.png");
    EXPECT_TRUE(advanced->statement("bump")->boundShader);
    EXPECT_EQ(advanced->statement("bump")->numbers(), std::vector<double>{3});
    EXPECT_EQ(soleValue(*advanced, "weights").binary.floats, std::vector<float>{0.5f});
    EXPECT_EQ(document.root.statement("environment")->shader()->name(), "nvx_envmap");
}

TEST(SceneReader, CamerasWithReflectionMapAndModify) {
    auto document = scenereader::parseScene(
        "group \"g\" {\n\ncamera \"front\" {\nreflection map \"nvx_envmap\" {\n\"texture\" \"startup.hdr\",\n"
        "\"format\" 3,\n\"radius\" 25,\n}\nposition 0 0 0\ndirection 0 0 -1\nup 0 1 0\n"
        "projection \"perspective\"\nfov 60\n}\n}\n"
        "#modify \ncamera {\nfov 30\n}\n"
        "object \"o\" {\n#modify fov 10\n}\n");
    const Block* camera = document.root.child("group")->child("camera");
    ASSERT_NE(camera, nullptr);
    EXPECT_FALSE(camera->modify);
    const Block* environment = camera->statement("reflection map")->shader();
    ASSERT_NE(environment, nullptr);
    EXPECT_EQ(environment->name(), "nvx_envmap");
    EXPECT_EQ(environment->statement("radius")->numbers(), std::vector<double>{25});
    EXPECT_EQ(camera->statement("direction")->numbers(), (std::vector<double>{0, 0, -1}));
    EXPECT_EQ(soleValue(*camera, "projection").text, "perspective");
    const Block* modified = document.root.child("camera");
    ASSERT_NE(modified, nullptr);
    EXPECT_TRUE(modified->modify);
    EXPECT_TRUE(modified->names.empty());
    // Where no camera follows, "#modify" stands alone and the rest of the line is read on.
    const Block* object = document.root.child("object");
    EXPECT_NE(object->statement("#modify"), nullptr);
    EXPECT_EQ(object->statement("fov")->numbers(), std::vector<double>{10});
}

TEST(SceneReader, AcceptsIndentationAndNumbersInEveryPrintedForm) {
    auto document = scenereader::parseScene(
        "group \"g\" {\n  object \"o\" {\n    geometry \"g\" {\n      \"a\" 0.5000000000000000,\n"
        "      \"b\" 4294967295,\n      \"c\" 1.5e-07 -1,\n      \"d\" [ 1,\n        2 ] ,\n    }\n  }\n}\n");
    const Block* geometry = document.root.child("group")->child("object")->child("geometry");
    ASSERT_NE(geometry, nullptr);
    EXPECT_EQ(soleValue(*geometry, "a").number, 0.5);
    EXPECT_EQ(soleValue(*geometry, "b").number, 4294967295.0);
    EXPECT_EQ(geometry->statement("c")->numbers(), (std::vector<double>{1.5e-07, -1}));
    EXPECT_EQ(soleValue(*geometry, "d").items.size(), 2u);
}

}  // namespace
