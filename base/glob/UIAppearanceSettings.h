#pragma once

// The current theme: the palette, fonts and measures widgets lay out and paint with, and the
// values that widgets registered under their own keys, kept as text.

#include "glib/Font.h"
#include "glib/Palette.h"
#include "misc/DataConvert.h"
#include "qor/LightweightString.h"
#include "qor/Ptr.h"

#include <map>

class UIAppearanceSettings : public iObject {
public:
    using Params = std::map<LightweightString<char>, LightweightString<wchar_t>>;

    // Whether the key has a value; if so it is put in `out`.
    bool find(LightweightString<char> const& key, LightweightString<wchar_t>& out) const;

    // The key's value converted to T; the default when the key is absent or its text is not a T.
    template <class T>
    T get(char const* key, T const& defaultValue) const {
        LightweightString<wchar_t> text;
        T value = defaultValue;
        if (find(key, text))
            DataConvert::convert(text, value); // leaves the default on a bad value
        return value;
    }

    Palette palette;
    // The default text font; push buttons and titles have their own.
    Glib::FontDesc font;
    Glib::FontDesc buttonFont;
    Glib::FontDesc titleFont;
    // Pixels.
    unsigned short edgeSize = 0;
    // The base height of a title area, in pixels.
    unsigned short titleHeight = 0;
    unsigned short rowHeight = 0;
    unsigned short indentWidth = 0;
    unsigned short widgetGap = 0;
    // Only values that widgets registered: a reader keeps its own default for a missing key.
    Params params;
};
