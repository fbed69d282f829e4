#include "glob/ComplexKeyboardEvent.h"

#include "glob/Event.h"
#include "qor/UTF8.h"

#include <gtest/gtest.h>

namespace {

TEST(KeyText, ModifiersComeFirstThenTheKeysName) {
    struct Case {
        unsigned code;
        char const* text;
    } const cases[] = {
        // Modifiers in the menu order.
        {0x7000041, "Ctrl+Alt+Shift+A"},
        {0x3100041, "Ctrl+Shift+Cmd+A"},
        // Printable characters upper-cased.
        {'s', "S"},
        {'+', "+"},
        {0x20ac, "\u20ac"},
        // Key numbers by name.
        {KeyCodes::PageUp, "Page Up"},
        {KeyCodes::F10, "F10"},
        {KeyCodes::F11, "F11"},
        {0xb00004d, "Ctrl+Shift+Right"},
        // Control characters by name.
        {8, "Backspace"},
        {27, "Esc"},
        {KeyCodes::Ctrl | 32, "Ctrl+Space"},
        // The keypad.
        {0x80000035, "Num 5"},
        {0x8000000d, "Num Enter"},
        {KeyCodes::Keypad | KeyCodes::Ctrl | '0', "Ctrl+Num 0"},
        // Unknown keys by number.
        {KeyCodes::Shift | KeyCodes::KeyNumber | 0x01, "Shift+Key 0x01"},
        {0x7f, "Key 0x7f"},
        {0x01, "Key 0x01"},
    };
    for (Case const& c : cases)
        EXPECT_EQ(toUTF8(keyToString(ComplexKeyboardEvent(c.code))).str(), c.text) << c.text;
}

TEST(KeyText, TheFlagWordDoesNotChangeTheTextButTellsWhetherToShow) {
    ComplexKeyboardEvent hidden(0x2000053, ComplexKeyboardEvent::DontShow);
    EXPECT_EQ(toUTF8(keyToString(hidden)), "Ctrl+S");
    EXPECT_FALSE(hidden.isShown());
    EXPECT_TRUE(ComplexKeyboardEvent(0x2000053).isShown());
    EXPECT_NE(hidden, ComplexKeyboardEvent(0x2000053));
}

} // namespace
