#pragma once

// The standard radio button: a raised button whose face shows the selection colour while it is the
// chosen one, so that a row of them reads as one control with one part lit.

#include "buttons/radio_button.h"

class StdRadioButton : public radio_button {
public:
    explicit StdRadioButton(InitArgs const& args);

    char const* idstring() const override { return "StdRadioButton"; }
    void setPalette(Palette const& palette) override;

private:
    void applyChosenColours();
};
