#pragma once

// A name and a value joined by a separator character, as in "colour=red": a line of a list of
// settings or of a tooltip, or a message that carries a value. The pair is held as wide text; the
// narrow forms read and write UTF-8 and take an ASCII separator.

#include "qor/LightweightString.h"

namespace Qor {

class AttribValuePair {
public:
    AttribValuePair() = default;
    // Splits at the first separator, so the value may hold more of them. Text without a separator
    // is all name, with an empty value. Blanks are kept.
    AttribValuePair(LightweightString<wchar_t> const& text, wchar_t separator);
    AttribValuePair(LightweightString<char> const& text, char separator);
    AttribValuePair(LightweightString<wchar_t> const& name, LightweightString<wchar_t> const& value,
                    wchar_t separator = L'=');
    AttribValuePair(LightweightString<char> const& name, LightweightString<char> const& value,
                    char separator = '=');

    LightweightString<wchar_t> const& getName() const { return name_; }
    LightweightString<wchar_t> const& getValue() const { return value_; }
    wchar_t getSeparator() const { return separator_; }
    // Name, separator, value; a pair parsed from text without a separator gains one.
    LightweightString<wchar_t> asString() const;

    LightweightString<char> getNameUTF8() const;
    LightweightString<char> getValueUTF8() const;
    LightweightString<char> asUTF8String() const;

    bool operator==(AttribValuePair const& other) const = default;

private:
    LightweightString<wchar_t> name_;
    LightweightString<wchar_t> value_;
    wchar_t separator_ = L'=';
};

} // namespace Qor
