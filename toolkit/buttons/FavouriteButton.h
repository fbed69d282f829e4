#pragma once

// A star that marks something as a favourite. It latches: down is a favourite, drawn as a filled
// star; up an empty one. Each press tells the owner message + " on" or message + " off".

#include "buttons/Button.h"

class FavouriteButton : public Button {
public:
    explicit FavouriteButton(InitArgs const& args);

    char const* idstring() const override { return "FavouriteButton"; }
    void drawText() override;

    using Button::getString;
    // The utility-font character of the star for the state.
    static LightweightString<wchar_t> getString(button_state state);
    static Colour getStarColour();
    static Glib::FontDesc getStarFont();
};
