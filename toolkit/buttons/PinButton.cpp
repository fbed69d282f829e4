#include "buttons/PinButton.h"

char const* const PinButton::freezeFlipMsg = "freeze_flip";

PinButton::InitArgs::InitArgs(unsigned short w, unsigned short h)
    : ImageButton::InitArgs(L"pin.png", L"pinned.png",
                            WidgetCallback(LightweightString<char>(freezeFlipMsg)), w, h) {}

PinButton::PinButton(InitArgs const& args) : ImageButton(args) {
    setStyle(Flat);
    setLatching(true, false);
}
