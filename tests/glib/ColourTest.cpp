#include "glib/Colour.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

void expectComponents(Colour const& colour, double red, double green, double blue) {
    EXPECT_TRUE(colour.isSet());
    EXPECT_DOUBLE_EQ(colour.red(), red);
    EXPECT_DOUBLE_EQ(colour.green(), green);
    EXPECT_DOUBLE_EQ(colour.blue(), blue);
}

TEST(ColourEquality, UnsetColourEqualsOnlyAnotherUnsetColourAndTheThemedFlagIsNotCompared) {
    EXPECT_EQ(Colour(), Colour());
    EXPECT_NE(Colour(), Colour(0.0, 0.0, 0.0));
    EXPECT_NE(Colour(0.0, 0.0, 0.0), Colour());
    Colour themed(0.1, 0.2, 0.3, true);
    EXPECT_EQ(themed, Colour(0.1, 0.2, 0.3));
    EXPECT_NE(themed, Colour(0.1, 0.2, 0.30001, true));
    themed.setrgb(0.5, 0.5, 0.5);
    EXPECT_FALSE(themed.isThemed());
}

TEST(ColourPacking, PacksClampedRoundedBytes) {
    EXPECT_EQ(Colour(0.0, 0.5, 1.0).get_vlib_colour(true), 0x0080FFFFu);
    EXPECT_EQ(Colour(-1.0, 2.0, 0.2).get_vlib_colour(false), 0x00FF33u);
    EXPECT_EQ(Colour(std::nan(""), 1.0, 1.0).get_vlib_colour(false), 0x00FFFFu);
}

TEST(ColourMix, BlendsLinearlyWithoutClampingAndAnUnsetSideLeavesTheOther) {
    Colour const a(0.2, 0.4, 1.0);
    Colour const b(0.4, 0.0, 0.5);
    expectComponents(Colour::mix(a, b, 0.5), 0.3, 0.2, 0.75);
    expectComponents(Colour::mix(a, b, 2.0), 0.6, -0.4, 0.0);
    EXPECT_EQ(Colour::mix(Colour(), b, 0.5), b);
    EXPECT_EQ(Colour::mix(b, Colour(), 0.5), b);
}

TEST(ColourVariations, ScaleAndOffsetClampToUnitRangeAndKeepUnsetColoursUnset) {
    expectComponents(scale(Colour(0.4, 0.6, 0.2), 2.0), 0.8, 1.0, 0.4);
    expectComponents(scale(Colour(0.4, 0.6, 0.2), -1.0), 0.0, 0.0, 0.0);
    EXPECT_FALSE(scale(Colour(), 2.0).isSet());
    expectComponents(offsetColour(Colour(0.9, 0.1, 0.5), 0.2, -0.2, 0.1), 1.0, 0.0, 0.6);
    EXPECT_FALSE(offsetColour(Colour(), 0.1, 0.1, 0.1).isSet());
}

TEST(NormalisedRGBValues, ConvertToAndFromColourClamped) {
    EXPECT_EQ(fromColour(Colour(-0.5, 0.25, 1.5)), NormalisedRGB(0.0f, 0.25f, 1.0f, 1.0f));
    EXPECT_EQ(fromColour(Colour()), NormalisedRGB());
    EXPECT_EQ(Colour(NormalisedRGB(0.25f, 0.5f, 0.75f, 0.1f)), Colour(0.25, 0.5, 0.75));
}

} // namespace
