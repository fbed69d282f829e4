#include "buttons/FavouriteButton.h"

#include "glib/Canvas.h"
#include "glib/Glyphs.h"

FavouriteButton::FavouriteButton(InitArgs const& args) : Button(args) {
    setStyle(Flat);
    setLatching(true, false);
    setFont(getStarFont());
}

LightweightString<wchar_t> FavouriteButton::getString(button_state state) {
    return QorTTF::getString(state == down ? QorTTF::FilledStar : QorTTF::EmptyStar);
}

Colour FavouriteButton::getStarColour() {
    return Colour(1.0, 0.9, 0.0);
}

Glib::FontDesc FavouriteButton::getStarFont() {
    return Glib::FontDesc(getQorUtilityFontName(), getQorUtilityFontSize());
}

// The empty star is an outline, which would vanish in yellow on a light face; it takes the text
// colour instead.
void FavouriteButton::drawText() {
    bool filled = getState() == down;
    Colour colour = filled && isActive() ? getStarColour() : textColour();
    drawGlyph(canvas()->renderer(), filled ? QorTTF::FilledStar : QorTTF::EmptyStar,
              Box(0, 0, width(), height()), colour);
}
