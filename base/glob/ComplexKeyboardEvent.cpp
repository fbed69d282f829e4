#include "glob/ComplexKeyboardEvent.h"

#include "glob/Event.h"
#include "qor/Strings.h"

#include <cstdio>

namespace {

using Text = LightweightString<wchar_t>;

// Characters sit below the command bit; key numbers and keypad keys in the low byte.
constexpr unsigned CharacterBits = KeyCodes::Command - 1;
constexpr unsigned LowByte = 0xff;

struct Modifier {
    unsigned bit;
    wchar_t const* text;
};
constexpr Modifier modifiers[] = {
    {KeyCodes::Ctrl, L"Ctrl+"},
    {KeyCodes::Alt, L"Alt+"},
    {KeyCodes::Shift, L"Shift+"},
    {KeyCodes::Command, L"Cmd+"},
};

struct KeyName {
    unsigned number;
    wchar_t const* text;
};
constexpr KeyName keyNumberNames[] = {
    {0x3b, L"F1"},        {0x3c, L"F2"},     {0x3d, L"F3"},     {0x3e, L"F4"},  {0x3f, L"F5"},
    {0x40, L"F6"},        {0x41, L"F7"},     {0x42, L"F8"},     {0x43, L"F9"},  {0x44, L"F10"},
    {0x57, L"F11"},       {0x58, L"F12"},    {0x47, L"Home"},   {0x48, L"Up"},  {0x49, L"Page Up"},
    {0x4b, L"Left"},      {0x4c, L"Num 5"},  {0x4d, L"Right"},  {0x4f, L"End"}, {0x50, L"Down"},
    {0x51, L"Page Down"}, {0x52, L"Insert"}, {0x53, L"Delete"},
};
constexpr KeyName characterNames[] = {
    {KeyCodes::Backspace, L"Backspace"}, {KeyCodes::Tab, L"Tab"},     {KeyCodes::Return, L"Return"},
    {KeyCodes::Escape, L"Esc"},          {KeyCodes::Space, L"Space"},
};

template <std::size_t N>
wchar_t const* nameIn(KeyName const (&names)[N], unsigned number) {
    for (KeyName const& name : names)
        if (name.number == number)
            return name.text;
    return nullptr;
}

bool isPrintable(unsigned c) {
    return c > 0x20 && !(c >= 0x7f && c < 0xa0);
}

Text unknownKey(unsigned number) {
    wchar_t text[16];
    std::swprintf(text, 16, L"Key 0x%02x", number);
    return Text(text);
}

Text characterName(unsigned c) {
    if (wchar_t const* name = nameIn(characterNames, c))
        return Text(name);
    if (isPrintable(c))
        return Text(1, Qor::toUpper(static_cast<wchar_t>(c)));
    return unknownKey(c);
}

// The keypad's Enter arrives as the Return character.
Text keypadName(unsigned c) {
    return Text(L"Num ").append(c == KeyCodes::Return ? Text(L"Enter") : characterName(c));
}

Text keyName(unsigned code) {
    if (code & KeyCodes::Keypad)
        return keypadName(code & LowByte);
    if (code & KeyCodes::KeyNumber) {
        wchar_t const* name = nameIn(keyNumberNames, code & LowByte);
        return name != nullptr ? Text(name) : unknownKey(code & LowByte);
    }
    return characterName(code & CharacterBits);
}

} // namespace

LightweightString<wchar_t> keyToString(ComplexKeyboardEvent const& key) {
    Text text;
    for (Modifier const& modifier : modifiers)
        if (key.key & modifier.bit)
            text.append(modifier.text);
    return text.append(keyName(key.key));
}
