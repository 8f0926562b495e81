#include <gtest/gtest.h>

#include "importers/sceneapi/Utf8.h"

namespace {

TEST(Utf8ToWide, ConvertsEveryLengthAndReplacesMalformedBytes) {
    EXPECT_EQ(nvx::utf8ToWide("C:/scenes/a.vnz"), u"C:/scenes/a.vnz");
    EXPECT_EQ(nvx::utf8ToWide(""), u"");
    EXPECT_EQ(nvx::utf8ToWide("caf\xc3\xa9 \xe2\x82\xac"), u"caf\u00e9 \u20ac");
    EXPECT_EQ(nvx::utf8ToWide("\xf0\x9f\x98\x80"), u"\U0001F600");
    // A stray continuation byte, an overlong slash, a truncated sequence and an
    // encoded surrogate.
    EXPECT_EQ(nvx::utf8ToWide("a\x80" "b"), u"a\uFFFDb");
    EXPECT_EQ(nvx::utf8ToWide("\xc0\xaf"), u"\uFFFD\uFFFD");
    EXPECT_EQ(nvx::utf8ToWide("\xe2\x82"), u"\uFFFD");
    EXPECT_EQ(nvx::utf8ToWide("\xed\xa0\x80"), u"\uFFFD");
    EXPECT_EQ(nvx::utf8ToWide("\xe0\x80\xaf"), u"\uFFFD");
}

}  // namespace
