#pragma once

// A check box that is one choice of a radio set held by a CheckboxRadioSetManager. Its text keeps
// the plain colour whether ticked or not, and the pointer shows that a click on the ticked member
// changes nothing.

#include "buttons/Checkbox.h"

class RadioSetCheckbox : public Checkbox {
public:
    using Checkbox::Checkbox;

    char const* idstring() const override { return "RadioSetCheckbox"; }
    void setStateInternal(bool value) override;
    Colour getTextColour() const override;
};
