// The text class: markers, shared buffers, views made on first use, and the
// members that search, cut and format.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "toolkit/cip/cipstd/strlibsrc/xstring.h"

namespace {

std::uintptr_t pointerValue(const void* pointer) { return reinterpret_cast<std::uintptr_t>(pointer); }

const char* marker(std::uintptr_t value) { return reinterpret_cast<const char*>(value); }

int refCount(const xstring& text) { return text.getxstring_c_unattached().buffer->RefCount(); }

std::string narrowOf(const xstring& text) { return static_cast<const char*>(text); }

TEST(Xstring, MarkersSurviveCopyAssignmentAndBothCasts) {
    struct Case {
        const char* source;
        std::uintptr_t markerValue;
    };
    for (Case c : {Case{nullptr, 1}, Case{marker(1), 1}, Case{marker(2), 2}}) {
        SCOPED_TRACE(c.markerValue);
        xstring original(c.source);
        xstring copy(original);
        xstring assigned("some text");
        assigned = copy;
        xstring fromWide(reinterpret_cast<const xwchar*>(c.source));
        for (const xstring* text : {&original, &copy, &assigned, &fromWide}) {
            EXPECT_TRUE(text->IsNull());
            EXPECT_TRUE(text->IsEmpty());
            EXPECT_EQ(text->GetLength(), 0);
            EXPECT_EQ(pointerValue(static_cast<const char*>(*text)), c.markerValue);
            EXPECT_EQ(pointerValue(static_cast<const xwchar*>(*text)), c.markerValue);
        }
    }
    xstring text("abc");
    text = marker(2);
    EXPECT_EQ(pointerValue(static_cast<const char*>(text)), 2u);
}

TEST(Xstring, EmptyTextSharesOneBufferAndIsNotNull) {
    xstring a(""), b(u"");
    EXPECT_FALSE(a.IsNull());
    EXPECT_TRUE(a.IsEmpty());
    EXPECT_EQ(a.getxstring_c_unattached().buffer, b.getxstring_c_unattached().buffer);
    EXPECT_STREQ(static_cast<const char*>(b), "");
}

TEST(Xstring, CopiesShareUntilOneIsModified) {
    xstring first("shared");
    xstring second(first);
    EXPECT_EQ(refCount(first), 2);
    second += "!";
    EXPECT_EQ(narrowOf(first), "shared");
    EXPECT_EQ(narrowOf(second), "shared!");
    EXPECT_EQ(refCount(first), 1);
}

TEST(Xstring, ViewsAreMadeOnFirstUseAndKept) {
    xstring text(u"wide");
    EXPECT_EQ(text.getxstring_c_unattached().narrow, nullptr);
    const char* narrow = text;
    EXPECT_STREQ(narrow, "wide");
    EXPECT_EQ(static_cast<const char*>(text), narrow);
    text += u"r";  // writing one form drops the other view
    EXPECT_EQ(text.getxstring_c_unattached().narrow, nullptr);
    EXPECT_STREQ(static_cast<const char*>(text), "wider");
}

TEST(Xstring, AppendKeepsTheTargetsFormAndIgnoresAbsentText) {
    xstring wide(u"ab");
    wide += "c";
    EXPECT_NE(wide.getxstring_c_unattached().wide, nullptr);
    EXPECT_EQ(std::u16string(static_cast<const xwchar*>(wide)), u"abc");
    for (const char* nothing : {static_cast<const char*>(nullptr), marker(1), marker(2), ""}) {
        xstring text("same");
        const btkStrBuf* before = text.getxstring_c_unattached().buffer;
        text += nothing;
        EXPECT_EQ(text.getxstring_c_unattached().buffer, before);
        EXPECT_EQ(narrowOf(text), "same");
    }
    xstring null;
    null += u"made wide";
    EXPECT_EQ(null.getxstring_c_unattached().narrow, nullptr);
    EXPECT_EQ(narrowOf(null), "made wide");
}

TEST(Xstring, ConstructorsCutWholeCharacters) {
    EXPECT_EQ(narrowOf(xstring("h\xC3\xA9llo", 2)), "h\xC3\xA9");
    EXPECT_EQ(narrowOf(xstring("abc", 10)), "abc");
    EXPECT_EQ(narrowOf(xstring("abcdef", 2, 4)), "cd");
    EXPECT_EQ(narrowOf(xstring("abcdef", 2, -1)), "cdef");
    EXPECT_EQ(narrowOf(xstring("ab", "cd")), "abcd");
    EXPECT_EQ(narrowOf(xstring(xstring("ab"), u"cd")), "abcd");
}

TEST(Xstring, MeasuresCountCharacters) {
    xstring narrow("h\xC3\xA9");  // two characters, three bytes
    EXPECT_EQ(narrow.GetLength(), 2);
    EXPECT_EQ(narrow.GetMBSize(), 4);
    // The same text made wide: the size of its conversion plus 2.
    EXPECT_EQ(xstring(u"h\u00e9").GetMBSize(), 5);
    EXPECT_EQ(xstring().GetMBSize(), 0);
}

TEST(Xstring, NumbersUseTheWholeText) {
    struct Case {
        const char* text;
        bool isInt;
        int intValue;
        bool isDouble;
    };
    const Case cases[] = {
        {"42", true, 42, true}, {"-7", true, -7, true}, {"4.5", false, 0, true},
        {"12x", false, 0, false}, {"", false, 0, false}, {"99999999999", false, 0, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        int value = -1;
        EXPECT_EQ(xstring(c.text).ToInt(&value), c.isInt);
        if (c.isInt) {
            EXPECT_EQ(value, c.intValue);
        }
        EXPECT_EQ(xstring(c.text).ToDouble(nullptr), c.isDouble);
    }
    errno = 33;
    EXPECT_FALSE(xstring("1e999").ToDouble(nullptr));
    EXPECT_EQ(errno, 33);
    EXPECT_FALSE(xstring().ToInt(nullptr));
}

TEST(Xstring, CaseMappingKeepsTheForm) {
    EXPECT_EQ(narrowOf(xstring("Stra\xC3\x9F" "e").ToUpper()), "STRASSE");
    xstring lower = xstring(u"ABC").ToLower();
    EXPECT_NE(lower.getxstring_c_unattached().wide, nullptr);
    EXPECT_EQ(narrowOf(lower), "abc");
    EXPECT_TRUE(xstring().ToLower().IsNull());
}

TEST(Xstring, PosCountsCharacters) {
    EXPECT_EQ(xstring("h\xC3\xA9llo").Pos("llo"), 2);
    EXPECT_EQ(xstring(u"path/file.jpg").Pos(".jpg"), 9);
    EXPECT_EQ(xstring("abc").Pos("x"), -1);
    EXPECT_EQ(xstring().Pos("a"), -1);
    EXPECT_EQ(xstring("").Pos(""), 0);
}

TEST(Xstring, MatchesWildcards) {
    struct Case {
        const char* text;
        const char* pattern;
        bool matches;
    };
    const Case cases[] = {
        {"ace", "a[b-d]e", true}, {"afe", "a[b-d]e", false}, {"*", "\\*", true},   {"x", "\\*", false},
        {"abc", "a*", true},      {"abc", "*c", true},       {"abc", "a?c", true}, {"ab", "ab?", false},
        {"", "", true},           {"a", "", false},          {"a", "[a", false},   {"a", "a\\", false},
        {"h\xC3\xA9", "h?", true}, {"axxbyc", "a*b*c", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.text) + " ~ " + c.pattern);
        EXPECT_EQ(xstring(c.text).Match(c.pattern), c.matches);
    }
    EXPECT_FALSE(xstring().Match("*"));
}

TEST(Xstring, WordsSkipLeadingDelimiters) {
    xstring text("  one, two,,three ");
    EXPECT_EQ(text.GetNWords(" ,"), 3);
    EXPECT_EQ(narrowOf(text.GetWord(0, " ,")), "one");
    EXPECT_EQ(narrowOf(text.GetWord(2, xstring(" ,"))), "three");
    EXPECT_EQ(xstring().GetNWords(" "), 0);
}

TEST(Xstring, SubstituteCountsOccurrencesFromFirst) {
    struct Case {
        const char* from;
        const char* to;
        int first, count;
        const char* result;
    };
    const Case cases[] = {
        {"a", "XYZ", 2, 1, "a-XYZ-a"}, {"a", "b", 1, -1, "b-b-b"}, {"a", "", 1, 2, "--a"},
        {"a", "a", 1, -1, "a-a-a"},    {"q", "b", 1, -1, "a-a-a"}, {"a", "b", 1, 0, "a-a-a"},
        {"a", "b", 4, -1, "a-a-a"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.from) + "->" + c.to);
        xstring text("a-a-a");
        xstring copy(text);
        text.Substitute(c.from, c.to, c.first, c.count);
        EXPECT_EQ(narrowOf(text), c.result);
        EXPECT_EQ(narrowOf(copy), "a-a-a");
    }
}

