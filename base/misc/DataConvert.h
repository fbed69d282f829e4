#pragma once

// Conversions between wide text and the value types that theme and settings values hold. Text is
// always in the C locale, whatever setlocale says, and blanks (space, tab, CR, LF) around a value
// or a colour component are ignored when reading.
//
//   bool           written "true" / "false"; read also "1" / "0" and "yes" / "no", in any case.
//   int, unsigned  decimal with an optional sign (no minus for unsigned); overflow fails.
//   double, float  decimal with an optional point and exponent; written as the shortest text that
//                  reads back as exactly the same value (at most 17 significant digits for a
//                  double, 9 for a float). NaN and the infinities are "nan", "inf", "-inf".
//   NormalisedRGB  written "r,g,b,a", each component like a float above. Read as "r,g,b" (alpha
//                  1), "r,g,b,a", "#rrggbb" or "#rrggbbaa". A component outside 0..1 fails, in
//                  either direction.
//
// The two-argument forms answer whether the conversion worked and leave `to` alone if it did not;
// convert<From, To>(from) answers a value-initialised To then.

#include "glib/Colour.h"
#include "qor/LightweightString.h"

namespace DataConvert {

bool convert(LightweightString<wchar_t> const& from, bool& to);
bool convert(LightweightString<wchar_t> const& from, double& to);
bool convert(LightweightString<wchar_t> const& from, float& to);
bool convert(LightweightString<wchar_t> const& from, unsigned& to);
bool convert(LightweightString<wchar_t> const& from, int& to);
bool convert(LightweightString<wchar_t> const& from, NormalisedRGB& to);

bool convert(bool from, LightweightString<wchar_t>& to);
bool convert(double from, LightweightString<wchar_t>& to);
bool convert(float from, LightweightString<wchar_t>& to);
bool convert(unsigned from, LightweightString<wchar_t>& to);
bool convert(int from, LightweightString<wchar_t>& to);
bool convert(NormalisedRGB const& from, LightweightString<wchar_t>& to);

template <class From, class To>
To convert(From const& from) {
    To to{};
    convert(from, to);
    return to;
}

} // namespace DataConvert
