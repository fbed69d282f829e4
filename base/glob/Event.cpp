#include "glob/Event.h"

#include <cstdlib>

namespace EventCode {

bool maskSelects(int mask, int code) {
    if ((mask & code & ClassBits) == 0)
        return false;
    int maskDetails = mask & (ActionBits | ButtonBits);
    return maskDetails == 0 || (maskDetails & code) != 0;
}

int buttonCode(int button, bool press) {
    int bit = button == 2 ? MiddleBit : (button == 3 ? RightBit : LeftBit);
    return Mouse | bit | (press ? PressBit : ReleaseBit);
}

} // namespace EventCode

using namespace EventCode;

namespace {
int countBits(int v) {
    int n = 0;
    for (; v != 0; v &= v - 1)
        ++n;
    return n;
}
} // namespace

bool mouse_chord_event(Event const& e) {
    return EventPredicates::isMouse(e) &&
           countBits((e.buttons | (e.type & ButtonBits)) & ButtonBits) >= 2;
}
bool eventWasChordEvent(Event const& e) {
    return mouse_chord_event(e);
}
bool isMouseMoveSignificant(Event const& e) {
    return std::abs(e.motion.x) >= 4 || std::abs(e.motion.y) >= 4;
}

#define PANELKIT_POINTER_FORM(name)                                                                \
    bool name(Event const* e) {                                                                    \
        return e != nullptr && name(*e);                                                           \
    }
PANELKIT_POINTER_FORM(mouse_event)
PANELKIT_POINTER_FORM(mouse_left_event)
PANELKIT_POINTER_FORM(mouse_right_event)
PANELKIT_POINTER_FORM(mouse_chord_event)
PANELKIT_POINTER_FORM(mouse_down_event)
PANELKIT_POINTER_FORM(mouse_up_event)
PANELKIT_POINTER_FORM(mouse_move_event)
PANELKIT_POINTER_FORM(mouse_double_click_event)
PANELKIT_POINTER_FORM(mouse_triple_click_event)
PANELKIT_POINTER_FORM(mouse_wheel_event)
PANELKIT_POINTER_FORM(mouse_zoom_event)
PANELKIT_POINTER_FORM(isKeyPressEvent)
PANELKIT_POINTER_FORM(isKeyReleaseEvent)
PANELKIT_POINTER_FORM(isMouseMoveSignificant)
#undef PANELKIT_POINTER_FORM

namespace Glib {
bool isPlainKey(unsigned keyCode) {
    if ((keyCode & (KeyCodes::ModifierBits | KeyCodes::KeyNumber | KeyCodes::Internal)) != 0)
        return false;
    unsigned c = keyCode & ~KeyCodes::Keypad;
    return c >= 32 && c != 127 && !(c >= 0x80 && c < 0xA0) && c <= 0x10FFFF;
}
} // namespace Glib
