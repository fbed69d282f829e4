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

TEST(ColourEquality, UnsetColourEqualsOnlyAnotherUnsetColour) {
    EXPECT_EQ(Colour(), Colour());
    EXPECT_FALSE(Colour().isSet());
    EXPECT_NE(Colour(), Colour(0.0, 0.0, 0.0));
    EXPECT_NE(Colour(0.0, 0.0, 0.0), Colour());
    EXPECT_NE(Colour(), Colour(1.0, 1.0, 1.0));
    Colour colour;
    colour.setrgb(0.0, 0.0, 0.0);
    EXPECT_TRUE(colour.isSet());
    EXPECT_EQ(colour, Colour(0.0, 0.0, 0.0));
}

TEST(ColourEquality, ThemedFlagIsKeptButNotCompared) {
    Colour const themed(0.1, 0.2, 0.3, true);
    Colour const fixed(0.1, 0.2, 0.3);
    EXPECT_TRUE(themed.isThemed());
    EXPECT_FALSE(fixed.isThemed());
    EXPECT_EQ(themed, fixed);
    EXPECT_NE(themed, Colour(0.1, 0.2, 0.30001, true));

    Colour assigned;
    assigned = themed;
    EXPECT_TRUE(assigned.isThemed());
    assigned.setrgb(0.5, 0.5, 0.5);
    EXPECT_FALSE(assigned.isThemed());
    EXPECT_EQ(assigned, Colour(0.5, 0.5, 0.5));
}

TEST(ColourComponents, OutOfRangeComponentsStayReadable) {
    Colour const marker(-1.0, 0.0, 0.0);
    EXPECT_EQ(marker.red(), -1.0);
    EXPECT_NE(marker, Colour(0.0, 0.0, 0.0));
    EXPECT_EQ(Colour(2.5, 0.0, 0.0).red(), 2.5);
}

TEST(ColourComponents, BrightnessWeightsGreenMost) {
    EXPECT_DOUBLE_EQ(Colour(1.0, 1.0, 1.0).brightness(), 1.0);
    EXPECT_DOUBLE_EQ(Colour(0.0, 0.0, 0.0).brightness(), 0.0);
    EXPECT_DOUBLE_EQ(Colour(1.0, 0.0, 0.0).brightness(), 0.299);
    EXPECT_DOUBLE_EQ(Colour(0.0, 1.0, 0.0).brightness(), 0.587);
    EXPECT_DOUBLE_EQ(Colour(0.0, 0.0, 1.0).brightness(), 0.114);
}

TEST(ColourPacking, PacksClampedRoundedBytes) {
    struct Case {
        Colour colour;
        bool withAlpha;
        unsigned expected;
    } const cases[] = {
        {Colour(1.0, 0.0, 0.0), false, 0xFF0000u},
        {Colour(0.0, 0.0, 1.0), false, 0x0000FFu},
        {Colour(0.0, 0.5, 1.0), false, 0x0080FFu},
        {Colour(0.0, 0.5, 1.0), true, 0x0080FFFFu},
        {Colour(-1.0, 2.0, 0.2), false, 0x00FF33u},
        {Colour(0.18, 0.48, 0.92), false, 0x2E7AEBu},
        {Colour(0.0, 0.0, 0.0), true, 0x000000FFu},
        {Colour(std::nan(""), 1.0, 1.0), false, 0x00FFFFu},
    };
    for (auto const& c : cases) {
        EXPECT_EQ(c.colour.get_vlib_colour(c.withAlpha), c.expected)
            << c.colour.red() << ", " << c.colour.green() << ", " << c.colour.blue();
    }
}

TEST(ColourMix, BlendsLinearlyWithoutClamping) {
    Colour const a(0.2, 0.4, 1.0);
    Colour const b(0.4, 0.0, 0.5);
    EXPECT_EQ(Colour::mix(a, b, 0.0), a);
    EXPECT_EQ(Colour::mix(a, b, 1.0), b);
    expectComponents(Colour::mix(a, b, 0.5), 0.3, 0.2, 0.75);
    expectComponents(Colour::mix(a, b, 2.0), 0.6, -0.4, 0.0);
    expectComponents(Colour::mix(a, b, -1.0), 0.0, 0.8, 1.5);
}

