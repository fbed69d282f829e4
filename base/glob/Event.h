#pragma once

// The record that every handler receives, with the event codes and key codes it carries.
//
// Event codes are bit-coded. Classes: 0x100 mouse, 0x200 key press, 0x400 key release, 0x1000
// timer, 0x4000 message. Mouse details: button bits 0x20 left, 0x40 middle, 0x80 right; action bits
// 1 release, 2 press, 4 wheel, 8 move. So 290 (0x122) is a left press and 289 (0x121) a left
// release. An interest or intercept mask selects an event when it holds the event's class bit and,
// if the mask has detail bits, one of the event's detail bits: 1536 selects every key event, 1792
// keys and mouse, 0x106 mouse presses and wheel turns.
//
// Key codes: the character (or key number) in the low bits, modifiers above: 0x1000000 Shift,
// 0x2000000 Ctrl, 0x4000000 Alt, 0x100000 command; 0x8000000 marks a key number (a PC scan code
// in the low byte) rather than a character; 0x80000000 a numeric-keypad key with its ASCII code.
// Printable characters arrive as their Unicode code, already shifted, without the Shift bit.
// Shift, Ctrl, Alt and command ride on key numbers, on Ctrl combinations (Ctrl+C is the upper-case
// letter plus 0x2000000) and on Tab, Return, Space and Backspace. On a mouse event keyCode()
// carries the modifiers held.

#include "qor/LightweightString.h"
#include "qor/Ptr.h"
#include "qor/XY.h"

class Canvas;
class EventHandler;

namespace EventCode {
enum : int {
    Mouse = 0x100,
    KeyPress = 0x200,
    KeyRelease = 0x400,
    Timer = 0x1000,
    TimeServer = 0x1001,
    Message = 0x4001,

    ReleaseBit = 0x1,
    PressBit = 0x2,
    WheelBit = 0x4,
    MoveBit = 0x8,
    LeftBit = 0x20,
    MiddleBit = 0x40,
    RightBit = 0x80,
    ButtonBits = LeftBit | MiddleBit | RightBit,
    ActionBits = ReleaseBit | PressBit | WheelBit | MoveBit,
    ClassBits = Mouse | KeyPress | KeyRelease | Timer | 0x4000,

    LeftPress = Mouse | LeftBit | PressBit,
    LeftRelease = Mouse | LeftBit | ReleaseBit,
    MiddlePress = Mouse | MiddleBit | PressBit,
    MiddleRelease = Mouse | MiddleBit | ReleaseBit,
    RightPress = Mouse | RightBit | PressBit,
    RightRelease = Mouse | RightBit | ReleaseBit,
    MouseMove = Mouse | MoveBit,
    MouseWheel = Mouse | WheelBit,
};

// Whether an interest or intercept mask selects an event of this code.
bool maskSelects(int mask, int code);
// The press or release code of a mouse button (1 left, 2 middle, 3 right).
int buttonCode(int button, bool press);
} // namespace EventCode

namespace KeyCodes {
enum : unsigned {
    Command = 0x100000,
    Shift = 0x1000000,
    Ctrl = 0x2000000,
    Alt = 0x4000000,
    KeyNumber = 0x8000000,
    Internal = 0x20000000,
    Keypad = 0x80000000,
    ModifierBits = Command | Shift | Ctrl | Alt,

    Backspace = 8,
    Tab = 9,
    Return = 13,
    Escape = 27,
    Space = 32,

    Home = KeyNumber | 0x47,
    Up = KeyNumber | 0x48,
    PageUp = KeyNumber | 0x49,
    Left = KeyNumber | 0x4b,
    Right = KeyNumber | 0x4d,
    End = KeyNumber | 0x4f,
    Down = KeyNumber | 0x50,
    PageDown = KeyNumber | 0x51,
    Insert = KeyNumber | 0x52,
    Delete = KeyNumber | 0x53,
    // Function keys F1..F12 are key numbers 0x3b..0x44, 0x57, 0x58.
    F1 = KeyNumber | 0x3b,
    F10 = KeyNumber | 0x44,
    F11 = KeyNumber | 0x57,
    F12 = KeyNumber | 0x58,
};
} // namespace KeyCodes

class Event {
public:
    Event() = default;
    Event(Event const&) = default;
    Event& operator=(Event const&) = default;

    // Sets every field empty.
    void init() { *this = Event(); }

    unsigned keyCode() const { return key; }
    void keyCode(unsigned code) { key = code; }
    void message(LightweightString<char> const& name) { msg = name; }
    EventHandler* getEventHandlerObj() const { return handler; }

