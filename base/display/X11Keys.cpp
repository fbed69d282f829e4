#include "display/X11Keys.h"

#include "glob/Event.h"

#include <X11/X.h>
#include <X11/keysym.h>

namespace X11Keys {

namespace {

constexpr unsigned ModifierKeyBits = KeyCodes::Shift | KeyCodes::Ctrl | KeyCodes::Alt;
// The old currency keysyms 0x20a0..0x20ac are numbered as their Unicode characters.
constexpr unsigned long LegacyCurrencyFirst = 0x20a0;

// Navigation and function keys: key numbers, which take every modifier.
unsigned keyNumberOf(unsigned long keysym) {
    switch (keysym) {
    case XK_Home:
    case XK_KP_Home:
        return KeyCodes::Home;
    case XK_Up:
    case XK_KP_Up:
        return KeyCodes::Up;
    case XK_Prior:
    case XK_KP_Prior:
        return KeyCodes::PageUp;
    case XK_Left:
    case XK_KP_Left:
        return KeyCodes::Left;
    case XK_KP_Begin:
        return KeyCodes::KeyNumber | 0x4c;
    case XK_Right:
    case XK_KP_Right:
        return KeyCodes::Right;
    case XK_End:
    case XK_KP_End:
        return KeyCodes::End;
    case XK_Down:
    case XK_KP_Down:
        return KeyCodes::Down;
    case XK_Next:
    case XK_KP_Next:
        return KeyCodes::PageDown;
    case XK_Insert:
    case XK_KP_Insert:
        return KeyCodes::Insert;
    case XK_Delete:
    case XK_KP_Delete:
        return KeyCodes::Delete;
    case XK_F11:
        return KeyCodes::F11;
    case XK_F12:
        return KeyCodes::F12;
    default:
        break;
    }
    if (keysym >= XK_F1 && keysym <= XK_F10)
        return KeyCodes::F1 + unsigned(keysym - XK_F1);
    return 0;
}

// The few character keys that carry modifiers like key numbers do.
unsigned controlKeyOf(unsigned long keysym) {
    switch (keysym) {
    case XK_BackSpace:
        return KeyCodes::Backspace;
    case XK_Tab:
    case XK_KP_Tab:
    case XK_ISO_Left_Tab:
        return KeyCodes::Tab;
    case XK_Return:
        return KeyCodes::Return;
    case XK_Escape:
        return KeyCodes::Escape;
    case XK_space:
    case XK_KP_Space:
        return KeyCodes::Space;
    default:
        return 0;
    }
}

// The ASCII code of a keypad character key; X numbers them at 0xff80 above their ASCII code.
unsigned keypadCharacterOf(unsigned long keysym) {
    bool isKeypadCharacter = (keysym >= XK_KP_Multiply && keysym <= XK_KP_9) ||
                             keysym == XK_KP_Equal || keysym == XK_KP_Enter;
    return isKeypadCharacter ? unsigned(keysym - 0xff80) : 0;
}

bool isPrintable(char32_t c) {
    return c >= 0x20 && !(c >= 0x7f && c < 0xa0);
}

char32_t upperAscii(char32_t c) {
    return c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c;
}

// Keys that only change the modifiers, or lock them: they make no key code of their own.
bool isModifierKey(unsigned long keysym) {
    return (keysym >= XK_Shift_L && keysym <= XK_Hyper_R) ||
           (keysym >= XK_ISO_Lock && keysym <= XK_ISO_Level5_Lock) || keysym == XK_Mode_switch ||
           keysym == XK_Num_Lock;
}

// The character of a Latin-1 or Unicode keysym, for keys that came without text.
char32_t characterOfKeysym(unsigned long keysym) {
    char32_t c = 0;
    if (keysym < 0x100)
        c = char32_t(keysym);
    else if (keysym >= 0x01000000 && keysym <= 0x0110ffff)
        c = char32_t(keysym - 0x01000000);
    else if (keysym >= LegacyCurrencyFirst && keysym <= XK_EuroSign)
        c = char32_t(keysym);
    return isPrintable(c) ? c : 0;
}

} // namespace

unsigned modifiersFromState(unsigned xState) {
    unsigned bits = 0;
    if (xState & ShiftMask)
        bits |= KeyCodes::Shift;
    if (xState & ControlMask)
        bits |= KeyCodes::Ctrl;
    if (xState & Mod1Mask)
        bits |= KeyCodes::Alt;
    return bits;
}

unsigned modifierOfKey(unsigned long keysym) {
    switch (keysym) {
    case XK_Shift_L:
    case XK_Shift_R:
        return KeyCodes::Shift;
    case XK_Control_L:
    case XK_Control_R:
        return KeyCodes::Ctrl;
    case XK_Alt_L:
    case XK_Alt_R:
    case XK_Meta_L:
    case XK_Meta_R:
        return KeyCodes::Alt;
    default:
        return 0;
    }
}

unsigned keyCode(unsigned long keysym, unsigned modifiers, char32_t typed) {
    modifiers &= ModifierKeyBits;
    if (isModifierKey(keysym))
        return 0;
    if (unsigned number = keyNumberOf(keysym))
        return number | modifiers;
    if (unsigned control = controlKeyOf(keysym))
        return control | modifiers | (keysym == XK_ISO_Left_Tab ? unsigned(KeyCodes::Shift) : 0u);
    if (unsigned keypad = keypadCharacterOf(keysym))
        return KeyCodes::Keypad | keypad | (modifiers & (KeyCodes::Ctrl | KeyCodes::Alt));

    // With Ctrl the text is a control character, so the keysym names the key.
    if (modifiers & KeyCodes::Ctrl) {
        char32_t c = characterOfKeysym(keysym);
        if (c == 0)
            c = isPrintable(typed) ? typed : 0;
        return c != 0 ? unsigned(upperAscii(c)) | modifiers : 0;
    }
    char32_t c = isPrintable(typed) ? typed : characterOfKeysym(keysym);
    if (c == 0)
        return 0;
    // A typed character is already shifted; only Alt stays on it.
    return unsigned(c) | (modifiers & KeyCodes::Alt);
}

} // namespace X11Keys
