#include "buttons/RadioSetCheckbox.h"

void RadioSetCheckbox::setStateInternal(bool value) {
    Checkbox::setStateInternal(value);
    setDefaultMouseCursor(value ? CursorArrow : CursorHand);
}

Colour RadioSetCheckbox::getTextColour() const {
    return getPalette().text(TextNormal);
}
