#include <gtest/gtest.h>

#include "platform/CodePage.h"
#include "tests/support/LocaleScope.h"

namespace {

using testsupport::LocaleScope;

TEST(CodePage, Utf8LocaleRoundTripsNonAsciiText) {
    LocaleScope locale("C.UTF-8");
    ASSERT_TRUE(locale.ok()) << "the C.UTF-8 locale is not installed";
    std::u16string wide = u"Gr\u00fc\u00dfe/\u6a21\u578b.vnz";
    std::string narrow = platform::wideToSystem(wide);
    EXPECT_EQ(narrow, "Gr\xc3\xbc\xc3\x9f" "e/\xe6\xa8\xa1\xe5\x9e\x8b.vnz");
    EXPECT_EQ(platform::systemToWide(narrow), wide);
}

TEST(CodePage, UnmappableCharacterIsLeftOutNotGuessed) {
    LocaleScope locale("C");
    // The C locale is ASCII: the u-umlaut can't be mapped and must vanish
    // rather than turn into "u" or "?".
    EXPECT_EQ(platform::wideToSystem(u"M\u00fcller"), "Mller");
    EXPECT_EQ(platform::wideToSystem(u""), "");
}

}  // namespace
