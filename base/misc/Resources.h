#pragma once

// The texts of the user interface, chosen by number from the resource string table that ships
// beside the library (see ResourceTable), and the casing a caller may ask of them.

#include "qor/LightweightString.h"

using ResId = unsigned int;

// The id that selects no text at all: it resolves to the empty text, silently.
constexpr ResId noResourceId = 999999;

// How a resource text is to be cased or trimmed. Casing knows the letters of Latin-1, Latin
// Extended-A, Greek and Cyrillic besides ASCII; other characters are left alone.
enum ResStrFmt {
    ResStrAsIs = 0,
    ResStrUpperCase = 1,
    ResStrLowerCase = 2,
    // The first character that is not white space becomes a capital; the rest stays as it is.
    ResStrFirstCapital = 3,
    // The first character of every word (after white space) becomes a capital; the rest stays.
    ResStrTitleCase = 4,
    // White space is removed from both ends; the casing stays.
    ResStrTrimmed = 5,
};

// The text of `id`; "#<id>" when the table has no such id (reported once per id), and the empty
// text for noResourceId.
LightweightString<wchar_t> resourceStrW(ResId id);
LightweightString<wchar_t> resourceStrW(ResId id, ResStrFmt format);
// The text followed by "...", the mark of a command that asks for more before it acts.
LightweightString<wchar_t> ellipsisResourceStrW(ResId id, ResStrFmt format);
// prefix + text + suffix; a null prefix or suffix counts as empty. The format applies to the
// text alone.
LightweightString<wchar_t> paddedResourceStrW(ResId id, wchar_t const* prefix,
                                              wchar_t const* suffix, ResStrFmt format);
LightweightString<wchar_t> formatString(LightweightString<wchar_t> const& text, ResStrFmt format);
