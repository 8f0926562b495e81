// The formatted reads of the motion file reader: what a read takes, what it
// stores, and where the next read starts.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "animation/FraScanner.h"

namespace {

using fra::FraScanner;
using fra::ScanResult;

// The word that the next "%255s" gives, or "<end>".
std::string nextWord(FraScanner& in) {
    char token[fra::tokenCapacity] = {};
    return in.scanWord(token) ? std::string(token) : "<end>";
}

struct NumberCase {
    const char* input;
    ScanResult result;
    double value;  // when converted; NaN stands for any NaN
    const char* rest;
};

class FloatReads : public ::testing::TestWithParam<NumberCase> {};

TEST_P(FloatReads, TakeTheLongestBeginningOfANumber) {
    const NumberCase& c = GetParam();
    FraScanner in(c.input);
    float value = -99.0f;
    ASSERT_EQ(in.scanFloat(value), c.result) << c.input;
    if (c.result != ScanResult::Converted) {
        EXPECT_EQ(value, -99.0f) << c.input;
    } else if (std::isnan(c.value)) {
        EXPECT_TRUE(std::isnan(value)) << c.input;
    } else {
        EXPECT_EQ(value, static_cast<float>(c.value)) << c.input;
    }
    EXPECT_EQ(nextWord(in), c.rest) << c.input;
}

const double nan = std::nan("");
const double inf = INFINITY;

INSTANTIATE_TEST_SUITE_P(
    Forms, FloatReads,
    ::testing::Values(NumberCase{"  1.5 x", ScanResult::Converted, 1.5, "x"},
                      NumberCase{"-2.25e1)", ScanResult::Converted, -22.5, ")"},
                      NumberCase{"+.5", ScanResult::Converted, 0.5, "<end>"},
                      NumberCase{"7.", ScanResult::Converted, 7, "<end>"},
                      NumberCase{"12abc", ScanResult::Converted, 12, "abc"},
                      NumberCase{"3e", ScanResult::Mismatch, 0, "<end>"},
                      NumberCase{"3e+x", ScanResult::Mismatch, 0, "x"},
                      NumberCase{"-x", ScanResult::Mismatch, 0, "x"},
                      NumberCase{".e1", ScanResult::Mismatch, 0, "e1"},
                      NumberCase{"Part:", ScanResult::Mismatch, 0, "Part:"},
                      NumberCase{"0x1.8p1 q", ScanResult::Converted, 3, "q"},
                      NumberCase{"0xg", ScanResult::Mismatch, 0, "g"},
                      NumberCase{"INF,", ScanResult::Converted, inf, ","},
                      NumberCase{"-Infinity", ScanResult::Converted, -inf, "<end>"},
                      NumberCase{"infin", ScanResult::Mismatch, 0, "<end>"},
                      NumberCase{"nan(0x1F) 2", ScanResult::Converted, nan, "2"},
                      NumberCase{"nan(1 2", ScanResult::Mismatch, 0, "2"},
                      NumberCase{"1e39", ScanResult::Converted, inf, "<end>"},
                      NumberCase{"1e-60", ScanResult::Converted, 0, "<end>"},
                      NumberCase{"0.1", ScanResult::Converted, 0.1, "<end>"},
                      NumberCase{" \t\r\n", ScanResult::End, 0, "<end>"}));

struct IntCase {
    const char* input;
    ScanResult result;
    std::int32_t value;
    const char* rest;
};

class IntReads : public ::testing::TestWithParam<IntCase> {};

TEST_P(IntReads, TakeSignAndDigits) {
    const IntCase& c = GetParam();
    FraScanner in(c.input);
    std::int32_t value = -99;
    ASSERT_EQ(in.scanInt(value), c.result) << c.input;
    EXPECT_EQ(value, c.result == ScanResult::Converted ? c.value : -99) << c.input;
    EXPECT_EQ(nextWord(in), c.rest) << c.input;
}

INSTANTIATE_TEST_SUITE_P(Forms, IntReads,
                         ::testing::Values(IntCase{"41 7", ScanResult::Converted, 41, "7"},
                                           IntCase{"\n+7)", ScanResult::Converted, 7, ")"},
                                           IntCase{"-2147483648", ScanResult::Converted, INT32_MIN, "<end>"},
                                           IntCase{"4294967297", ScanResult::Converted, 1, "<end>"},
                                           IntCase{"0x10", ScanResult::Converted, 0, "x10"},
                                           IntCase{"-x", ScanResult::Mismatch, 0, "x"},
                                           IntCase{"(41", ScanResult::Mismatch, 0, "(41"},
                                           IntCase{"", ScanResult::End, 0, "<end>"}));

TEST(FraScanner, WordsStopAtWhiteSpaceOrAfter255Bytes) {
    std::string text = std::string(300, 'w') + "\v\f" + std::string("a\0b", 3) + " end";
    FraScanner in(text);
    EXPECT_EQ(nextWord(in), std::string(255, 'w'));
    EXPECT_EQ(nextWord(in), std::string(45, 'w'));
    char token[fra::tokenCapacity] = {};
    ASSERT_TRUE(in.scanWord(token));
    EXPECT_EQ(std::string(token, 3), std::string("a\0b", 3));
    EXPECT_EQ(nextWord(in), "end");
    std::strcpy(token, "kept");
    EXPECT_FALSE(in.scanWord(token));
    EXPECT_STREQ(token, "kept");
}

TEST(FraScanner, AnOrdinaryCharacterIsTakenOnlyIfItComesNext) {
    FraScanner in(" (3");
    EXPECT_EQ(in.scanCharacter('('), ScanResult::Mismatch);
    in.skipWhiteSpace();
    EXPECT_EQ(in.scanCharacter('('), ScanResult::Converted);
    EXPECT_EQ(in.scanCharacter(')'), ScanResult::Mismatch);
    EXPECT_EQ(nextWord(in), "3");
    EXPECT_EQ(in.scanCharacter(')'), ScanResult::End);
}

}  // namespace
