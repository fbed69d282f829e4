#pragma once

// A button whose edge may have colours of its own, one while up and one while down.

#include "buttons/Button.h"

class CustomBorderButton : public Button {
public:
    using Button::Button;

    char const* idstring() const override { return "CustomBorderButton"; }
    Colour edgeColour() const override;

    void setUseCustomBorderColour(bool use) { useCustomBorderColour_ = use; }
    bool getUseCustomBorderColour() const { return useCustomBorderColour_; }
    void setCustomBorderColour(Colour const& colour) { setCustomBorderColours(colour, colour); }
    void setCustomBorderColours(Colour const& up, Colour const& down) {
        borderUp_ = up;
        borderDown_ = down;
    }

private:
    bool useCustomBorderColour_ = false;
    Colour borderUp_;
    Colour borderDown_;
};