    int type = 0;
    // The value of a zoom, or the signed number of wheel steps (positive away from the user).
    int code = 0;
    Canvas* canvas = nullptr;
    Canvas* senderCanvas = nullptr;
    // Non-zero on an event that a panel must hand on to the handler in `handler`.
    int forward = 0;
    // Positions on `canvas` (y up from its bottom-left corner), and on the root.
    XY<int> pos;
    XY<int> startPos;
    XY<int> rootPos;
    XY<int> startRootPos;
    // Offset of the pointer from where the press began.
    XY<int> motion;
    bool passOn = false;
    LightweightString<char> msg;
    EventHandler* handler = nullptr;
    Qor::Ptr<iObject> data;
    // Milliseconds from msecsNow() when the event happened.
    double time = 0;
    // The mouse buttons held (LeftBit, MiddleBit, RightBit) after this event.
    int buttons = 0;
    // 1, 2 or 3 on the press and release of a single, double or triple click.
    int clicks = 0;
    unsigned key = 0;
};

// Predicates, for an event by reference or by pointer (a null pointer answers false). The first
// are inline: every handler asks several of them for every event.
namespace EventPredicates {
inline bool isMouse(Event const& e) {
    return (e.type & EventCode::ClassBits) == EventCode::Mouse;
}
inline bool hasBits(Event const& e, int bits) {
    return isMouse(e) && (e.type & bits) != 0;
}
} // namespace EventPredicates

inline bool mouse_event(Event const& e) {
    return EventPredicates::isMouse(e);
}
inline bool mouse_left_event(Event const& e) {
    return EventPredicates::hasBits(e, EventCode::LeftBit);
}
inline bool mouse_right_event(Event const& e) {
    return EventPredicates::hasBits(e, EventCode::RightBit);
}
inline bool mouse_middle_event(Event const& e) {
    return EventPredicates::hasBits(e, EventCode::MiddleBit);
}
// Two buttons held at once.
bool mouse_chord_event(Event const& e);
bool eventWasChordEvent(Event const& e);
inline bool mouse_down_event(Event const& e) {
    return EventPredicates::hasBits(e, EventCode::PressBit);
}
inline bool mouse_up_event(Event const& e) {
    return EventPredicates::hasBits(e, EventCode::ReleaseBit);
}
inline bool mouse_move_event(Event const& e) {
    return EventPredicates::hasBits(e, EventCode::MoveBit);
}
inline bool mouse_double_click_event(Event const& e) {
    return (mouse_down_event(e) || mouse_up_event(e)) && e.clicks == 2;
}
inline bool mouse_triple_click_event(Event const& e) {
    return (mouse_down_event(e) || mouse_up_event(e)) && e.clicks == 3;
}
inline bool mouse_wheel_event(Event const& e) {
    return EventPredicates::hasBits(e, EventCode::WheelBit);
}
// A wheel turn with Ctrl held.
inline bool mouse_zoom_event(Event const& e) {
    return mouse_wheel_event(e) && (e.key & KeyCodes::Ctrl) != 0;
}
inline bool isKeyPressEvent(Event const& e) {
    return e.type == EventCode::KeyPress;
}
inline bool isKeyReleaseEvent(Event const& e) {
    return e.type == EventCode::KeyRelease;
}
inline bool isMessageEvent(Event const& e) {
    return e.type == EventCode::Message;
}
inline bool isTimerEvent(Event const& e) {
    return (e.type & EventCode::Timer) != 0 && (e.type & 0x4000) == 0;
}
// The pointer has travelled 4 pixels or more from where the press began.
bool isMouseMoveSignificant(Event const& e);

bool mouse_event(Event const* e);
bool mouse_left_event(Event const* e);
bool mouse_right_event(Event const* e);
bool mouse_chord_event(Event const* e);
bool mouse_down_event(Event const* e);
bool mouse_up_event(Event const* e);
bool mouse_move_event(Event const* e);
bool mouse_double_click_event(Event const* e);
bool mouse_triple_click_event(Event const* e);
bool mouse_wheel_event(Event const* e);
bool mouse_zoom_event(Event const* e);
bool isKeyPressEvent(Event const* e);
bool isKeyReleaseEvent(Event const* e);
bool isMouseMoveSignificant(Event const* e);

namespace Glib {
// A printable key without modifiers.
bool isPlainKey(unsigned keyCode);
} // namespace Glib
