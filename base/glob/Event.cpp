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
bool isMouse(Event const& e) {
    return (e.type & ClassBits) == Mouse;
}
bool hasAction(Event const& e, int action) {
    return isMouse(e) && (e.type & action) != 0;
}
bool hasButton(Event const& e, int button) {
    return isMouse(e) && (e.type & button) != 0;
}
int countBits(int v) {
    int n = 0;
    for (; v != 0; v &= v - 1)
        ++n;
    return n;
}
} // namespace

bool mouse_event(Event const& e) {
    return isMouse(e);
}
bool mouse_left_event(Event const& e) {
    return hasButton(e, LeftBit);
}
bool mouse_right_event(Event const& e) {
    return hasButton(e, RightBit);
}
bool mouse_middle_event(Event const& e) {
    return hasButton(e, MiddleBit);
}
bool mouse_chord_event(Event const& e) {
    return isMouse(e) && countBits((e.buttons | (e.type & ButtonBits)) & ButtonBits) >= 2;
}
bool eventWasChordEvent(Event const& e) {
    return mouse_chord_event(e);
}
bool mouse_down_event(Event const& e) {
    return hasAction(e, PressBit);
}
bool mouse_up_event(Event const& e) {
    return hasAction(e, ReleaseBit);
}
bool mouse_move_event(Event const& e) {
    return hasAction(e, MoveBit);
}
bool mouse_double_click_event(Event const& e) {
    return (mouse_down_event(e) || mouse_up_event(e)) && e.clicks == 2;
}
bool mouse_triple_click_event(Event const& e) {
    return (mouse_down_event(e) || mouse_up_event(e)) && e.clicks == 3;
}
bool mouse_wheel_event(Event const& e) {
    return hasAction(e, WheelBit);
}
bool mouse_zoom_event(Event const& e) {
    return mouse_wheel_event(e) && (e.key & KeyCodes::Ctrl) != 0;
}
bool isKeyPressEvent(Event const& e) {
    return e.type == KeyPress;
}
bool isKeyReleaseEvent(Event const& e) {
    return e.type == KeyRelease;
}
bool isMessageEvent(Event const& e) {
    return e.type == Message;
}
bool isTimerEvent(Event const& e) {
    return (e.type & Timer) != 0 && (e.type & 0x4000) == 0;
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
