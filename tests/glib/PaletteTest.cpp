#include "glib/Palette.h"

#include <gtest/gtest.h>

namespace {

Colour const lightGrey(0.85, 0.85, 0.85);
Colour const darkGrey(0.2, 0.2, 0.2);

void expectNear(Colour const& actual, Colour const& expected) {
    ASSERT_TRUE(actual.isSet());
    EXPECT_NEAR(actual.red(), expected.red(), 1e-9);
    EXPECT_NEAR(actual.green(), expected.green(), 1e-9);
    EXPECT_NEAR(actual.blue(), expected.blue(), 1e-9);
}

TEST(PaletteShades, RunFromLightestToDarkestAroundTheWindowColourBySteps) {
    for (Colour const& window : {lightGrey, darkGrey}) {
        Palette const palette(window);
        EXPECT_EQ(palette.window(), window);
        for (int shade = WindowShadeLightest; shade < WindowShadeDarkest; ++shade)
            EXPECT_GT(palette.window(shade).brightness(), palette.window(shade + 1).brightness());
    }
    Palette flat(lightGrey);
    flat.setContrast(0.0f);
    EXPECT_EQ(flat.window(WindowShadeLightest), lightGrey);
    Palette high(lightGrey);
    high.setContrast(0.2f);
    EXPECT_LT(high.window(WindowShadeDarkest).brightness(),
              Palette(lightGrey).window(WindowShadeDarkest).brightness());
}

TEST(PaletteAppearances, FadedTextMovesTowardsTheWindowAndEveryTextContrastsWithItsGround) {
    Palette palette(Colour(0.8, 0.6, 1.0), Colour(0.0, 0.2, 0.0));
    palette.setSelection(Colour(0.2, 0.4, 0.6));
    expectNear(palette.text(TextInactive), Colour(0.4, 0.4, 0.5));
    expectNear(palette.selection(SelectionFaint), Colour(0.5, 0.5, 0.8));

    EXPECT_EQ(Palette().selectedText(), Colour(1.0, 1.0, 1.0)) << "on the default blue";
    palette.setSelection(Colour(1.0, 0.9, 0.0));
    EXPECT_EQ(palette.selectedText(), Colour(0.0, 0.0, 0.0)) << "on yellow";
    Palette const dark(darkGrey);
    EXPECT_GT(dark.text().brightness() - dark.window().brightness(), 0.5);
    // A child window stands off away from the text.
    EXPECT_LT(dark.childWindow(ChildWindowInset).brightness(), darkGrey.brightness());
    EXPECT_GT(Palette(lightGrey).childWindow(ChildWindowInset).brightness(),
              lightGrey.brightness());
}

TEST(PaletteScale, MovesTowardsWhiteAboveOneAndBlackBelowAndKeepsResultsInRange) {
    Palette const palette;
    Colour const mid(0.5, 0.2, 0.8);
    expectNear(palette.scale(mid, 1.5), Colour(0.75, 0.6, 0.9));
    expectNear(palette.scale(mid, 0.5), Colour(0.25, 0.1, 0.4));
    expectNear(palette.scale(mid, 3.0), Colour(1.0, 1.0, 1.0));
    expectNear(palette.scale(Colour(0.0, 0.0, 0.0), 1.2), Colour(0.2, 0.2, 0.2));
    EXPECT_FALSE(palette.scale(Colour(), 1.5).isSet());
}

TEST(DerivedPalettes, EachReplacesItsColourAndKeepsTheRest) {
    Palette const base;
    Palette const derived = makeWindowPalette(base, darkGrey);
    EXPECT_EQ(derived.window(WindowShadeLightest), Palette(darkGrey).window(WindowShadeLightest));
    EXPECT_EQ(derived.text(), base.text());
    Palette const text = makeTextPalette(base, Colour(0.9, 0.9, 0.8));
    EXPECT_EQ(text.text(), Colour(0.9, 0.9, 0.8));
    EXPECT_EQ(text.window(), base.window());
    EXPECT_EQ(makeChildPalette(base, ChildWindowInset).window(),
              base.childWindow(ChildWindowInset));
}

TEST(PaletteEquality, EverySlotAndTheContrastCount) {
    Colour const other(0.5, 0.1, 0.3);
    void (*const setters[])(Palette&, Colour const&) = {
        [](Palette& p, Colour const& c) { p.setWindow(c); },
        [](Palette& p, Colour const& c) { p.setText(c); },
        [](Palette& p, Colour const& c) { p.setSelection(c); },
        [](Palette& p, Colour const& c) { p.setHeadingText(c); },
        [](Palette& p, Colour const& c) { p.setSubheadingText(c); },
        [](Palette& p, Colour const& c) { p.setButton(c); },
        [](Palette& p, Colour const& c) { p.setWarning(c); },
        [](Palette& p, Colour const&) { p.setContrast(0.3f); },
    };
    EXPECT_EQ(Palette(), Palette());
    for (auto setter : setters) {
        Palette changed;
        setter(changed, other);
        EXPECT_NE(changed, Palette());
    }
}

} // namespace
