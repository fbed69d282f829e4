#pragma once

// Where words start and end in a text, for caret moves and for cutting text at whole words. Words
// are runs of letters, digits and underscores; everything else separates them.

#include "qor/LightweightString.h"

namespace WordBoundaries {

bool isWordCharacter(wchar_t c);
// The start of the next word after `index`, or the end of the text.
int nextWordStart(LightweightString<wchar_t> const& text, int index);
// The start of the word holding `index` or of the one before it, or 0.
int previousWordStart(LightweightString<wchar_t> const& text, int index);
// Whether a cut before `index` would split a word.
bool splitsWord(LightweightString<wchar_t> const& text, int index);

} // namespace WordBoundaries
