#pragma once

// The text of a label: either a text of its own or the number of a resource text, which is looked
// up on first use and then kept. Widgets that must show a changed table again (after a change of
// language) clear `text`, and the next getString() looks the id up anew.

#include "misc/Resources.h"
#include "qor/LightweightString.h"

class UIString {
public:
    // Bit of `flags`: the resolved resource text gets ".." behind it.
    static constexpr unsigned appendDots = 1;

    UIString();
    UIString(LightweightString<wchar_t> const& text);
    UIString(wchar_t const* text);
    UIString(ResId id, ResStrFmt format = ResStrFmt(0), unsigned flags = 0);

    // The text: its own when it has one; empty for noResourceId; otherwise the resource text in
    // `format`, with ".." on flag bit 0, which is stored in `text` for the next call.
    LightweightString<wchar_t> const& getString() const;

    friend bool operator==(UIString const& a, UIString const& b) {
        return a.getString() == b.getString();
    }

    mutable LightweightString<wchar_t> text;
    ResId id;
    ResStrFmt format;
    unsigned int flags;
};
