#pragma once

// The plain raised button: a Button in the standard style, at a height that follows the theme.

#include "buttons/Button.h"

class PushButton : public Button {
public:
    struct InitArgs : Button::InitArgs {
        InitArgs() = default;
        InitArgs(UIString const& label_, WidgetCallback const& callback_, unsigned short w = 0,
                 unsigned short h = 0)
            : Button::InitArgs(label_, callback_, w, h == 0 ? (unsigned short)calcHeight() : h) {}
    };

    explicit PushButton(InitArgs const& args);
    PushButton(UIString const& text, char const* message, unsigned short w, unsigned short h,
               bool lightweight, Canvas* canvas);

    char const* idstring() const override { return "PushButton"; }

    // The theme's base title height scaled by "buttonheight".
    static int calcHeight();
    static int calcHeight(UIAppearanceSettings const& theme);
    static void registerUIThemeParams();
};
