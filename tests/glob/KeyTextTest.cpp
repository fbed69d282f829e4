#include "glob/ComplexKeyboardEvent.h"

#include "glob/Event.h"
#include "qor/UTF8.h"

#include <gtest/gtest.h>

namespace {

struct KeyText {
    unsigned code;
    char const* text;
};

void expectTexts(std::initializer_list<KeyText> cases) {
    for (KeyText const& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(toUTF8(keyToString(ComplexKeyboardEvent(c.code))).str(), c.text);
    }
}

TEST(KeyText, ModifiersComeFirstInTheMenuOrder) {
    expectTexts({
        {0x2000053, "Ctrl+S"},
        {0x900004b, "Shift+Left"},
        {0xa00004d, "Ctrl+Right"},
        {0xb00004d, "Ctrl+Shift+Right"},
        {0x4000008, "Alt+Backspace"},
        {0x7000041, "Ctrl+Alt+Shift+A"},
        {0x100041, "Cmd+A"},
        {0x3100041, "Ctrl+Shift+Cmd+A"},
        {0x1000009, "Shift+Tab"},
    });
}

TEST(KeyText, PrintableCharactersShowUpperCased) {
    expectTexts({
        {'s', "S"},
        {'z', "Z"},
        {'7', "7"},
        {'+', "+"},
        {0x20ac, "\u20ac"},
        {KeyCodes::Alt | 'q', "Alt+Q"},
    });
}

TEST(KeyText, KeyNumbersShowByName) {
    expectTexts({
        {KeyCodes::Home, "Home"},
        {KeyCodes::Up, "Up"},
        {KeyCodes::PageUp, "Page Up"},
        {KeyCodes::Left, "Left"},
        {KeyCodes::Right, "Right"},
        {KeyCodes::End, "End"},
        {KeyCodes::Down, "Down"},
        {KeyCodes::PageDown, "Page Down"},
        {KeyCodes::Insert, "Insert"},
        {KeyCodes::Delete, "Delete"},
        {KeyCodes::F1, "F1"},
        {KeyCodes::F1 + 4, "F5"},
        {KeyCodes::F10, "F10"},
        {KeyCodes::F11, "F11"},
        {KeyCodes::F12, "F12"},
        {0x9000053, "Shift+Delete"},
        {0xa000052, "Ctrl+Insert"},
    });
}

TEST(KeyText, ControlCharactersShowByName) {
    expectTexts({
        {8, "Backspace"},
        {9, "Tab"},
        {13, "Return"},
        {27, "Esc"},
        {32, "Space"},
        {KeyCodes::Ctrl | 32, "Ctrl+Space"},
    });
}

TEST(KeyText, KeypadKeysShowAsNum) {
    expectTexts({
        {0x80000035, "Num 5"},
        {0x8000002b, "Num +"},
        {0x8000002a, "Num *"},
        {0x8000000d, "Num Enter"},
        {KeyCodes::Keypad | KeyCodes::Ctrl | '0', "Ctrl+Num 0"},
    });
}

TEST(KeyText, UnknownKeysShowTheirNumber) {
    expectTexts({
        {KeyCodes::KeyNumber | 0x5a, "Key 0x5a"},
        {KeyCodes::Shift | KeyCodes::KeyNumber | 0x01, "Shift+Key 0x01"},
        {0x7f, "Key 0x7f"},
        {0x01, "Key 0x01"},
    });
}

TEST(KeyText, TheFlagWordDoesNotChangeTheTextButTellsWhetherToShow) {
    ComplexKeyboardEvent hidden(0x2000053, ComplexKeyboardEvent::DontShow);
    EXPECT_EQ(toUTF8(keyToString(hidden)), "Ctrl+S");
    EXPECT_FALSE(hidden.isShown());
    EXPECT_TRUE(ComplexKeyboardEvent(0x2000053).isShown());
    EXPECT_NE(hidden, ComplexKeyboardEvent(0x2000053));
    EXPECT_EQ(hidden, ComplexKeyboardEvent(0x2000053, ComplexKeyboardEvent::DontShow));
}

} // namespace