TEST(Xstring, SubstringTakesCharacters) {
    EXPECT_EQ(narrowOf(xstring("h\xC3\xA9llo").Substring(1, 3)), "\xC3\xA9l");
    EXPECT_EQ(narrowOf(xstring("hello").Substring(2, -1)), "llo");
    EXPECT_TRUE(xstring("hello").Substring(5, -1).IsEmpty());
    EXPECT_TRUE(xstring("hello").Substring(2, 2).IsEmpty());
    EXPECT_TRUE(xstring().Substring(0, 1).IsNull());
}

TEST(Xstring, RawRecordMovesTheThreeFields) {
    xstring text("raw");
    __xstring_c attached = text.getxstring_c();
    EXPECT_EQ(refCount(text), 2);
    xstring adopted(attached, false);  // takes the reference over
    EXPECT_EQ(refCount(text), 2);
    xstring another;
    another.Assign(text.getxstring_c_unattached(), true);
    EXPECT_EQ(refCount(text), 3);
    EXPECT_EQ(narrowOf(adopted), "raw");
}

TEST(Xstring, StreamGivesItsText) {
    std::strstream stream;
    stream << "value " << 12;
    xstring text(stream);
    EXPECT_EQ(narrowOf(text), "value 12");
}

TEST(Xstring, BufferVersionTagIsComparedByText) {
    xstring text("peek");
    btkStrBuf* buffer = text.getxstring_c_unattached().buffer;
    const char* narrow = nullptr;
    char sameText[] = "J-03";
    EXPECT_EQ(buffer->PeekViews(sameText, &narrow, nullptr), buffer);
    EXPECT_STREQ(narrow, "peek");
    EXPECT_EQ(buffer->PeekViews("J-02", &narrow, nullptr), nullptr);
    EXPECT_EQ(refCount(text), 1);
}

TEST(Xstring, PrintfLimitIs2055Characters) {
    EXPECT_EQ(xstring::Printf("%d-%s", 7, "x").GetLength(), 3);
    EXPECT_EQ(xstring::Printf("%2055d", 1).GetLength(), 2055);
    EXPECT_EXIT(xstring::Printf("%2056d", 1), testing::ExitedWithCode(1), "String too long");
}

TEST(XstringDeathTest, FatalErrorsEndTheProcess) {
    EXPECT_EXIT(xstring("a b").GetWord(2, " "), testing::ExitedWithCode(1), "Word index is out of range");
    EXPECT_EXIT(xstring("\xFF").GetLength(), testing::ExitedWithCode(1), "Invalid multibyte string");
}

}  // namespace
