// The pure rules of the export: matrices, chord heights, colours and keys,
// unit scales, and the Update decision.
#include <gtest/gtest.h>

#include "export/AssemblyAppearance.h"
#include "export/MaterialEmission.h"
#include "export/MatrixMath.h"
#include "export/Tessellation.h"
#include "export/Units.h"
#include "export/UpdateTracking.h"

namespace {

void expectMatrixNear(const ProMatrix actual, const ProMatrix expected) {
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_NEAR(actual[row][column], expected[row][column], 1e-12) << "at " << row << "," << column;
}

TEST(MatrixMath, InverseOfScaledRotationUndoesIt) {
    // A rotation of 90 degrees about z, scaled by 2, moved by (1, 2, 3).
    const ProMatrix m = {{0, 2, 0, 0}, {-2, 0, 0, 0}, {0, 0, 2, 0}, {1, 2, 3, 1}};
    ProMatrix inverse;
    ASSERT_TRUE(invertSimilarity(m, inverse));
    ProMatrix product, identity;
    multiplyMatrix(m, inverse, product);
    setIdentity(identity);
    expectMatrixNear(product, identity);
    multiplyMatrix(inverse, m, product);
    expectMatrixNear(product, identity);
}

TEST(MatrixMath, DegenerateAndNullInputs) {
    const ProMatrix degenerate = {{1e-10, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {5, 5, 5, 1}};
    ProMatrix out = {{7, 7, 7, 7}, {7, 7, 7, 7}, {7, 7, 7, 7}, {7, 7, 7, 7}};
    EXPECT_FALSE(invertSimilarity(degenerate, out));
    EXPECT_EQ(out[0][0], 7.0) << "a degenerate matrix leaves the output alone";
    ProMatrix identity;
    setIdentity(identity);
    EXPECT_TRUE(invertSimilarity(nullptr, out));
    expectMatrixNear(out, identity);
    copyMatrix(nullptr, out);
    expectMatrixNear(out, identity);
}

TEST(MatrixMath, MultiplyTakesRowsOfTheFirstAgainstColumnsOfTheSecond) {
    const ProMatrix translate = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {10, 0, 0, 1}};
    const ProMatrix scale = {{2, 0, 0, 0}, {0, 2, 0, 0}, {0, 0, 2, 0}, {0, 0, 0, 1}};
    ProMatrix product;
    multiplyMatrix(translate, scale, product);
    EXPECT_EQ(product[3][0], 20.0) << "row vectors: the translation is scaled by what follows";
    multiplyMatrix(scale, translate, product);
    EXPECT_EQ(product[3][0], 10.0);
}

// Of a diagonal of 1000: coarse 0.5, fine 0.0001, and quality q takes
// t = 1 + 0.2 ln q of the way from coarse to fine, t not clamped.
TEST(TessellationQuality, ChordHeightFollowsTheQualityFormula) {
    const std::pair<double, double> cases[] = {
        {1.0, 0.0001}, {0.0, 0.5}, {0.2, 0.16101160}, {0.001, 0.69073737}, {0.0000009, 0.5}};
    for (auto [quality, chord] : cases) EXPECT_NEAR(chordHeightFor(1000.0, quality), chord, 1e-8) << quality;
}

TEST(MaterialColour, ComponentsAndKeys) {
    EXPECT_EQ(materialComponent(0.5, 1.0f), 128);
    EXPECT_EQ(materialComponent(0.2, 0.8f), 41) << "51.5 truncates to 51, 51 x 0.8 = 40.8, +0.5 truncates to 41";
    EXPECT_EQ(materialComponent(1.0, 1.0f), 255);
    EXPECT_EQ(materialComponent(0.0, 0.5f), 0);
    EXPECT_EQ(materialKey(true, "BRACKET", "Steel", 128, 128, 128), "bracket:steel:128:128:128");
    EXPECT_EQ(materialKey(false, "BRACKET", "Steel", 128, 128, 128), "steel:128:128:128");
    EXPECT_EQ(materialKey(false, "P", "", 1, 2, 3), ":1:2:3");
}

// The visible textures, in order: a path counts if it holds an image
// extension exactly as written, and then replaces the texture found before.
TEST(VisibleTextures, AnImagePathReplacesTheTextureExactlyAsWritten) {
    struct Case {
        const char16_t* path;
        const char16_t* texture;  // after this path, starting from "before.png"
    };
    const Case cases[] = {
        {u"maps/wood.jpg", u"maps/wood.jpg"},  {u"maps/WOOD.JPG", u"before.png"}, {u"maps/wood.jpeg", u"before.png"},
        {u"maps/wood.tiff", u"maps/wood.tiff"}, {u"c:\\maps\\w.bmp", u"c:\\maps\\w.bmp"}, {u"", u"before.png"},
        {u"maps/wood.gif.txt", u"maps/wood.gif.txt"}, {u"plain.png", u"plain.png"},
    };
    for (const Case& c : cases) {
        MaterialRecord record;
        record.texture = u"before.png";
        takeVisibleTexture(c.path, record);
        EXPECT_EQ(record.texture, c.texture);
    }
}

TEST(Units, MeterScaleByExactUnitName) {
    const std::pair<const char16_t*, float> cases[] = {
        {u"mm", 1000.0f}, {u"in", 39.37008f}, {u"micron", 1000000.0f}, {u"MM", 1.0f}, {u"km", 1.0f}, {u"", 1.0f}};
    for (auto [unit, scale] : cases) EXPECT_EQ(meterScaleOfUnitName(unit), scale);
}

TEST(UpdateDecision, ChangedOrPickedComponentsSendGeometry) {
    EXPECT_TRUE(shouldEmitGeometry(false, false, true, false));
    EXPECT_FALSE(shouldEmitGeometry(false, true, false, true)) << "not included never sends";
    EXPECT_TRUE(shouldEmitGeometry(true, true, true, false));
    EXPECT_FALSE(shouldEmitGeometry(true, false, true, false));
    EXPECT_TRUE(shouldEmitGeometry(true, false, true, true));
    EXPECT_FALSE(shouldEmitGeometry(true, false, false, true));
}

}  // namespace
