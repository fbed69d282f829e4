#pragma once

// Letter case of single characters, the same whatever locale the host has set: wide characters
// follow Unicode's simple case mappings, narrow ones change only ASCII letters.

namespace Qor {

wchar_t wideToLower(wchar_t c);
wchar_t wideToUpper(wchar_t c);

inline char asciiToLower(char c) {
    return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c;
}
inline char asciiToUpper(char c) {
    return (c >= 'a' && c <= 'z') ? char(c - 'a' + 'A') : c;
}

} // namespace Qor
