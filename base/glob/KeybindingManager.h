#pragma once

// The process's table of key bindings: which keys run which command. Menus and tooltips read it to
// show a command's keys; the host fills it and looks up the command of a key it receives. The
// table starts empty. Usable from any thread.

#include "glob/ComplexKeyboardEvent.h"
#include "os/CriticalSection.h"
#include "qor/LightweightString.h"
#include "qor/Singleton.h"

#include <vector>

class KeybindingManager {
public:
    static KeybindingManager& instance();

    // Binds the key to the command, after the command's other keys. A key code runs one command
    // only, so binding it again moves it (with the new flags) from wherever it was bound.
    void bind(LightweightString<char> const& command, ComplexKeyboardEvent const& key);
    // Removes the binding of that key code to the command; false when there was none.
    bool unbind(LightweightString<char> const& command, ComplexKeyboardEvent const& key);
    void clear();

    // The command's keys in the order they were bound.
    std::vector<ComplexKeyboardEvent>
    getKeysAssignedToCommand(LightweightString<char> const& command) const;
    // The command the key code runs; empty when it runs none.
    LightweightString<char> findCommandForKey(unsigned keyCode) const;

private:
    friend struct Loki::CreateUsingNew<KeybindingManager>;

    struct Binding {
        LightweightString<char> command;
        ComplexKeyboardEvent key;
    };

    KeybindingManager() = default;

    mutable CriticalSection lock_;
    // In binding order; tables hold a few hundred keys at most.
    std::vector<Binding> bindings_;
};
