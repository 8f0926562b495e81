// How the scene file writer prints values and arrays, text and binary.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

#include "tests/sceneapi/SceneCapture.h"

namespace {

using scenetest::doubleBlock;
using scenetest::floatBlock;
using scenetest::intBlock;
using scenetest::SceneCapture;

const float NaNf = std::numeric_limits<float>::quiet_NaN();
const double NaN = std::numeric_limits<double>::quiet_NaN();
const double IDENTITY[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

// The text of one parameter-form attribute.
template <typename T>
std::string single(int type, const T& value, bool binary = true) {
    SceneCapture out(binary);
    out->set_attribute("v", type, &value);
    return out.text();
}

std::string array(int type, const void* data, std::uint64_t count, bool binary) {
    SceneCapture out(binary);
    const ArrayRecord record{data, count};
    out->set_attribute("a", type, &record);
    return out.text();
}

TEST(FileWriterValues, SingleValueForms) {
    const float f3[3] = {1, 0.5f, -2};
    const float f4[4] = {1, 2, 3, 4};
    const double d3[3] = {0.25, 1e-7, 3};
    const int i4[4] = {1, -2, 3, -4};
    EXPECT_EQ(single(ATTR_FLOAT3, f3), "\"v\" 1 0.5 -2,\n");
    EXPECT_EQ(single(ATTR_FLOAT4, f4), "\"v\" 1 2 3 4,\n");
    EXPECT_EQ(single(ATTR_FOV4, f4), "\"v\" 1 2 3 4,\n");
    EXPECT_EQ(single(ATTR_FLOAT2, f4), "\"v\" 1 2,\n");
    EXPECT_EQ(single(ATTR_DOUBLE, 0.25), "\"v\" 0.2500000000000000,\n");
    EXPECT_EQ(single(ATTR_DOUBLE3, d3), "\"v\" 0.25 1e-07 3,\n");
    EXPECT_EQ(single(ATTR_INT, -7), "\"v\" -7,\n");
    EXPECT_EQ(single(ATTR_INT2, i4), "\"v\" 1 -2,\n");
    EXPECT_EQ(single(ATTR_INT3, i4), "\"v\" 1 -2 3,\n");
    EXPECT_EQ(single(ATTR_INT4, i4), "\"v\" 1 -2 3 -4,\n");
    EXPECT_EQ(single(ATTR_BOOL, 0), "\"v\" off,\n");
    EXPECT_EQ(single(ATTR_BOOL, 2), "\"v\" on,\n");
    const double m[16] = {1e39, 0.1, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    EXPECT_EQ(single(ATTR_MATRIX, m), "\"v\" inf 0.1 0 0 0 1 0 0 0 0 1 0 0 0 0 1,\n");
    const char* text = "ref";
    EXPECT_EQ(single(ATTR_STRING_REF, text), "\"v\" \"ref\",\n");
    SceneCapture out;
    out->set_attribute("s", ATTR_STRING, "plain");
    EXPECT_EQ(out.text(), "\"s\" \"plain\",\n");
}

TEST(FileWriterValues, SingleFloatIsGuardedAndSingleDoubleIsNot) {
    EXPECT_EQ(single(ATTR_FLOAT, 1.5f), "\"v\" 1.5,\n");
    EXPECT_EQ(single(ATTR_FLOAT, 3.4028235e38f), "\"v\" -1,\n");
    EXPECT_EQ(single(ATTR_FLOAT, -std::numeric_limits<float>::infinity()), "\"v\" -1,\n");
    EXPECT_EQ(single(ATTR_FLOAT, NaNf), "\"v\" -1,\n");
    EXPECT_EQ(single(ATTR_FLOAT, 3.4028233e38f), "\"v\" 3.40282e+38,\n");
    EXPECT_EQ(single(ATTR_DOUBLE, NaN), "\"v\"              nan,\n");
}

TEST(FileWriterValues, IdIsStatedTwiceAndUnknownCodesWriteNothing) {
    EXPECT_EQ(single(ATTR_ID, 4), "\"v\" 4,\n\"v\" 4,\n");
    SceneCapture out;
    out->begin_group("g", true);
    const int four = 4;
    out->set_attribute("id", ATTR_ID, &four);
    for (int code : std::initializer_list<int>{8, 11, ATTR_IGNORED_A, ATTR_IGNORED_B, ATTR_ARRAY | 8, ATTR_ARRAY | 24, ATTR_ARRAY}) {
        EXPECT_TRUE(out->set_attribute("x", code, &four)) << code;
    }
    EXPECT_EQ(out.openText(), "\ngroup \"g\" {\n\"id\" 4,\nid 4\n");
}

TEST(FileWriterArrays, TextFormsWithLineBreaks) {
    const int nine[9] = {0, 1, 2, 3, 4, 5, 6, 7, 8};
    EXPECT_EQ(array(ATTR_INT_ARRAY, nine, 9, false), "\"a\" [ 0,1,2,3,4,5,6,7,8 \n] ,\n");
    EXPECT_EQ(array(ATTR_ID_ARRAY, nine, 2, false), "\"a\" [ 0,1 ] ,\n");
    EXPECT_EQ(array(ATTR_INT_ARRAY, nine, 0, false), "\"a\" [ ] ,\n");
    const int bools[2] = {0, 5};
    EXPECT_EQ(array(ATTR_BOOL_ARRAY, bools, 2, true), "\"a\" [ 0,1 ] ,\n");
    const float floats[3] = {3.4028235e38f, NaNf, 0.5f};
    EXPECT_EQ(array(ATTR_FLOAT_ARRAY, floats, 3, false), "\"a\" [ -1,-1,0.5 ] ,\n");
    const double doubles[3] = {0.5, -3.4028234663852886e38, NaN};
    EXPECT_EQ(array(ATTR_DOUBLE_ARRAY, doubles, 3, false),
              "\"a\" [ 0.5000000000000000,-1.0000000000000000,-1.0000000000000000 ] ,\n");
    const float triples[6] = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(array(ATTR_FLOAT3_ARRAY, triples, 2, false), "\"a\" [ 1 2 3,4 5 6 ] ,\n");
    EXPECT_EQ(array(ATTR_FLOAT4_ARRAY, triples, 1, true), "\"a\" [ 1 2 3 4 ] ,\n");
    const double d3[3] = {0.5, 1, 2};
    EXPECT_EQ(array(ATTR_DOUBLE3_ARRAY, d3, 1, true), "\"a\" [ 0.5 1 2 ] ,\n");
}

TEST(FileWriterArrays, MatricesAndStringsTakeALineEach) {
    double two[32];
    std::copy(IDENTITY, IDENTITY + 16, two);
    std::copy(IDENTITY, IDENTITY + 16, two + 16);
    two[1] = 0.1;  // doubles as they stand: not narrowed
    EXPECT_EQ(array(ATTR_MATRIX_ARRAY, two, 2, true),
              "\"a\" [ 1 0.1 0 0 0 1 0 0 0 0 1 0 0 0 0 1 ,\n"
              "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 \n] ,\n");
    const char* strings[3] = {"a", "", "q\""};
    EXPECT_EQ(array(ATTR_STRING_ARRAY, strings, 3, true), "\"a\" [ \"a\",\n\"\",\nxX7122 \n] ,\n");
    EXPECT_EQ(array(ATTR_STRING_REF_ARRAY, strings, 1, true), "\"a\" [ \"a\" \n] ,\n");
}

TEST(FileWriterArrays, BinaryBlocksCountScalars) {
    const float triples[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    EXPECT_EQ(array(ATTR_FLOAT3_ARRAY, triples, 3, true),
              "\"a\" [ " + floatBlock('c', {1, 2, 3, 4, 5, 6, 7, 8, 9}) + "] ,\n");
    // Only the low 32 bits of the count are read.
    EXPECT_EQ(array(ATTR_FLOAT_ARRAY, triples, 0x100000002ULL, true), "\"a\" [ " + floatBlock('f', {1, 2}) + "] ,\n");
    const int ints[2] = {7, -1};
    EXPECT_EQ(array(ATTR_INT_ARRAY, ints, 2, true), "\"a\" [ " + intBlock({7, -1}) + "] ,\n");
    EXPECT_EQ(array(ATTR_ID_ARRAY, ints, 1, true), "\"a\" [ " + intBlock({7}) + "] ,\n");
    EXPECT_EQ(array(ATTR_INT_ARRAY, ints, 0, true), "\"a\" [ " + intBlock({}) + "] ,\n");
    const double doubles[2] = {0.5, NaN};
    EXPECT_EQ(array(ATTR_DOUBLE_ARRAY, doubles, 1, true), "\"a\" [ " + doubleBlock({0.5}) + "] ,\n");
    // A single float stays text with binary arrays on.
    EXPECT_EQ(single(ATTR_FLOAT, 0.5f, true), "\"v\" 0.5,\n");
}

TEST(FileWriterElementArrays, MatricesAreTextSixToALine) {
    SceneCapture out;
    out->begin_array("matrices");
    for (int i = 0; i < 7; ++i) out->add_array_value(ATTR_MATRIX, IDENTITY);
    out->end_array();
    const std::string m = "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1";
    EXPECT_EQ(out.text(),
              "\"matrices\" [\n" + m + ", " + m + ", " + m + ", " + m + ", " + m + ", " + m + ",\n" + m + " ],\n");
}

TEST(FileWriterElementArrays, IntegersAndFloatsAreCollectedIntoOneBlock) {
    SceneCapture out;
    out->begin_array("timestamps");
    for (int i : {0, 40, 80}) out->add_array_value(ATTR_INT, &i);
    out->end_array();
    out->begin_array("empty");
    out->end_array();
    out->begin_array("colours");
    const float c[3] = {1, 0.5f, 0};
    out->add_array_value(ATTR_FLOAT3, c);
    out->add_array_value(ATTR_FLOAT3, c);
    out->end_array();
    out->begin_array("f");
    const float half = 0.5f;
    out->add_array_value(ATTR_FLOAT, &half);
    out->end_array();
    EXPECT_EQ(out.text(), scenetest::spelledGolden("element_blocks.txt"));
}

TEST(FileWriterElementArrays, CollectionGrowsPastItsFirstCapacity) {
    SceneCapture out;
    std::vector<std::int32_t> values(70000);
    out->begin_array("many");
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = static_cast<std::int32_t>(i * 3);
        out->add_array_value(ATTR_INT, &values[i]);
    }
    out->end_array();
    EXPECT_EQ(out.text(), "\"many\" [\n" + intBlock(values) + " ],\n");
}

TEST(FileWriterElementArrays, TextSeparators) {
    SceneCapture out(false);
    out->begin_array("t");
    for (int i = 0; i < 8; ++i) out->add_array_value(ATTR_INT, &i);
    out->end_array();
    out->begin_array("c");
    const float c[3] = {1, 2, 3};
    for (int i = 0; i < 3; ++i) out->add_array_value(ATTR_FLOAT3, c);
    out->end_array();
    EXPECT_EQ(out.text(),
              "\"t\" [\n0, 1, 2, 3, 4, 5,\n6, 7 ],\n"
              "\"c\" [\n1 2 3, 1 2 3,\n1 2 3 ],\n");
}

}  // namespace
