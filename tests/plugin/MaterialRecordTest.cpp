#include <gtest/gtest.h>

#include "export/MaterialRecord.h"

namespace {

MaterialRecord record(double red, double green, double blue, float intensity, const char* name = "color",
                      const char16_t* texture = u"") {
    return {name, texture, red, green, blue, intensity};
}

TEST(MaterialRecord, ColourThenIntensityThenNameThenTexture) {
    EXPECT_EQ(MaterialRecord(), record(0.5, 0.5, 0.5, 1.0f));
    // Each pair differs in one key and is ordered against all the later keys.
    EXPECT_LT(record(0.1, 0.9, 0.9, 0.9f, "z", u"z"), record(0.2, 0.0, 0.0, 0.0f, "a", u"a"));
    EXPECT_LT(record(0.5, 0.1, 0.9, 0.9f, "z", u"z"), record(0.5, 0.2, 0.0, 0.0f, "a", u"a"));
    EXPECT_LT(record(0.5, 0.5, 0.1, 0.9f, "z", u"z"), record(0.5, 0.5, 0.2, 0.0f, "a", u"a"));
    EXPECT_LT(record(0.5, 0.5, 0.5, 0.1f, "z", u"z"), record(0.5, 0.5, 0.5, 0.2f, "a", u"a"));
    EXPECT_LT(record(0.5, 0.5, 0.5, 1.0f, "a", u"z"), record(0.5, 0.5, 0.5, 1.0f, "b", u"a"));
    EXPECT_LT(record(0.5, 0.5, 0.5, 1.0f, "a", u"a"), record(0.5, 0.5, 0.5, 1.0f, "a", u"b"));
    EXPECT_FALSE(record(0.5, 0.5, 0.5, 1.0f) < record(0.5, 0.5, 0.5, 1.0f));
    // Texts by unsigned unit, a shorter one first.
    EXPECT_LT(record(0.5, 0.5, 0.5, 1.0f, "steel"), record(0.5, 0.5, 0.5, 1.0f, "steel2"));
    EXPECT_LT(record(0.5, 0.5, 0.5, 1.0f, "zinc"), record(0.5, 0.5, 0.5, 1.0f, "\xc3\xa9mail"));
    EXPECT_LT(record(0.5, 0.5, 0.5, 1.0f, "a", u"\u00ff"), record(0.5, 0.5, 0.5, 1.0f, "a", u"\u6a21"));
}

}  // namespace
