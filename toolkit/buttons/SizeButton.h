#pragma once

// The button of a panel's title row that flips the panel between its full and its small size.
// It latches: down means the panel is small. Each press tells the panel "minify on" or
// "minify off"; the panel may also set the state with set_size.

#include "buttons/Button.h"

class SizeButton : public Button {
public:
    // The icon look shows the tree icons; the text look a small picture of a window, drawn.
    enum eAppearance : int { IconAppearance = 0, TextAppearance = 1 };

    struct InitArgs : Button::InitArgs {
        InitArgs() = default;
        InitArgs(unsigned short w, unsigned short h, eAppearance appearance_ = IconAppearance);
        eAppearance appearance = IconAppearance;
    };

    static char const* const minifyMsg;

    explicit SizeButton(InitArgs const& args);

    char const* idstring() const override { return "SizeButton"; }
    void setState(button_state state, eRedrawFlag redraw) override;
    void drawText() override;

    // True shows the small state.
    void set_size(bool small) { setState(small ? down : up, Redraw); }
    void setAppearance(eAppearance appearance);
    eAppearance getAppearance() const { return appearance_; }

private:
    void showStateText(button_state state);

    eAppearance appearance_ = IconAppearance;
};
