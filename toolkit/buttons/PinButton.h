#pragma once

// The pin of a panel's title row. It latches: down means pinned, and each press tells the panel
// "freeze_flip on" or "freeze_flip off".

#include "buttons/ImageButton.h"

class PinButton : public ImageButton {
public:
    struct InitArgs : ImageButton::InitArgs {
        InitArgs() = default;
        InitArgs(unsigned short w, unsigned short h);
    };

    static char const* const freezeFlipMsg;

    explicit PinButton(InitArgs const& args);

    char const* idstring() const override { return "PinButton"; }
    bool isPinned() const { return getState() == down; }
};
