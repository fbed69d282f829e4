#include "buttons/radio_set.h"

#include "buttons/radio_button.h"

void switchRadioMember(Button* member, bool on, bool notify) {
    member->switchState(on ? Button::down : Button::up, notify);
}

radio_set::~radio_set() {
    for (int i = 0; i < getCount(); ++i)
        if (auto* button = dynamic_cast<radio_button*>(getItem(i)))
            button->forgetSet();
}
