#pragma once

// A key as a binding table holds it: the key code (as Event::keyCode() carries it, modifiers
// included) and a word of flags about the binding. keyToString() gives the text a menu shows for
// it.

#include "qor/LightweightString.h"

struct ComplexKeyboardEvent {
    enum Flags : unsigned {
        // The binding works but menus and tooltips leave it out.
        DontShow = 0x10000000,
    };

    ComplexKeyboardEvent() = default;
    ComplexKeyboardEvent(unsigned keyCode, unsigned flagWord = 0) : key(keyCode), flags(flagWord) {}

    bool isShown() const { return (flags & DontShow) == 0; }
    bool operator==(ComplexKeyboardEvent const&) const = default;

    unsigned key = 0;
    unsigned flags = 0;
};

// The key as menus show it: the modifiers in the order Ctrl+Alt+Shift+Cmd+, then the key: a
// printable character upper-cased ("Ctrl+S"), a named key ("Page Up", "F5", "Tab", "Esc"), a
// keypad key as "Num 5", anything else as "Key 0x5a".
LightweightString<wchar_t> keyToString(ComplexKeyboardEvent const& key);
