#pragma once

// The set behind a group of radio_buttons: the buttons enter themselves when made and leave when
// they die; the set tells those still alive when it dies first.

#include "buttons/Button.h"
#include "buttons/RadioSetBase.h"

class radio_set : public RadioSetBase<Button> {
public:
    radio_set() = default;
    ~radio_set() override;
};
