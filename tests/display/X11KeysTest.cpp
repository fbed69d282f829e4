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

struct KeyCase {
    char const* what;
    unsigned long keysym;
    unsigned modifiers;
    char32_t typed;
    unsigned expected;
};

void expectCodes(std::initializer_list<KeyCase> cases) {
    for (KeyCase const& c : cases)
        EXPECT_EQ(X11Keys::keyCode(c.keysym, c.modifiers, c.typed), c.expected)
            << c.what << ": got 0x" << std::hex << X11Keys::keyCode(c.keysym, c.modifiers, c.typed);
}

TEST(X11KeysTest, TypedCharactersComeAsTheirUnicodeValueWithoutShift) {
    expectCodes({
        {"a", XK_a, 0, U'a', 'a'},
        {"Shift+a", XK_A, Shift, U'A', 'A'},
        {"Shift+= is +", XK_plus, Shift, U'+', '+'},
        {"Shift+1 is !", XK_exclam, Shift, U'!', '!'},
        {"e acute", XK_eacute, 0, U'\u00e9', 0xe9},
        {"composed text without a keysym", NoSymbol, 0, U'\u00fc', 0xfc},
        {"Greek from the input method", XK_Greek_alpha, 0, U'\u03b1', 0x3b1},
        {"Unicode keysym without text", 0x10020ac, 0, 0, 0x20ac},
        {"old euro keysym without text", XK_EuroSign, 0, 0, 0x20ac},
        {"Latin-1 keysym without text", XK_ssharp, 0, 0, 0xdf},
    });
}

TEST(X11KeysTest, CtrlWithALetterGivesTheUpperCaseLetterAndTheCtrlBit) {
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        // With Ctrl held, X's text is the control character, which must not leak through.
        char32_t control = char32_t(letter - 'a' + 1);
        EXPECT_EQ(X11Keys::keyCode(XK_a + (letter - 'a'), Ctrl, control),
                  Ctrl | unsigned(letter - 'a' + 'A'))
            << letter;
    }
    expectCodes({
        {"Ctrl+C", XK_c, Ctrl, 3, 0x2000043},
        {"Ctrl+Shift+Z keeps Shift", XK_Z, Ctrl | Shift, 0x1a, 0x300005a},
        {"Ctrl+Alt+v", XK_v, Ctrl | Alt, 0x16, 0x6000056},
        {"Ctrl+1", XK_1, Ctrl, U'1', 0x2000031},
        {"Ctrl+[ gives Escape's text", XK_bracketleft, Ctrl, 27, Ctrl | '['},
        {"Ctrl with a composed character", NoSymbol, Ctrl, U'\u00e9', Ctrl | 0xe9},
    });
}

TEST(X11KeysTest, AltRidesOnCharactersButShiftDoesNot) {
    expectCodes({
        {"Alt+a", XK_a, Alt, U'a', Alt | 'a'},
        {"Alt+Shift+a", XK_A, Alt | Shift, U'A', Alt | 'A'},
    });
}

TEST(X11KeysTest, TabReturnSpaceBackspaceAndEscapeCarryTheirModifiers) {
    expectCodes({
        {"Tab", XK_Tab, 0, U'\t', 9},
        {"Shift+Tab arrives as ISO_Left_Tab", XK_ISO_Left_Tab, Shift, U'\t', 0x1000009},
        {"ISO_Left_Tab implies Shift", XK_ISO_Left_Tab, 0, 0, 0x1000009},
        {"Ctrl+Tab", XK_Tab, Ctrl, U'\t', 0x2000009},
        {"Return", XK_Return, 0, U'\r', 13},
        {"Ctrl+Return", XK_Return, Ctrl, U'\r', 0x200000d},
        {"Space", XK_space, 0, U' ', 32},
        {"Shift+Space", XK_space, Shift, U' ', 0x1000020},
        {"Backspace", XK_BackSpace, 0, 8, 8},
        {"Shift+Backspace", XK_BackSpace, Shift, 8, 0x1000008},
        {"Alt+Backspace is undo", XK_BackSpace, Alt, 8, 0x4000008},
        {"Escape", XK_Escape, 0, 27, 27},
        {"Shift+Escape", XK_Escape, Shift, 27, 0x100001b},
    });
}

TEST(X11KeysTest, NavigationAndFunctionKeysAreScanCodesWithEveryModifier) {
    expectCodes({
        {"Home", XK_Home, 0, 0, 0x8000047},
        {"Up", XK_Up, 0, 0, 0x8000048},
        {"Page Up", XK_Prior, 0, 0, 0x8000049},
        {"Left", XK_Left, 0, 0, 0x800004b},
        {"Right", XK_Right, 0, 0, 0x800004d},
        {"End", XK_End, 0, 0, 0x800004f},
        {"Down", XK_Down, 0, 0, 0x8000050},
        {"Page Down", XK_Next, 0, 0, 0x8000051},
        {"Insert", XK_Insert, 0, 0, 0x8000052},
        {"Delete", XK_Delete, 0, U'\x7f', 0x8000053},
        {"Shift+Left", XK_Left, Shift, 0, 0x900004b},
        {"Ctrl+Right", XK_Right, Ctrl, 0, 0xa00004d},
        {"Ctrl+Shift+Right", XK_Right, Ctrl | Shift, 0, 0xb00004d},
        {"Shift+Delete", XK_Delete, Shift, 0, 0x9000053},
        {"Ctrl+Insert", XK_Insert, Ctrl, 0, 0xa000052},
        {"Shift+Insert", XK_Insert, Shift, 0, 0x9000052},
        {"Ctrl+Delete", XK_Delete, Ctrl, 0, 0xa000053},
        {"keypad Home without Num Lock", XK_KP_Home, 0, 0, 0x8000047},
        {"keypad Delete without Num Lock", XK_KP_Delete, Shift, 0, 0x9000053},
        {"F1", XK_F1, 0, 0, 0x800003b},
        {"F5", XK_F5, 0, 0, 0x800003f},
        {"F10", XK_F10, 0, 0, 0x8000044},
        {"F11", XK_F11, 0, 0, 0x8000057},
        {"F12", XK_F12, 0, 0, 0x8000058},
        {"Alt+F4", XK_F4, Alt, 0, 0xc00003e},
    });
}

