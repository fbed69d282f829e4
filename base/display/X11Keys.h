#pragma once

// The translation of X key events into the toolkit's key codes, kept free of any connection to a
// server so that the rules can be checked on their own. Keysyms and modifier states are X's
// values, passed as plain integers.

namespace X11Keys {

// The key-code modifier bits (Shift, Ctrl, Alt) for an X modifier state.
unsigned modifiersFromState(unsigned xState);

// The modifier bit that a modifier key itself stands for (Shift_L gives Shift); 0 for any other
// key.
unsigned modifierOfKey(unsigned long keysym);

// The key code of one key event: `modifiers` are key-code modifier bits and `typed` the character
// the key produced (0 when it produced none). Answers 0 when the key makes no code.
unsigned keyCode(unsigned long keysym, unsigned modifiers, char32_t typed);

} // namespace X11Keys
