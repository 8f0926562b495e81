#include <gtest/gtest.h>

#include "scenereader/SceneReader.h"
#include "tests/scenereader/SceneBytes.h"

namespace {

struct BadInput {
    const char* name;
    std::string bytes;
    const char* expected;  // a part of the message's expectation
    const char* found;     // a part of what the message says was found
    size_t line;
};

void PrintTo(const BadInput& input, std::ostream* out) { *out << input.name; }

std::string repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

const BadInput badInputs[] = {
    {"bad_unclosed_block", "group \"g\" {\nobject \"o\" {\n}\n", "\"}\" to close group \"g\" opened at line 1",
     "the end of the input", 4},
    {"bad_stray_brace", "version 7\n}\n", "this \"}\" closes no open block", "\"}\"", 2},
    {"bad_binary_past_end", SceneBytes().text("\"v\" [ ").marker('c', 9).floats('f', {1}).str(),
     "36 bytes of data for a binary array of 9 values of kind 'c'", "only 12 bytes before the end", 1},
    {"bad_unknown_marker", SceneBytes().text("\n\"v\" [ ").marker('x', 1).word(0).text("] ,\n").str(),
     "a binary array kind 'c', 'f', 'i' or 'r'", "\"x", 2},
    {"bad_broken_marker", "\"v\" [ \x01\x02\x04" "c] ,\n", "the binary array marker 01 02 03", "byte 0x01", 1},
    {"bad_count_too_small", SceneBytes().text("\"t\" [ ").marker('i', 1).word(0).word(1).text("] ,\n").str(),
     "\"]\" right after the 1 values of the binary array", "byte 0x01", 1},
    {"bad_unterminated_string", "\"name\" \"abc\n", "a closing double quote before the end of the line",
     "the end of the line", 1},
    {"bad_string_at_end", "\"name\" \"abc", "a closing double quote", "the end of the input", 1},
    {"bad_high_byte_in_quotes", "group \"gr\xc3\xbcn\" {\n}\n", "xX form", "byte 0xc3", 1},
    {"bad_odd_hex_digits", "group xX616 {\n}\n", "an even number of hex digits after \"xX\"", "\"xX616", 1},
    {"bad_garbage", "version 7\n@@@\n", "a statement, a block or \"}\"", "\"@@@\"", 2},
    {"bad_garbage_value", "\"a\" 1 {,\n", "a value", "\"{,\"", 1},
    {"bad_missing_comma", "\"a\" 1\n\"b\" 2,\n", "\",\" to end the parameter \"a\"", "the end of the line", 1},
    {"bad_keyword_line_end", "flags 1,\n", "a value", "\",\"", 1},
    {"bad_unclosed_text_array", "\"a\" [ 1,\n2", "\"]\" to close the array opened at line 1", "the end of the input", 2},
    {"bad_unclosed_inline_shader", "surface \"nvx_diffuse\" {\n\"diffuse\" 1 1 1,\n",
     "\"}\" to close shader \"nvx_diffuse\" opened at line 1", "the end of the input", 3},
    {"bad_define", "#define box \"b\" {\n}\n", "a group, object, material, matrix or shader block after \"#define\"",
     "\"box", 1},
    {"bad_block_names", "animation \"fbx_animation\" {\n}\n", "\"animation\" with 2 quoted names before \"{\"",
     "\"animation", 1},
    {"bad_message", "#print unquoted\n", "a message between double quotes", "\"unquoted\"", 1},
    {"bad_nesting_depth", repeated("group \"g\" {\n", 300), "at most 256 levels of nesting", "\"group", 257},
};

class SceneReaderBadInput : public testing::TestWithParam<BadInput> {};

TEST_P(SceneReaderBadInput, ThrowsParseErrorSayingWhereAndWhat) {
    const BadInput& input = GetParam();
    try {
        scenereader::parseScene(input.bytes);
        FAIL() << "no ParseError";
    } catch (const scenereader::ParseError& error) {
        EXPECT_NE(error.expected().find(input.expected), std::string::npos) << error.what();
        EXPECT_NE(error.found().find(input.found), std::string::npos) << error.what();
        EXPECT_EQ(error.line(), input.line) << error.what();
        EXPECT_LE(error.offset(), input.bytes.size());
        EXPECT_EQ(std::string(error.what()).rfind("line " + std::to_string(input.line) + ", byte ", 0), 0u);
    }
}

INSTANTIATE_TEST_SUITE_P(Malformed, SceneReaderBadInput, testing::ValuesIn(badInputs),
                         [](const testing::TestParamInfo<BadInput>& info) { return std::string(info.param.name); });

}  // namespace