TEST(ColourMix, UnsetSideLeavesTheOtherColour) {
    Colour const b(0.4, 0.0, 0.5);
    EXPECT_EQ(Colour::mix(Colour(), b, 0.5), b);
    EXPECT_EQ(Colour::mix(b, Colour(), 0.5), b);
    EXPECT_FALSE(Colour::mix(Colour(), Colour(), 0.5).isSet());
}

TEST(ColourVariations, ScaleMultipliesAndClampsToUnitRange) {
    expectComponents(scale(Colour(0.4, 0.6, 0.2), 2.0), 0.8, 1.0, 0.4);
    expectComponents(scale(Colour(0.4, 0.6, 0.2), 0.5), 0.2, 0.3, 0.1);
    expectComponents(scale(Colour(0.4, 0.6, 0.2), -1.0), 0.0, 0.0, 0.0);
    expectComponents(scale(Colour(-1.0, 0.5, 3.0), 1.0), 0.0, 0.5, 1.0);
    EXPECT_FALSE(scale(Colour(), 2.0).isSet());
}

TEST(ColourVariations, OffsetAddsAndClampsEachComponent) {
    expectComponents(offsetColour(Colour(0.9, 0.1, 0.5), 0.2, -0.2, 0.1), 1.0, 0.0, 0.6);
    expectComponents(offsetColour(Colour(0.5, 0.5, 0.5), -0.25, 0.0, 0.25), 0.25, 0.5, 0.75);
    EXPECT_FALSE(offsetColour(Colour(), 0.1, 0.1, 0.1).isSet());
}

TEST(NormalisedRGBValues, DefaultsToOpaqueBlackAndComparesAlpha) {
    NormalisedRGB const black;
    EXPECT_EQ(black, NormalisedRGB(0.0f, 0.0f, 0.0f, 1.0f));
    EXPECT_EQ(NormalisedRGB(1.0f, 0.5f, 0.25f).a, 1.0f);
    EXPECT_NE(NormalisedRGB(1.0f, 1.0f, 1.0f), NormalisedRGB(1.0f, 1.0f, 1.0f, 0.5f));
    EXPECT_NE(NormalisedRGB(1.0f, 1.0f, 1.0f), NormalisedRGB(1.0f, 1.0f, 0.9f));
}

TEST(NormalisedRGBValues, ConvertsToAndFromColour) {
    EXPECT_EQ(fromColour(Colour(-0.5, 0.25, 1.5)), NormalisedRGB(0.0f, 0.25f, 1.0f, 1.0f));
    EXPECT_EQ(fromColour(Colour()), NormalisedRGB());

    Colour const back(NormalisedRGB(0.25f, 0.5f, 0.75f, 0.1f));
    EXPECT_EQ(back, Colour(0.25, 0.5, 0.75));
    EXPECT_FALSE(back.isThemed());
    EXPECT_EQ(fromColour(back), NormalisedRGB(0.25f, 0.5f, 0.75f));
}

TEST(ColourDataValues, KeepsComponentsSpaceAndAlpha) {
    ColourData const data(0.1, 0.2, 0.3);
    EXPECT_EQ(data.getRed(), 0.1);
    EXPECT_EQ(data.getGreen(), 0.2);
    EXPECT_EQ(data.getBlue(), 0.3);
    EXPECT_EQ(data.getAlpha(), 1.0);
    EXPECT_EQ(data.getSpace(), ColourSpace::RGB);

    ColourData copy(0.0, 0.0, 0.0);
    copy = data;
    EXPECT_EQ(copy, data);
    EXPECT_NE(ColourData(0.1, 0.2, 0.3, ColourSpace::RGB, 0.5), data);
    EXPECT_NE(ColourData(0.1, 0.2, 0.4), data);
    EXPECT_NE(ColourData(0.0, 0.2, 0.3), data);
}

} // namespace
