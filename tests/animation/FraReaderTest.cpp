// The motion file reader over bytes: the words it looks for, the records and
// their paths, the buffers reused when a number doesn't convert, and the
// removal of components that never move.
#include <gtest/gtest.h>

#include <cctype>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <vector>

#include "animation/FraReader.h"

namespace {

// "Part:", the path and the twelve numbers: an identity rotation with the
// translation (x, y, z).
std::string record(std::initializer_list<int> ids, const std::string& x, const std::string& y = "0",
                   const std::string& z = "0") {
    std::string text = "Part: " + std::to_string(ids.size()) + " (";
    for (int id : ids) text += std::to_string(id) + " ";
    text.back() = ')';
    return text + " 1 0 0 0 1 0 0 0 1 " + x + " " + y + " " + z + "\n";
}

const std::string header = "Motion recorded\nparts: 3\nframes: 2\n";

ProAsmcomppath pathOf(std::initializer_list<int> ids) {
    ProAsmcomppath path{};
    for (int id : ids) path.componentIds[path.componentIdCount++] = id;
    return path;
}

// The table as text: "(4 9) 1 2; (9) 0 5" lists each component in key order
// with the x translation of each of its matrices.
std::string describe(const AnimationFrameTable& frames) {
    std::string text;
    for (const auto& [path, sequence] : frames) {
        if (!text.empty()) text += "; ";
        text += "(";
        for (int i = 0; i < path.componentIdCount; ++i) text += (i ? " " : "") + std::to_string(path.componentIds[i]);
        text += ")";
        for (const FrameMatrix& matrix : sequence) {
            std::string x = std::to_string(matrix[3][0]);
            x.erase(x.find_last_not_of('0') + 1);
            if (x.back() == '.') x.pop_back();
            text += " " + x;
        }
    }
    return text;
}

struct ReadCase {
    const char* what;
    std::string bytes;
    const char* table;
    int frameCount;
};

class FraReaderCases : public ::testing::TestWithParam<ReadCase> {};

TEST_P(FraReaderCases, ReadsTheTable) {
    AnimationFrameTable frames;
    std::int32_t frameCount = -5;
    readFraFile(GetParam().bytes, frames, frameCount);
    EXPECT_EQ(describe(frames), GetParam().table);
    EXPECT_EQ(frameCount, GetParam().frameCount);
}

const std::string longWord(255, 'a');

INSTANTIATE_TEST_SUITE_P(
    Files, FraReaderCases,
    ::testing::Values(
        ReadCase{"still and single components leave the table",
                 header + "MaFrame 1\n" + record({41, 7}, "1") + record({41}, "3") + record({12}, "4") +
                     "MaFrame 2\n" + record({41, 7}, "2") + record({41}, "3"),
                 "(41 7) 1 2", 2},
        ReadCase{"length goes before the ids",
                 header + "MaFrame 1\n" + record({4, 9, 2}, "1") + record({4, 9}, "1") + record({9}, "1") +
                     record({4, 9, 2}, "2") + record({4, 9}, "2") + record({9}, "2") + record({-3, 9}, "0") +
                     record({-3, 9}, "1"),
                 "(9) 1 2; (-3 9) 0 1; (4 9) 1 2; (4 9 2) 1 2", 2},
        ReadCase{"records before the first MaFrame leave no trace; later MaFrames are words",
                 header + record({5}, "7") + "MaFrame 1\n" + record({5}, "1") + "MaFrame 2 " + record({5}, "2") +
                     "MaFrame\n" + record({5}, "3"),
                 "(5) 1 2 3", 2},
        ReadCase{"a component missing from some frames gets a shorter sequence",
                 header + "MaFrame 1\n" + record({1}, "1") + record({2}, "1") + "MaFrame 2\n" + record({2}, "2") +
                     "MaFrame 3\n" + record({1}, "3") + record({2}, "3"),
                 "(1) 1 3; (2) 1 2 3", 2},
        ReadCase{"frames: 0 with records", "parts: 1 frames: 0 MaFrame 0 " + record({8}, "1") + record({8}, "2"),
                 "(8) 1 2", 0},
        ReadCase{"words are cut after 255 characters",
                 header + "MaFrame 1 " + longWord + record({3}, "1") + longWord + "x" + record({3}, "2") +
                     record({3}, "4"),
                 "(3) 1 4", 2},
        ReadCase{"paths of one, three and twenty-five ids",
                 header + "MaFrame 1\n" + record({6}, "1") + record({6, 5, 4}, "1") +
                     record({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25}, "1") +
                     record({6}, "2") + record({6, 5, 4}, "2") +
                     record({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25}, "2"),
                 "(6) 1 2; (6 5 4) 1 2; (1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25) 1 2", 2},
        ReadCase{"numbers pass through single precision",
                 header + "MaFrame 1\n" + record({1}, "0.1") + record({1}, "0.100000000001") + record({2}, "0.1") +
                     record({2}, "0.10000001"),
                 "(2) 0.1 0.1", 2},
        ReadCase{"a NaN keeps a component", header + "MaFrame 1\n" + record({1}, "nan"), "(1) nan", 2},
        ReadCase{"a file that ends inside a record keeps what it read",
                 header + "MaFrame 1\n" + record({4}, "1") + "Part: 1 (4) 2 0", "(4) 1 1", 2},
        ReadCase{"a file that ends inside a path", header + "MaFrame 1\nPart: 3 (1 2", "", 2},
        ReadCase{"a file that ends after a header word", "parts:", "", -5},
        ReadCase{"a file that ends inside a header word", "parts: 3\nframes", "", -5},
        ReadCase{"the glued header word is not the word", "parts:3 frames: 2 MaFrame 1 " + record({1}, "1") +
                                                              record({1}, "2"),
                 "", -5},
        ReadCase{"no header words at all", "MaFrame 1 " + record({1}, "1") + record({1}, "2"), "", -5},
        ReadCase{"frames: before parts:", "frames: 2 parts: 3 MaFrame 1 " + record({1}, "1") + record({1}, "2"),
                 "", -5},
        ReadCase{"a body without MaFrame", header + record({1}, "1") + record({1}, "2"), "", 2},
        ReadCase{"an empty file", "", "", -5}),
    [](const ::testing::TestParamInfo<ReadCase>& info) {
        std::string name;
        for (const char* c = info.param.what; *c; ++c) name += std::isalnum(static_cast<unsigned char>(*c)) ? *c : '_';
        return name;
    });

TEST(FraReader, MatricesHoldTheTwelveNumbersAndColumnThree) {
    AnimationFrameTable frames;
    std::int32_t frameCount = 0;
    readFraFile(header + "MaFrame 1 Part: 1 (7) 1 2 3 4 5 6 7 8 9 10 11 12 Part: 1 (7) 0 0 0 0 0 0 0 0 0 0 0 0",
                frames, frameCount);
    ASSERT_EQ(frames.size(), 1u);
    const FrameMatrix& first = frames.begin()->second.front();
    EXPECT_EQ(first, (FrameMatrix{{{1, 2, 3, 0}, {4, 5, 6, 0}, {7, 8, 9, 0}, {10, 11, 12, 1}}}));
    EXPECT_EQ(frames.begin()->first.ownerModel, nullptr);
}

// A number that doesn't convert keeps the value of the record before at its
// place, and the record is stored all the same.
TEST(FraReader, AFailedNumberKeepsTheValueOfTheRecordBefore) {
    AnimationFrameTable frames;
    std::int32_t frameCount = 0;
    readFraFile(header + "MaFrame 1\n" + record({4, 9}, "1", "2", "5") + record({4, 9}, "3", "4", "oops"), frames,
                frameCount);
    ASSERT_EQ(frames.size(), 1u);
    const FrameSequence& sequence = frames.at(pathOf({4, 9}));
    ASSERT_EQ(sequence.size(), 2u);
    EXPECT_EQ(sequence[1][3], (std::array<double, 4>{3, 4, 5, 1}));
}

// A record whose path length is outside 1 to 25 is passed over and leaves the
// buffers alone: the next record's failed number takes the value of the
// record before the skipped one.
TEST(FraReader, PathLengthsOutsideOneToTwentyFiveAreSkipped) {
    std::string skipped = "Part: 26 (1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26) "
                          "1 0 0 0 1 0 0 0 1 9 9 9\nPart: 0 () 1 0 0 0 1 0 0 0 1 8 8 8\n"
                          "Part: -2 (4 9) 1 0 0 0 1 0 0 0 1 7 7 7\n";
    AnimationFrameTable frames;
    std::int32_t frameCount = 0;
    readFraFile(header + "MaFrame 1\n" + record({4, 9}, "1", "2", "5") + skipped + record({4, 9}, "3", "4", "x"),
                frames, frameCount);
    EXPECT_EQ(describe(frames), "(4 9) 1 3");
    EXPECT_EQ(frames.at(pathOf({4, 9}))[1][3], (std::array<double, 4>{3, 4, 5, 1}));
}

TEST(FraReader, AFileWithoutHeaderWordsLeavesTableAndCountAsTheyWere) {
    AnimationFrameTable frames;
    std::int32_t frameCount = 0;
    readFraFile(header + "MaFrame 1\n" + record({1}, "1") + record({1}, "2"), frames, frameCount);
    ASSERT_EQ(describe(frames), "(1) 1 2");
    for (const std::string& bytes : {std::string("parts: 4 MaFrame 1 ") + record({1}, "5") + record({1}, "6"),
                                     std::string(100000, ' '), std::string("frames: 9")}) {
        readFraFile(bytes, frames, frameCount);
        EXPECT_EQ(describe(frames), "(1) 1 2");
        EXPECT_EQ(frameCount, 2);
    }
}

// Export and Update keep the table: a second read appends every record again.
TEST(FraReader, ASecondReadAppendsToTheSequences) {
    const std::string file = header + "MaFrame 1\n" + record({2}, "1") + record({3}, "0") + "MaFrame 2\n" +
                             record({2}, "2") + record({3}, "0");
    AnimationFrameTable frames;
    std::int32_t frameCount = 0;
    readFraFile(file, frames, frameCount);
    readFraFile("parts: 1 frames: 7 " + file.substr(header.size()), frames, frameCount);
    EXPECT_EQ(describe(frames), "(2) 1 2 1 2");
    EXPECT_EQ(frameCount, 7);
}

TEST(FraReader, ReadsAFileByWidePathAndPassesOverOneThatIsMissing) {
    namespace fs = std::filesystem;
    fs::path file = fs::temp_directory_path() / ("vantrel_fra_reader_" + std::to_string(::getpid()) + ".fra");
    std::ofstream(file) << header << "MaFrame 1\n" << record({41, 7}, "1") << record({41, 7}, "2");
    AnimationFrameTable frames;
    std::int32_t frameCount = 0;
    EXPECT_TRUE(readFraFile(file.u16string(), frames, frameCount));
    EXPECT_EQ(describe(frames), "(41 7) 1 2");
    fs::remove(file);
    EXPECT_FALSE(readFraFile(file.u16string(), frames, frameCount));
    EXPECT_EQ(describe(frames), "(41 7) 1 2");
}

}  // namespace
