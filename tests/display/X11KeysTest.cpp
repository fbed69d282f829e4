#include "display/X11Keys.h"
#include "glob/Event.h"

#include <gtest/gtest.h>

// After gtest, whose names X's macros would clash with.
#include <X11/X.h>
#include <X11/keysym.h>

namespace {

constexpr unsigned Shift = KeyCodes::Shift;
constexpr unsigned Ctrl = KeyCodes::Ctrl;
constexpr unsigned Alt = KeyCodes::Alt;

TEST(X11KeysTest, EachKindOfKeyGivesItsCodeWithTheModifiersItTakes) {
    struct Case {
        char const* what;
        unsigned long keysym;
        unsigned modifiers;
        char32_t typed;
        unsigned expected;
    } const cases[] = {
        // Typed characters come as their Unicode value, already shifted: Shift does not ride.
        {"Shift+1 is !", XK_exclam, Shift, U'!', '!'},
        {"composed text without a keysym", NoSymbol, 0, U'\u00fc', 0xfc},
        {"Unicode keysym without text", 0x10020ac, 0, 0, 0x20ac},
        {"old euro keysym without text", XK_EuroSign, 0, 0, 0x20ac},
        {"Latin-1 keysym without text", XK_ssharp, 0, 0, 0xdf},
        {"Alt+Shift+a", XK_A, Alt | Shift, U'A', Alt | 'A'},
        // With Ctrl, X's text is a control character, which must not leak through.
        {"Ctrl+c", XK_c, Ctrl, 3, 0x2000043},
        {"Ctrl+Shift+Z keeps Shift", XK_Z, Ctrl | Shift, 0x1a, 0x300005a},
        {"Ctrl+1", XK_1, Ctrl, U'1', 0x2000031},
        {"Ctrl+[ gives Escape's text", XK_bracketleft, Ctrl, 27, Ctrl | '['},
        {"Ctrl with a composed character", NoSymbol, Ctrl, U'\u00e9', Ctrl | 0xe9},
        // Tab, Return, Space, Backspace and Escape carry every modifier.
        {"ISO_Left_Tab implies Shift", XK_ISO_Left_Tab, 0, 0, 0x1000009},
        {"Ctrl+Return", XK_Return, Ctrl, U'\r', 0x200000d},
        {"Shift+Space", XK_space, Shift, U' ', 0x1000020},
        {"Alt+Backspace is undo", XK_BackSpace, Alt, 8, 0x4000008},
        // Navigation and function keys are scan codes, with every modifier.
        {"Home", XK_Home, 0, 0, 0x8000047},
        {"Delete", XK_Delete, 0, U'\x7f', 0x8000053},
        {"Ctrl+Shift+Right", XK_Right, Ctrl | Shift, 0, 0xb00004d},
        {"keypad Delete without Num Lock", XK_KP_Delete, Shift, 0, 0x9000053},
        {"F1", XK_F1, 0, 0, 0x800003b},
        {"F10", XK_F10, 0, 0, 0x8000044},
        {"F11", XK_F11, 0, 0, 0x8000057},
        {"Alt+F4", XK_F4, Alt, 0, 0xc00003e},
        // Keypad characters are marked with their ASCII code.
        {"keypad 0", XK_KP_0, 0, U'0', 0x80000030},
        {"keypad =", XK_KP_Equal, 0, U'=', 0x8000003d},
        {"keypad Enter", XK_KP_Enter, 0, U'\r', 0x8000000d},
        {"Shift does not ride on the keypad", XK_KP_5, Shift, U'5', 0x80000035},
        {"Ctrl does", XK_KP_Add, Ctrl, U'+', 0x8200002b},
        // Keys without a code give nothing.
        {"Control_R with Shift", XK_Control_R, Shift, 0, 0},
        {"AltGr", XK_ISO_Level3_Shift, 0, 0, 0},
        {"Num_Lock", XK_Num_Lock, 0, 0, 0},
        {"a dead key waits for the next", XK_dead_acute, 0, 0, 0},
        {"F13 has no scan code", XK_F13, 0, 0, 0},
        {"a control character alone", NoSymbol, 0, 0x7f, 0},
        {"Ctrl with an unknown key", XK_Print, Ctrl, 0, 0},
    };
    for (Case const& c : cases)
        EXPECT_EQ(X11Keys::keyCode(c.keysym, c.modifiers, c.typed), c.expected)
            << c.what << ": got 0x" << std::hex << X11Keys::keyCode(c.keysym, c.modifiers, c.typed);
    EXPECT_TRUE(Glib::isPlainKey(X11Keys::keyCode(XK_plus, Shift, U'+')));
    EXPECT_FALSE(Glib::isPlainKey(X11Keys::keyCode(XK_c, Ctrl, 3)));
}

TEST(X11KeysTest, ModifierStatesAndKeysMapToTheKeyCodeBits) {
    EXPECT_EQ(X11Keys::modifiersFromState(ShiftMask | ControlMask | Mod1Mask), Shift | Ctrl | Alt);
    // Caps Lock, Num Lock (Mod2), the logo key (Mod4) and held buttons are not modifiers here.
    EXPECT_EQ(X11Keys::modifiersFromState(LockMask | Mod2Mask | Mod4Mask | Button1Mask), 0u);
    EXPECT_EQ(X11Keys::modifierOfKey(XK_Shift_R), Shift);
    EXPECT_EQ(X11Keys::modifierOfKey(XK_Control_L), Ctrl);
    EXPECT_EQ(X11Keys::modifierOfKey(XK_Meta_L), Alt);
    EXPECT_EQ(X11Keys::modifierOfKey(XK_Caps_Lock), 0u);
}

} // namespace
