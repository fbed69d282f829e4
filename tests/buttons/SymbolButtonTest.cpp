#include "buttons/SymbolButton.h"

#include "SpecialButtonOwner.h"
#include "buttons/FavouriteButton.h"

namespace {

// The pixels of the button's face in the colour.
int countColour(SpecialButtons& test, Glob* g, Colour const& colour) {
    int n = 0;
    for (int y = 0; y < g->height(); ++y)
        for (int x = 0; x < g->width(); ++x)
            n += test.shows(g, {x, y}, colour, 0.05f) ? 1 : 0;
    return n;
}

} // namespace

TEST_F(SpecialButtons, ASymbolButtonDrawsItsGlyphInTheTextColourOfItsState) {
    auto* button =
        make<SymbolButton>(SymbolButton::InitArgs(QorTTF::Tick, WidgetCallback("tick"), 24, 24));
    EXPECT_EQ(button->getString().getString(), QorTTF::getString(QorTTF::Tick));
    Palette const& palette = button->getPalette();
    EXPECT_GT(countColour(*this, button, palette.text(TextNormal)), 10);
    driver.click(button);
    EXPECT_EQ(panel->messages, (std::vector<std::string>{"tick"}));

    button->setActive(false, Redraw);
    driver.processEvents();
    EXPECT_EQ(countColour(*this, button, palette.text(TextNormal)), 0);
    EXPECT_GT(countColour(*this, button, palette.text(TextInactive)), 10);
}

TEST_F(SpecialButtons, ASymbolButtonWithoutAGlyphIsAPlainButtonUntilGivenOne) {
    auto* button = make<SymbolButton>(
        SymbolButton::InitArgs(UIString(L"More"), WidgetCallback("more"), 60, 24));
    EXPECT_TRUE(button->getFont().isEmpty());
    button->setSymbol(QorTTF::RightArrow);
    EXPECT_EQ(button->getString().getString(), QorTTF::getString(QorTTF::RightArrow));
    EXPECT_EQ(button->getFont().name, getQorUtilityFontName());
}

TEST_F(SpecialButtons, AFavouriteLatchesAndOnlyAFavouriteShowsAYellowStar) {
    std::vector<std::string> told;
    auto* star =
        make<FavouriteButton>(Button::InitArgs(UIString(), recorder(told, "favourite"), 24, 24));
    Colour yellow = FavouriteButton::getStarColour();
    EXPECT_EQ(countColour(*this, star, yellow), 0);
    EXPECT_LT(countColour(*this, star, star->getBackCol()), 24 * 24 - 10) << "no outline drawn";

    driver.click(star);
    EXPECT_EQ(star->getState(), Button::down);
    EXPECT_GT(countColour(*this, star, yellow), 10);
    driver.click(star);
    EXPECT_EQ(countColour(*this, star, yellow), 0);
    EXPECT_EQ(told, (std::vector<std::string>{"favourite on", "favourite off"}));
}
