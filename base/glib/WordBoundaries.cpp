#include "glib/WordBoundaries.h"

#include <glib.h>

namespace WordBoundaries {

bool isWordCharacter(wchar_t c) {
    return c == L'_' || (c > 0 && g_unichar_isalnum(static_cast<gunichar>(c)));
}

int nextWordStart(LightweightString<wchar_t> const& text, int index) {
    int end = static_cast<int>(text.size());
    while (index < end && isWordCharacter(text[index]))
        ++index;
    while (index < end && !isWordCharacter(text[index]))
        ++index;
    return index;
}

int previousWordStart(LightweightString<wchar_t> const& text, int index) {
    while (index > 0 && !isWordCharacter(text[index - 1]))
        --index;
    while (index > 0 && isWordCharacter(text[index - 1]))
        --index;
    return index;
}

bool splitsWord(LightweightString<wchar_t> const& text, int index) {
    return index > 0 && index < static_cast<int>(text.size()) && isWordCharacter(text[index - 1]) &&
           isWordCharacter(text[index]);
}

} // namespace WordBoundaries
