#include <gtest/gtest.h>

#include "platform/Utf8.h"

namespace {

TEST(Utf8ToWide, ConvertsEveryLengthAndReplacesMalformedBytes) {
    EXPECT_EQ(platform::utf8ToWide("C:/scenes/a.vnz"), u"C:/scenes/a.vnz");
    EXPECT_EQ(platform::utf8ToWide(""), u"");
    EXPECT_EQ(platform::utf8ToWide("caf\xc3\xa9 \xe2\x82\xac"), u"caf\u00e9 \u20ac");
    EXPECT_EQ(platform::utf8ToWide("\xf0\x9f\x98\x80"), u"\U0001F600");
    // A stray continuation byte, an overlong slash, a truncated sequence and an
    // encoded surrogate.
    EXPECT_EQ(platform::utf8ToWide("a\x80" "b"), u"a\uFFFDb");
    EXPECT_EQ(platform::utf8ToWide("\xc0\xaf"), u"\uFFFD\uFFFD");
    EXPECT_EQ(platform::utf8ToWide("\xe2\x82"), u"\uFFFD");
    EXPECT_EQ(platform::utf8ToWide("\xed\xa0\x80"), u"\uFFFD");
    EXPECT_EQ(platform::utf8ToWide("\xe0\x80\xaf"), u"\uFFFD");
}

TEST(WideToUtf8, EncodesEveryLengthAndReplacesLoneSurrogates) {
    EXPECT_EQ(platform::wideToUtf8(u"caf\u00e9 \u20ac \U0001F600"), "caf\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80");
    EXPECT_EQ(platform::wideToUtf8(u""), "");
    const char16_t loneHigh[] = {u'a', 0xD800, u'b', 0};
    const char16_t loneLow[] = {0xDC00, 0};
    EXPECT_EQ(platform::wideToUtf8(loneHigh), "a\xef\xbf\xbd" "b");
    EXPECT_EQ(platform::wideToUtf8(loneLow), "\xef\xbf\xbd");
}

}  // namespace
