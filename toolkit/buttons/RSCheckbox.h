#pragma once

// A check box drawn as a radio button: a round well with a dot in it when ticked. The members of a
// CheckboxRadioSet are these.

#include "buttons/Checkbox.h"

class RSCheckbox : public Checkbox {
public:
    using Checkbox::Checkbox;

    char const* idstring() const override { return "RSCheckbox"; }
    void drawBackground() override;
};
