#include "buttons/SymbolButton.h"

#include "SpecialButtonOwner.h"
#include "buttons/FavouriteButton.h"

#include <cmath>

namespace {

bool near(NormalisedRGB const& a, Colour const& c) {
    NormalisedRGB b = fromColour(c);
    return std::abs(a.r - b.r) < 0.05 && std::abs(a.g - b.g) < 0.05 && std::abs(a.b - b.b) < 0.05;
}

// The pixels of the button's face in the colour.
int countColour(UiTestDriver& driver, Glob* g, Colour const& colour) {
    int n = 0;
    for (int y = 0; y < g->height(); ++y)
        for (int x = 0; x < g->width(); ++x)
            n += near(driver.pixel(g, {x, y}), colour) ? 1 : 0;
    return n;
}

} // namespace

TEST_F(SpecialButtons, ASymbolButtonDrawsItsGlyphInTheTextColourOfItsState) {
    auto* button =
        make<SymbolButton>(SymbolButton::InitArgs(QorTTF::Tick, WidgetCallback("tick"), 24, 24));
    EXPECT_EQ(button->getString().getString(), QorTTF::getString(QorTTF::Tick));
    Palette const& palette = button->getPalette();
    EXPECT_GT(countColour(driver, button, palette.text(TextNormal)), 10);

    button->setActive(false, Redraw);
    driver.processEvents();
    EXPECT_EQ(countColour(driver, button, palette.text(TextNormal)), 0);
    EXPECT_GT(countColour(driver, button, palette.text(TextInactive)), 10);

    driver.click(button);
    EXPECT_TRUE(panel->messages.empty());
    button->setActive(true, Redraw);
    driver.click(button);
    EXPECT_EQ(panel->messages, (std::vector<std::string>{"tick"}));
}

TEST_F(SpecialButtons, ASymbolButtonWithoutAGlyphIsAPlainButtonUntilGivenOne) {
    auto* button = make<SymbolButton>(
        SymbolButton::InitArgs(UIString(L"More"), WidgetCallback("more"), 60, 24));
    EXPECT_FALSE(button->getSymbol().has_value());
    EXPECT_TRUE(button->getFont().isEmpty());
    button->setSymbol(QorTTF::RightArrow);
    EXPECT_EQ(button->getString().getString(), QorTTF::getString(QorTTF::RightArrow));
    EXPECT_EQ(button->getFont().name, getQorUtilityFontName());
}

TEST_F(SpecialButtons, AFavouriteLatchesAndOnlyAFavouriteShowsAYellowStar) {
    std::vector<std::string> told;
    auto* star =
        make<FavouriteButton>(Button::InitArgs(UIString(), recorder(told, "favourite"), 24, 24));
    EXPECT_EQ(FavouriteButton::getString(Button::down), LightweightString<wchar_t>(L"m"));
    EXPECT_EQ(FavouriteButton::getString(Button::up), LightweightString<wchar_t>(L"n"));
    Colour yellow = FavouriteButton::getStarColour();
    EXPECT_EQ(countColour(driver, star, yellow), 0);
    int face = countColour(driver, star, star->getBackCol());
    EXPECT_LT(face, 24 * 24 - 10) << "the empty star's outline is drawn";

    driver.click(star);
    EXPECT_EQ(star->getState(), Button::down);
    EXPECT_GT(countColour(driver, star, yellow), 10);
    driver.click(star);
    EXPECT_EQ(countColour(driver, star, yellow), 0);
    EXPECT_EQ(told, (std::vector<std::string>{"favourite on", "favourite off"}));
}