TEST(X11KeysTest, KeypadCharactersAreMarkedWithTheirAsciiCode) {
    expectCodes({
        {"keypad 0", XK_KP_0, 0, U'0', 0x80000030},
        {"keypad 9", XK_KP_9, 0, U'9', 0x80000039},
        {"keypad *", XK_KP_Multiply, 0, U'*', 0x8000002a},
        {"keypad +", XK_KP_Add, 0, U'+', 0x8000002b},
        {"keypad -", XK_KP_Subtract, 0, U'-', 0x8000002d},
        {"keypad .", XK_KP_Decimal, 0, U'.', 0x8000002e},
        {"keypad /", XK_KP_Divide, 0, U'/', 0x8000002f},
        {"keypad =", XK_KP_Equal, 0, U'=', 0x8000003d},
        {"keypad Enter", XK_KP_Enter, 0, U'\r', 0x8000000d},
        {"Shift does not ride on the keypad", XK_KP_5, Shift, U'5', 0x80000035},
        {"Ctrl does", XK_KP_Add, Ctrl, U'+', 0x8200002b},
    });
}

TEST(X11KeysTest, KeysWithoutACodeGiveNothing) {
    expectCodes({
        {"Shift_L", XK_Shift_L, 0, 0, 0},
        {"Control_R with Shift", XK_Control_R, Shift, 0, 0},
        {"Alt_L", XK_Alt_L, 0, 0, 0},
        {"Super_L", XK_Super_L, 0, 0, 0},
        {"Caps_Lock", XK_Caps_Lock, 0, 0, 0},
        {"Num_Lock", XK_Num_Lock, 0, 0, 0},
        {"AltGr", XK_ISO_Level3_Shift, 0, 0, 0},
        {"a dead key waits for the next", XK_dead_acute, 0, 0, 0},
        {"F13 has no scan code", XK_F13, 0, 0, 0},
        {"a control character alone", NoSymbol, 0, 0x7f, 0},
        {"Ctrl with an unknown key", XK_Print, Ctrl, 0, 0},
    });
}

TEST(X11KeysTest, TypedCharactersAreThePlainKeysOfTheToolkit) {
    EXPECT_TRUE(Glib::isPlainKey(X11Keys::keyCode(XK_A, Shift, U'A')));
    EXPECT_TRUE(Glib::isPlainKey(X11Keys::keyCode(XK_plus, Shift, U'+')));
    EXPECT_FALSE(Glib::isPlainKey(X11Keys::keyCode(XK_c, Ctrl, 3)));
    EXPECT_FALSE(Glib::isPlainKey(X11Keys::keyCode(XK_Left, Shift, 0)));
}

TEST(X11KeysTest, ModifierStatesMapToTheKeyCodeBits) {
    EXPECT_EQ(X11Keys::modifiersFromState(0), 0u);
    EXPECT_EQ(X11Keys::modifiersFromState(ShiftMask), Shift);
    EXPECT_EQ(X11Keys::modifiersFromState(ControlMask), Ctrl);
    EXPECT_EQ(X11Keys::modifiersFromState(Mod1Mask), Alt);
    EXPECT_EQ(X11Keys::modifiersFromState(ShiftMask | ControlMask | Mod1Mask), Shift | Ctrl | Alt);
    // Caps Lock, Num Lock (Mod2), the logo key (Mod4) and held buttons are not modifiers here.
    EXPECT_EQ(X11Keys::modifiersFromState(LockMask | Mod2Mask | Mod4Mask | Button1Mask), 0u);
}

TEST(X11KeysTest, ModifierKeysNameTheirOwnBit) {
    EXPECT_EQ(X11Keys::modifierOfKey(XK_Shift_L), Shift);
    EXPECT_EQ(X11Keys::modifierOfKey(XK_Shift_R), Shift);
    EXPECT_EQ(X11Keys::modifierOfKey(XK_Control_L), Ctrl);
    EXPECT_EQ(X11Keys::modifierOfKey(XK_Control_R), Ctrl);
    EXPECT_EQ(X11Keys::modifierOfKey(XK_Alt_L), Alt);
    EXPECT_EQ(X11Keys::modifierOfKey(XK_Meta_L), Alt);
    EXPECT_EQ(X11Keys::modifierOfKey(XK_Caps_Lock), 0u);
    EXPECT_EQ(X11Keys::modifierOfKey(XK_a), 0u);
}

} // namespace
