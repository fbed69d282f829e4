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

TEST(PaletteShades, RunFromLightestToDarkestAroundTheWindowColour) {
    for (Colour const& window : {lightGrey, darkGrey, Colour(0.3, 0.5, 0.7)}) {
        Palette const palette(window);
        EXPECT_EQ(palette.window(WindowShadeBase), window);
        EXPECT_EQ(palette.window(), window);
        for (int shade = WindowShadeLightest; shade < WindowShadeDarkest; ++shade)
            EXPECT_GT(palette.window(shade).brightness(), palette.window(shade + 1).brightness())
                << "window " << window.brightness() << " shade " << shade;
    }
}

TEST(PaletteShades, StepsGrowWithTheContrast) {
    Palette flat(lightGrey);
    flat.setContrast(0.0f);
    EXPECT_EQ(flat.window(WindowShadeLightest), lightGrey);
    EXPECT_EQ(flat.window(WindowShadeDarkest), lightGrey);

    Palette low(lightGrey);
    low.setContrast(0.05f);
    Palette high(lightGrey);
    high.setContrast(0.2f);
    EXPECT_GT(high.window(WindowShadeLightest).brightness(),
              low.window(WindowShadeLightest).brightness());
    EXPECT_LT(high.window(WindowShadeDarkest).brightness(),
              low.window(WindowShadeDarkest).brightness());
}

TEST(PaletteAppearances, FadedTextAndSelectionMoveTowardsTheWindow) {
    Palette palette(Colour(0.8, 0.6, 1.0), Colour(0.0, 0.2, 0.0));
    palette.setSelection(Colour(0.2, 0.4, 0.6));

    expectNear(palette.text(TextNormal), Colour(0.0, 0.2, 0.0));
    expectNear(palette.text(TextInactive), Colour(0.4, 0.4, 0.5));
    expectNear(palette.text(TextFaint), Colour(0.56, 0.48, 0.7));
    expectNear(palette.selection(SelectionNormal), Colour(0.2, 0.4, 0.6));
    expectNear(palette.selection(SelectionFaint), Colour(0.5, 0.5, 0.8));
}

TEST(PaletteAppearances, SelectedTextContrastsWithTheSelection) {
    Palette palette;
    EXPECT_EQ(palette.selectedText(), Colour(1.0, 1.0, 1.0)) << "on the default blue";
    palette.setSelection(Colour(1.0, 0.9, 0.0));
    EXPECT_EQ(palette.selectedText(), Colour(0.0, 0.0, 0.0)) << "on yellow";
}

TEST(PaletteAppearances, DefaultsAreReadable) {
    Palette const palette;
    EXPECT_GT(palette.window().brightness() - palette.text().brightness(), 0.5);
    EXPECT_LT(palette.shadow().brightness(), 0.15);
    EXPECT_EQ(palette.selection(), Colour(0.18, 0.48, 0.92));

    Palette const dark(darkGrey);
    EXPECT_GT(dark.text().brightness() - dark.window().brightness(), 0.5);
}

TEST(PaletteAppearances, ChildWindowStandsOffAwayFromTheText) {
    Palette const light(lightGrey);
    EXPECT_EQ(light.childWindow(ChildWindowPlain), lightGrey);
    EXPECT_GT(light.childWindow(ChildWindowInset).brightness(), lightGrey.brightness());
    EXPECT_GT(light.childWindow(ChildWindowDeep).brightness(),
              light.childWindow(ChildWindowInset).brightness());

    Palette const dark(darkGrey);
    EXPECT_LT(dark.childWindow(ChildWindowInset).brightness(), darkGrey.brightness());
}

TEST(PaletteScale, MovesTowardsWhiteAboveOneAndBlackBelowByTheDistanceFromOne) {
    Palette const palette;
    Colour const mid(0.5, 0.2, 0.8);
    expectNear(palette.scale(mid, 1.5), Colour(0.75, 0.6, 0.9));
    expectNear(palette.scale(mid, 0.5), Colour(0.25, 0.1, 0.4));
    expectNear(palette.scale(mid, 1.0), mid);
    expectNear(palette.scale(mid, 3.0), Colour(1.0, 1.0, 1.0));
    expectNear(palette.scale(mid, -2.0), Colour(0.0, 0.0, 0.0));
}

TEST(PaletteScale, WorksOnBlackAndKeepsResultsInRange) {
    Palette const palette;
    expectNear(palette.scale(Colour(0.0, 0.0, 0.0), 1.2), Colour(0.2, 0.2, 0.2));
    expectNear(palette.scale(Colour(-1.0, 2.0, 0.5), 1.0), Colour(0.0, 1.0, 0.5));
    EXPECT_FALSE(palette.scale(Colour(), 1.5).isSet());
}

TEST(DerivedPalettes, NewWindowColourMovesTheShadesAndKeepsTheRest) {
    Palette const base;
    Palette const derived = makeWindowPalette(base, darkGrey);
    EXPECT_EQ(derived.window(), darkGrey);
    EXPECT_EQ(derived.window(WindowShadeLightest), Palette(darkGrey).window(WindowShadeLightest));
    EXPECT_NE(derived.window(WindowShadeLightest), base.window(WindowShadeLightest));
    EXPECT_EQ(derived.text(), base.text());
    EXPECT_EQ(derived.selection(), base.selection());
    EXPECT_FLOAT_EQ(derived.contrast(), base.contrast());
}

TEST(DerivedPalettes, NewTextColourAndChildPalette) {
    Palette const base;
    Palette const text = makeTextPalette(base, Colour(0.9, 0.9, 0.8));
    EXPECT_EQ(text.text(), Colour(0.9, 0.9, 0.8));
    EXPECT_EQ(text.window(), base.window());

    Palette const child = makeChildPalette(base, ChildWindowInset);
    EXPECT_EQ(child.window(), base.childWindow(ChildWindowInset));
    EXPECT_EQ(child.text(), base.text());
}

TEST(PaletteEquality, EverySlotAndTheContrastCount) {
    Colour const other(0.5, 0.1, 0.3);
    std::vector<void (*)(Palette&, Colour const&)> const setters = {
        [](Palette& p, Colour const& c) { p.setWindow(c); },
        [](Palette& p, Colour const& c) { p.setText(c); },
        [](Palette& p, Colour const& c) { p.setSelection(c); },
        [](Palette& p, Colour const& c) { p.setHeadingText(c); },
        [](Palette& p, Colour const& c) { p.setSubheadingText(c); },
        [](Palette& p, Colour const& c) { p.setButton(c); },
        [](Palette& p, Colour const& c) { p.setWarning(c); },
        [](Palette& p, Colour const&) { p.setContrast(0.3f); },
    };
    Palette const base;
    EXPECT_EQ(base, Palette());
    for (size_t i = 0; i < setters.size(); ++i) {
        Palette changed = base;
        setters[i](changed, other);
        EXPECT_NE(changed, base) << "slot " << i;
    }
}

} // namespace
