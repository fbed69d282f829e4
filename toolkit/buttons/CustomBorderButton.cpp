#include "buttons/CustomBorderButton.h"

Colour CustomBorderButton::edgeColour() const {
    if (!useCustomBorderColour_)
        return Button::edgeColour();
    return getState() == down ? borderDown_ : borderUp_;
}
