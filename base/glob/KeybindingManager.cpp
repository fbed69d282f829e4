#include "glob/KeybindingManager.h"

#include <algorithm>

KeybindingManager& KeybindingManager::instance() {
    return Qor::Singleton<KeybindingManager>::Instance();
}

void KeybindingManager::bind(LightweightString<char> const& command,
                             ComplexKeyboardEvent const& key) {
    CriticalSection::Lock hold(lock_);
    std::erase_if(bindings_, [&](Binding const& b) { return b.key.key == key.key; });
    bindings_.push_back(Binding{command, key});
}

bool KeybindingManager::unbind(LightweightString<char> const& command,
                               ComplexKeyboardEvent const& key) {
    CriticalSection::Lock hold(lock_);
    return std::erase_if(bindings_, [&](Binding const& b) {
               return b.key.key == key.key && b.command == command;
           }) != 0;
}

void KeybindingManager::clear() {
    CriticalSection::Lock hold(lock_);
    bindings_.clear();
}

std::vector<ComplexKeyboardEvent>
KeybindingManager::getKeysAssignedToCommand(LightweightString<char> const& command) const {
    CriticalSection::Lock hold(lock_);
    std::vector<ComplexKeyboardEvent> keys;
    for (Binding const& b : bindings_)
        if (b.command == command)
            keys.push_back(b.key);
    return keys;
}

LightweightString<char> KeybindingManager::findCommandForKey(unsigned keyCode) const {
    CriticalSection::Lock hold(lock_);
    auto found = std::find_if(bindings_.begin(), bindings_.end(),
                              [keyCode](Binding const& b) { return b.key.key == keyCode; });
    return found != bindings_.end() ? found->command : LightweightString<char>();
}
