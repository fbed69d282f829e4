#pragma once

// Conversions between wide text (UTF-32 in wchar_t) and UTF-8. Nothing here fails: a byte sequence
// that is not valid UTF-8 (a stray continuation byte, a truncated sequence, an overlong form, an
// encoded surrogate, a value past U+10FFFF) becomes one U+FFFD for each offending byte, and a wide
// character that is no Unicode scalar value is written as U+FFFD.

#include "qor/LightweightString.h"

LightweightString<char> toUTF8(LightweightString<wchar_t> const& text);
LightweightString<char> toUTF8(wchar_t const* text);
LightweightString<wchar_t> fromUTF8(LightweightString<char> const& text);
LightweightString<wchar_t> fromUTF8(char const* text);
LightweightString<wchar_t> fromUTF8(char const* text, unsigned length);
