#pragma once

// Free helpers over LightweightString: numbers to text and back (always in the C locale, whatever
// setlocale says), case mapping, trimming, joining and splitting.
//
// Blanks, wherever they are skipped, are space, tab, CR and LF. Number parsers read plain decimals
// only: an optional sign, digits, and for floating values an optional point and exponent. Anything
// else (empty text, trailing junk, overflow) is bad text.

#include "qor/LightweightString.h"

#include <iterator>
#include <type_traits>
#include <utility>
#include <vector>

namespace Qor {

// Text of ASCII bytes; a byte of 0x80 or above becomes U+FFFD. Null gives the empty text.
LightweightString<wchar_t> WStringFromAscii(char const* text);
LightweightString<wchar_t> WStringFromInteger(long long value);
// Fixed notation with `precision` decimals (0 to 40). With `trimZeros` trailing zeros and then a
// trailing point are removed. Zero is never signed; NaN is "nan", infinities "inf" and "-inf".
LightweightString<wchar_t> WStringFromFloat(double value, char precision = 3,
                                            bool trimZeros = true);

// The number types the checked parsers read.
template <class Number>
concept ParsableNumber = std::is_same_v<Number, int> || std::is_same_v<Number, unsigned> ||
    std::is_same_v<Number, long long> || std::is_same_v<Number, double> ||
    std::is_same_v<Number, float>;

// Checked parsers: answer whether the whole text, blanks aside, is a number that fits `value`;
// `value` is left alone otherwise. A floating value too large or too small for the type fails.
template <ParsableNumber Number>
bool parseNumber(LightweightString<char> const& text, Number& value);
template <ParsableNumber Number>
bool parseNumber(LightweightString<wchar_t> const& text, Number& value);

// Unchecked parsers: bad text reads as 0 (or as `defaultValue`).
int IntFromWString(LightweightString<wchar_t> const& text);
unsigned UIntFromWString(LightweightString<wchar_t> const& text);
long long Int64FromWString(LightweightString<wchar_t> const& text);
double FloatFromWString(LightweightString<wchar_t> const& text, double defaultValue);

// Case mapping: ASCII letters only for char, the current C locale's mapping for wchar_t.
char toUpper(char c);
char toLower(char c);
wchar_t toUpper(wchar_t c);
wchar_t toLower(wchar_t c);
template <class T>
LightweightString<T> toUpper(LightweightString<T> const& text);
template <class T>
LightweightString<T> toLower(LightweightString<T> const& text);

template <class T>
bool endsWith(LightweightString<T> const& text,
              std::type_identity_t<LightweightString<T>> const& suffix, bool caseSensitive = true);

// Copies without the run of `c` at the start (or the end).
template <class T>
LightweightString<T> stripLeadingChars(LightweightString<T> const& text,
                                       std::type_identity_t<T> c = T(' '));
template <class T>
LightweightString<T> stripTrailingChars(LightweightString<T> const& text,
                                        std::type_identity_t<T> c = T(' '));
// A copy without blanks at either end.
template <class T>
LightweightString<T> stripBlanks(LightweightString<T> const& text);

enum SplitFlags : int {
    SplitKeepEmpty = 0,
    SplitDropEmpty = 1,
};

// Appends the pieces of `text` between separators to `out` and answers how many it added. The
// empty text has no pieces; otherwise n separators make n + 1 pieces, of which SplitDropEmpty
// leaves out the empty ones.
template <class T>
unsigned splitIf(LightweightString<T> const& text, std::type_identity_t<T> separator,
                 std::vector<LightweightString<T>>& out, int flags = SplitKeepEmpty);

// The pieces of `text` between separators, empty ones kept: pack(unpack(s, c), c) == s. The one
// list that does not come back is a single empty piece, which packs to the empty text.
template <class T>
std::vector<LightweightString<T>> unpack(LightweightString<T> const& text,
                                         std::type_identity_t<T> separator);

namespace Detail {
template <class S>
struct StringChar;
template <class T>
struct StringChar<LightweightString<T>> {
    using type = T;
};
template <class Container>
using PartOf = std::remove_cvref_t<decltype(*std::begin(std::declval<Container const&>()))>;
} // namespace Detail

// The strings of `parts` joined with the separator between them.
template <class Container>
Detail::PartOf<Container>
pack(Container const& parts,
     typename Detail::StringChar<Detail::PartOf<Container>>::type separator) {
    Detail::PartOf<Container> result;
    bool first = true;
    for (auto const& part : parts) {
        if (!first)
            result.push_back(separator);
        result.append(part);
        first = false;
    }
    return result;
}

} // namespace Qor

LightweightString<char> StringFromInteger(long long value);
LightweightString<char> StringFromFloat(double value, char precision = 3, bool trimZeros = true);
LightweightString<char> BoolAsString(bool value);

// The number in the text, or 0.0 for bad text.
double asDouble(LightweightString<char> const& text);
double asDouble(LightweightString<wchar_t> const& text);

// True for the empty text and for text of blanks only.
bool isEssentiallyEmpty(LightweightString<char> const& text);
bool isEssentiallyEmpty(LightweightString<wchar_t> const& text);

// Compares without regard to case; null equals the empty text. Negative, 0 or positive.
int wstrxcmp(wchar_t const* a, wchar_t const* b);
