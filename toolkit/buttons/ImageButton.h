#pragma once

// A button that shows an icon, one file while up and another while down.

#include "buttons/Button.h"

class ImageButton : public Button {
public:
    struct InitArgs : Button::InitArgs {
        InitArgs() = default;
        InitArgs(LightweightString<wchar_t> const& upIcon_,
                 LightweightString<wchar_t> const& downIcon_, WidgetCallback const& callback_,
                 unsigned short w, unsigned short h)
            : Button::InitArgs(UIString(), callback_, w, h), upIcon(upIcon_), downIcon(downIcon_) {}
        // File names in the icons folder; an empty down icon shows the up icon in both states.
        LightweightString<wchar_t> upIcon;
        LightweightString<wchar_t> downIcon;
    };

    explicit ImageButton(InitArgs const& args);

    char const* idstring() const override { return "ImageButton"; }
};
