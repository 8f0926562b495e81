#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/CodePage.h"
#include "tests/support/LocaleScope.h"
#include "toolkit/btk/TextConversion.h"

namespace {

// Narrows into the first `size` bytes of a larger buffer, so that a write
// past the given size shows.
std::string narrow(std::u16string_view text, std::size_t size) {
    char buffer[32];
    std::memset(buffer, '#', sizeof buffer);
    std::size_t length = btk::narrowToBuffer(text, buffer, size);
    for (std::size_t index = size; index < sizeof buffer; ++index) {
        if (buffer[index] != '#') return "written past the buffer";
    }
    return std::strlen(buffer) == length ? std::string(buffer) : "wrong length";
}

TEST(NarrowToBuffer, UnmappableCharacterIsLostNotGuessed) {
    testsupport::LocaleScope locale("C");
    // Omega is neither ASCII (the C locale) nor in Windows' code page 1252.
    EXPECT_EQ(narrow(u"M\u03a9ller \u6a21", 32), "Mller ");
}

TEST(NarrowToBuffer, TooSmallBufferKeepsWholeCharactersAndEndsInside) {
#ifdef _WIN32
    // Windows' system code page (1252 under Wine's default settings) has a
    // byte for e-acute and none for the CJK character.
    ASSERT_EQ(platform::systemCodePageName(), "windows-1252");
    EXPECT_EQ(narrow(u"a\u00e9\u6a21b", 4), "a\xe9" "b");
    EXPECT_EQ(narrow(u"a\u00e9\u00e9", 3), "a\xe9");
#else
    testsupport::LocaleScope locale("C.UTF-8");
    ASSERT_TRUE(locale.ok()) << "the C.UTF-8 locale is not installed";
    // a, e-acute of 2 bytes, a CJK character of 3 bytes, a surrogate pair of 4.
    EXPECT_EQ(narrow(u"a\u00e9\u6a21", 7), "a\xc3\xa9\xe6\xa8\xa1");
    EXPECT_EQ(narrow(u"a\u00e9\u6a21", 6), "a\xc3\xa9");
    EXPECT_EQ(narrow(u"a\u00e9\u6a21", 3), "a");
    EXPECT_EQ(narrow(u"a\U0001F600", 5), "a");
#endif
    EXPECT_EQ(narrow(u"abcdef", 4), "abc");
    EXPECT_EQ(narrow(u"abc", 1), "");
    char untouched = '#';
    EXPECT_EQ(btk::narrowToBuffer(u"abc", &untouched, 0), 0u);
    EXPECT_EQ(untouched, '#');

    char16_t wide[4];
#ifdef _WIN32
    EXPECT_EQ(btk::widenToBuffer("a\xe9\xe9", wide, 3), 2u);
    EXPECT_EQ(std::u16string(wide), u"a\u00e9");
#else
    EXPECT_EQ(btk::widenToBuffer("a\xf0\x9f\x98\x80", wide, 3), 1u) << "half a surrogate pair is dropped";
    EXPECT_EQ(std::u16string(wide), u"a");
#endif
}

}  // namespace
