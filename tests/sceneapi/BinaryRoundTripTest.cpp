// Binary array blocks read back bit for bit: NaNs with payloads, signed
// zeros, denormals, the extremes, and values whose bytes look like a line
// feed, a closing "] " or a block marker, through every road that writes a
// block: set_attribute in both attribute forms and inside an inline shader,
// element arrays, the object layer's vector setters, and a whole file of the
// file factory.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "importers/sceneapi/DemoContent.h"
#include "importers/sceneapi/LightFactory.h"
#include "importers/sceneapi/nvxSceneapi_oo.h"
#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"
#include "tests/sceneapi/SceneCapture.h"

namespace {

using scenereader::BinaryArray;
using scenereader::Block;
using scenereader::ValueKind;
using scenetest::SceneCapture;

template <typename Value, typename Bits>
std::vector<Value> fromBits(std::initializer_list<Bits> patterns) {
    std::vector<Value> values;
    for (Bits bits : patterns) values.push_back(std::bit_cast<Value>(bits));
    return values;
}

// Fifteen floats, five triples: six that are not finite, then nine that are.
const std::vector<float> FLOATS = fromBits<float, std::uint32_t>({
    0x7fc00001,  // a quiet NaN with a payload
    0x7f800001,  // a signalling NaN
    0xffc12345,  // a negative NaN with a payload
    0x7fffffff,  // a NaN with every payload bit
    0x7f800000,  // infinity
    0xff800000,  // -infinity
    0x80000000,  // -0
    0x00000001,  // the smallest denormal
    0x807fffff,  // the largest negative denormal
    0x7f7fffff,  // the largest float
    0xff7fffff,  // the lowest float
    0x205d0a0a,  // bytes 0a 0a 5d 20: two line feeds and "] "
    0x0a205d0a,  // "\n] \n"
    0x63030201,  // the marker of a block of float triples
    0x3f800000,  // 1
});

const std::vector<int> INTS = {
    std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(), -1, 0,
    0x205d0a0a, 0x0a205d0a, 0x69030201 /* the marker of a block of integers */, 10,
};

const std::vector<double> DOUBLES = fromBits<double, std::uint64_t>({
    0x7ff8000000000001,  // a quiet NaN with a payload
    0x7ff0000000000001,  // a signalling NaN
    0xfff8dead0000beef,  // a negative NaN with a payload
    0x8000000000000000,  // -0
    0x0000000000000001,  // the smallest denormal
    0x800fffffffffffff,  // the largest negative denormal
    0x7fefffffffffffff,  // the largest double
    0x47efffffe0000000,  // the largest float, where text arrays would print -1
    0x0a205d0a205d0a0a,  // line feeds and "] "
    0x7203020100000000,  // the marker of a block of doubles in the upper half
});

// Every scalar as its bit pattern, so that NaNs compare by payload and -0 differs from 0.
template <typename Scalar>
std::vector<std::uint64_t> bitsOf(const std::vector<Scalar>& values) {
    std::vector<std::uint64_t> bits;
    for (Scalar value : values) {
        if constexpr (sizeof(Scalar) == 8) {
            bits.push_back(std::bit_cast<std::uint64_t>(value));
        } else {
            bits.push_back(std::bit_cast<std::uint32_t>(value));
        }
    }
    return bits;
}

std::vector<std::uint64_t> bitsOf(const BinaryArray& block) {
    switch (block.kind) {
        case 'i': return bitsOf(block.ints);
        case 'r': return bitsOf(block.doubles);
        default: return bitsOf(block.floats);
    }
}

std::vector<nvx::Float3> triplesOf(const std::vector<float>& values) {
    std::vector<nvx::Float3> triples(values.size() / 3);
    std::copy_n(values.begin(), triples.size() * 3, triples.front().data());
    return triples;
}

// The four arrays, each named by the letter of its block kind.
void setArrays(nvxScene_api& scene) {
    const ArrayRecord triples{FLOATS.data(), FLOATS.size() / 3};
    const ArrayRecord floats{FLOATS.data(), FLOATS.size()};
    const ArrayRecord ints{INTS.data(), INTS.size()};
    const ArrayRecord doubles{DOUBLES.data(), DOUBLES.size()};
    scene.set_attribute("c", ATTR_FLOAT3_ARRAY, &triples);
    scene.set_attribute("f", ATTR_FLOAT_ARRAY, &floats);
    scene.set_attribute("i", ATTR_INT_ARRAY, &ints);
    scene.set_attribute("r", ATTR_DOUBLE_ARRAY, &doubles);
}

// The block of a statement: its one value, or the one block of an element array.
const BinaryArray* blockOf(const Block& in, std::string_view name) {
    const scenereader::Statement* statement = in.statement(name);
    if (!statement || statement->values.size() != 1) return nullptr;
    const scenereader::Value* value = &statement->values.front();
    if (value->kind == ValueKind::ElementArray && value->items.size() == 1) value = &value->items.front();
    return value->kind == ValueKind::Binary ? &value->binary : nullptr;
}

void expectBlock(const Block& in, std::string_view name, char kind, const std::vector<std::uint64_t>& bits) {
    const BinaryArray* read = blockOf(in, name);
    ASSERT_NE(read, nullptr) << "no binary block \"" << name << "\" in " << scenereader::describeBlock(in);
    EXPECT_EQ(read->kind, kind) << name;
    EXPECT_EQ(read->count, bits.size()) << name;
    EXPECT_EQ(bitsOf(*read), bits) << name;
}

// Each letter names an attribute that holds the arrays above as a block of that kind.
void expectBlocks(const Block& in, std::string_view kinds) {
    for (char kind : kinds) {
        const auto written = kind == 'i' ? bitsOf(INTS) : kind == 'r' ? bitsOf(DOUBLES) : bitsOf(FLOATS);
        expectBlock(in, std::string(1, kind), kind, written);
    }
}

const Block& only(const std::vector<const Block*>& blocks) {
    EXPECT_EQ(blocks.size(), 1u);
    static const Block none;
    return blocks.empty() ? none : *blocks.front();
}

TEST(BinaryRoundTrip, SetAttributeInBothFormsAndInsideAShader) {
    SceneCapture out;
    setArrays(out.scene());
    out->begin_group("g", true);
    setArrays(out.scene());
    out->begin_object("o", true);
    out->begin_geometry("nurbs");
    setArrays(out.scene());
    out->end_geometry();
    out->begin_material("m", true);
    out->begin_shader(nullptr, "ramp");
    setArrays(out.scene());
    out->end_shader();
    out->set_shader(SHADER_SURFACE, out->current_shader());
    out->end_material();
    out->end_object();
    out->end_group();

    const scenereader::Document document = scenereader::parseScene(out.text());
    expectBlocks(document.root, "cfir");
    expectBlocks(only(document.root.children("group")), "cfir");
    expectBlocks(only(document.root.descendants("geometry")), "cfir");
    const scenereader::Statement* surface = only(document.root.descendants("material")).statement("surface");
    ASSERT_NE(surface, nullptr);
    ASSERT_NE(surface->shader(), nullptr);
    expectBlocks(*surface->shader(), "cfir");
}

// Doubles have no element form in a block: element by element they are text.
TEST(BinaryRoundTrip, ElementArraysGatherIntoOneBlock) {
    SceneCapture out;
    out->begin_group("g", true);
    out->begin_animation("fbx_animation", "a");
    out->begin_array("c");
    for (std::size_t i = 0; i < FLOATS.size(); i += 3) out->add_array_value(ATTR_FLOAT3, &FLOATS[i]);
    out->end_array();
    out->begin_array("f");
    for (const float& value : FLOATS) out->add_array_value(ATTR_FLOAT, &value);
    out->end_array();
    out->begin_array("i");
    for (const int& value : INTS) out->add_array_value(ATTR_INT, &value);
    out->end_array();
    out->end_animation();
    out->end_group();

    const scenereader::Document document = scenereader::parseScene(out.text());
    expectBlocks(only(document.root.descendants("animation")), "cfi");
}

TEST(BinaryRoundTrip, ObjectLayerSettersInAWholeFile) {
    std::vector<float> finite;
    std::copy_if(FLOATS.begin(), FLOATS.end(), std::back_inserter(finite), [](float value) { return std::isfinite(value); });
    ASSERT_EQ(finite.size(), 9u);
    demo::TriangleMesh mesh{triplesOf(finite), triplesOf(finite), std::vector<float>(finite.begin(), finite.begin() + 6), {0, 1, 2}};

    const scenetest::ScratchFile file("vantrel_round_trip");
    {
        nvx::LightFileFactory factory(file.path());
        nvx::nvxSceneapi_oo layer(factory);
        layer.begin_group("g");
        layer.set_attribute("c", triplesOf(FLOATS));
        layer.set_attribute("f", FLOATS);
        layer.set_attribute("i", INTS);
        layer.set_attribute("r", DOUBLES);
        layer.scene()->begin_object("o", true);
        demo::writeGeometry(*layer.scene(), mesh);
        layer.scene()->end_object();
        layer.end_group();
    }
    const scenereader::Document document = scenereader::readSceneFile(file.path());
    EXPECT_EQ(scenereader::checkScene(document), std::vector<std::string>{});
    expectBlocks(only(document.root.children("group")), "cfir");
    const Block& geometry = only(document.root.descendants("geometry"));
    expectBlock(geometry, "vertices", 'c', bitsOf(finite));
    expectBlock(geometry, "normals", 'c', bitsOf(finite));
    expectBlock(geometry, "uv_tex", 'f', bitsOf(mesh.uvs));
}

}  // namespace
