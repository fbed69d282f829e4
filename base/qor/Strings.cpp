#include "qor/Strings.h"

#include "qor/CharCase.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cwctype>
#include <limits>
#include <string>
#include <string_view>

namespace {

constexpr int maxPrecision = 40;

template <class T>
constexpr bool isBlank(T c) {
    return c == T(' ') || c == T('\t') || c == T('\r') || c == T('\n');
}

template <class T>
constexpr bool isDigit(T c) {
    return c >= T('0') && c <= T('9');
}

template <class T>
std::basic_string_view<T> trimBlanks(std::basic_string_view<T> text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

LightweightString<wchar_t> wideFromAscii(std::string_view text) {
    LightweightString<wchar_t> result;
    result.resizeFor(unsigned(text.size()));
    for (char c : text)
        result.push_back(static_cast<unsigned char>(c) < 0x80 ? wchar_t(c) : wchar_t(0xFFFD));
    return result;
}

LightweightString<char> narrowText(std::string_view text) {
    return LightweightString<char>(text);
}

std::string formatInteger(long long value) {
    char buffer[24];
    auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return std::string(buffer, end);
}

void trimFractionZeros(std::string& text) {
    if (text.find('.') == std::string::npos)
        return;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
}

std::string formatFixed(double value, char precision, bool trimZeros) {
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value < 0 ? "-inf" : "inf";
    // The largest double has 309 integer digits; add a sign, a point and the decimals.
    char buffer[320 + maxPrecision];
    int const decimals = std::clamp(int(precision), 0, maxPrecision);
    auto end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals)
            .ptr;
    std::string text(buffer, end);
    if (trimZeros)
        trimFractionZeros(text);
    // A negative value that rounds to zero is plain zero.
    if (text.front() == '-' && text.find_first_not_of("0.", 1) == std::string::npos)
        text.erase(0, 1);
    return text;
}

template <class T>
bool parseUnsignedDigits(std::basic_string_view<T> digits, unsigned long long& magnitude) {
    if (digits.empty())
        return false;
    unsigned long long result = 0;
    for (T c : digits) {
        if (!isDigit(c))
            return false;
        unsigned const digit = unsigned(c - T('0'));
        if (result > (ULLONG_MAX - digit) / 10)
            return false;
        result = result * 10 + digit;
    }
    magnitude = result;
    return true;
}

template <class Int, class T>
bool parseInteger(std::basic_string_view<T> text, Int& value) {
    text = trimBlanks(text);
    bool negative = false;
    if (!text.empty() && (text.front() == T('+') || text.front() == T('-'))) {
        negative = text.front() == T('-');
        text.remove_prefix(1);
    }
    if (negative && std::is_unsigned_v<Int>)
        return false;
    unsigned long long magnitude = 0;
    if (!parseUnsignedDigits(text, magnitude))
        return false;
    using Limits = std::numeric_limits<Int>;
    unsigned long long const limit = (unsigned long long)Limits::max() + (negative ? 1 : 0);
    if (magnitude > limit)
        return false;
    // Negation in unsigned arithmetic, so the most negative value needs no special case.
    value = static_cast<Int>(negative ? ~magnitude + 1 : magnitude);
    return true;
}

// An optional sign, digits with an optional point (at least one digit in all), then an optional
// exponent of an optional sign and digits.
template <class T>
bool isDecimal(std::basic_string_view<T> text) {
    std::size_t i = 0;
    auto skipSign = [&] {
        if (i < text.size() && (text[i] == T('+') || text[i] == T('-')))
            ++i;
    };
    auto skipDigits = [&] {
        std::size_t const start = i;
        while (i < text.size() && isDigit(text[i]))
            ++i;
        return i - start;
    };
    skipSign();
    std::size_t mantissaDigits = skipDigits();
    if (i < text.size() && text[i] == T('.')) {
        ++i;
        mantissaDigits += skipDigits();
    }
    if (mantissaDigits == 0)
        return false;
    if (i < text.size() && (text[i] == T('e') || text[i] == T('E'))) {
        ++i;
        skipSign();
        if (skipDigits() == 0)
            return false;
    }
    return i == text.size();
}

template <class Float, class T>
bool parseFloating(std::basic_string_view<T> text, Float& value) {
    text = trimBlanks(text);
    if (!isDecimal(text))
        return false;
    // from_chars takes no plus sign; everything left is ASCII.
    if (text.front() == T('+'))
        text.remove_prefix(1);
    std::string const ascii(text.begin(), text.end());
    Float result;
    auto const [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), result,
                                              std::chars_format::general);
    if (error != std::errc() || end != ascii.data() + ascii.size())
        return false;
    value = result;
    return true;
}

template <class Number, class T>
bool parseAny(std::basic_string_view<T> text, Number& value) {
    if constexpr (std::is_floating_point_v<Number>)
        return parseFloating(text, value);
    else
        return parseInteger(text, value);
}

template <class Number>
Number parseOrZero(LightweightString<wchar_t> const& text) {
    Number value = 0;
    Qor::parseNumber(text, value);
    return value;
}

template <class T>
bool allBlank(LightweightString<T> const& text) {
    return std::all_of(text.begin(), text.end(), [](T c) { return isBlank(c); });
}

template <class T>
LightweightString<T> mapCase(LightweightString<T> const& text, T (*map)(T)) {
    LightweightString<T> result;
    result.resizeFor(text.size());
    for (T c : text)
        result.push_back(map(c));
    return result;
}

} // namespace

namespace Qor {

LightweightString<wchar_t> WStringFromAscii(char const* text) {
    return text ? wideFromAscii(text) : LightweightString<wchar_t>();
}

LightweightString<wchar_t> WStringFromInteger(long long value) {
    return wideFromAscii(formatInteger(value));
}

LightweightString<wchar_t> WStringFromFloat(double value, char precision, bool trimZeros) {
    return wideFromAscii(formatFixed(value, precision, trimZeros));
}

template <ParsableNumber Number>
bool parseNumber(LightweightString<char> const& text, Number& value) {
    return parseAny(text.view(), value);
}

template <ParsableNumber Number>
bool parseNumber(LightweightString<wchar_t> const& text, Number& value) {
    return parseAny(text.view(), value);
}

template bool parseNumber(LightweightString<char> const&, int&);
template bool parseNumber(LightweightString<char> const&, unsigned&);
template bool parseNumber(LightweightString<char> const&, long long&);
template bool parseNumber(LightweightString<char> const&, double&);
template bool parseNumber(LightweightString<char> const&, float&);
template bool parseNumber(LightweightString<wchar_t> const&, int&);
template bool parseNumber(LightweightString<wchar_t> const&, unsigned&);
template bool parseNumber(LightweightString<wchar_t> const&, long long&);
template bool parseNumber(LightweightString<wchar_t> const&, double&);
template bool parseNumber(LightweightString<wchar_t> const&, float&);

int IntFromWString(LightweightString<wchar_t> const& text) {
    return parseOrZero<int>(text);
}

unsigned UIntFromWString(LightweightString<wchar_t> const& text) {
    return parseOrZero<unsigned>(text);
}

long long Int64FromWString(LightweightString<wchar_t> const& text) {
    return parseOrZero<long long>(text);
}

double FloatFromWString(LightweightString<wchar_t> const& text, double defaultValue) {
    double value = defaultValue;
    parseNumber(text, value);
    return value;
}

char toUpper(char c) {
    return asciiToUpper(c);
}

char toLower(char c) {
    return asciiToLower(c);
}

wchar_t toUpper(wchar_t c) {
    return wideToUpper(c);
}

wchar_t toLower(wchar_t c) {
    return wideToLower(c);
}

template <class T>
LightweightString<T> toUpper(LightweightString<T> const& text) {
    return mapCase<T>(text, &toUpper);
}

template <class T>
LightweightString<T> toLower(LightweightString<T> const& text) {
    return mapCase<T>(text, &toLower);
}

template <class T>
bool endsWith(LightweightString<T> const& text,
              std::type_identity_t<LightweightString<T>> const& suffix, bool caseSensitive) {
    return text.endsWith(suffix.c_str(), caseSensitive);
}

template <class T>
LightweightString<T> stripLeadingChars(LightweightString<T> const& text,
                                       std::type_identity_t<T> c) {
    auto const first = text.view().find_first_not_of(c);
    return first == std::basic_string_view<T>::npos ? LightweightString<T>()
                                                    : text.substr(unsigned(first));
}

template <class T>
LightweightString<T> stripTrailingChars(LightweightString<T> const& text,
                                        std::type_identity_t<T> c) {
    auto const last = text.view().find_last_not_of(c);
    return last == std::basic_string_view<T>::npos ? LightweightString<T>()
                                                   : text.substr(0, unsigned(last + 1));
}

template <class T>
LightweightString<T> stripBlanks(LightweightString<T> const& text) {
    auto const trimmed = trimBlanks(text.view());
    return trimmed.size() == text.size() ? text : LightweightString<T>(trimmed);
}

template <class T>
unsigned splitIf(LightweightString<T> const& text, std::type_identity_t<T> separator,
                 std::vector<LightweightString<T>>& out, int flags) {
    auto const view = text.view();
    if (view.empty())
        return 0;
    unsigned added = 0;
    std::size_t start = 0;
    for (;;) {
        std::size_t const at = view.find(separator, start);
        std::size_t const end = at == view.npos ? view.size() : at;
        if (end > start || !(flags & SplitDropEmpty)) {
            out.push_back(text.substr(unsigned(start), unsigned(end - start)));
            ++added;
        }
        if (at == view.npos)
            return added;
        start = at + 1;
    }
}

template <class T>
std::vector<LightweightString<T>> unpack(LightweightString<T> const& text,
                                         std::type_identity_t<T> separator) {
    std::vector<LightweightString<T>> pieces;
    splitIf(text, separator, pieces, SplitKeepEmpty);
    return pieces;
}

#define QOR_STRINGS_INSTANTIATE(T)                                                                 \
    template LightweightString<T> toUpper(LightweightString<T> const&);                            \
    template LightweightString<T> toLower(LightweightString<T> const&);                            \
    template bool endsWith(LightweightString<T> const&, LightweightString<T> const&, bool);        \
    template LightweightString<T> stripLeadingChars(LightweightString<T> const&, T);               \
    template LightweightString<T> stripTrailingChars(LightweightString<T> const&, T);              \
    template LightweightString<T> stripBlanks(LightweightString<T> const&);                        \
    template unsigned splitIf(LightweightString<T> const&, T, std::vector<LightweightString<T>>&,  \
                              int);                                                                \
    template std::vector<LightweightString<T>> unpack(LightweightString<T> const&, T);

QOR_STRINGS_INSTANTIATE(char)
QOR_STRINGS_INSTANTIATE(wchar_t)

#undef QOR_STRINGS_INSTANTIATE

} // namespace Qor

LightweightString<char> StringFromInteger(long long value) {
    return narrowText(formatInteger(value));
}

LightweightString<char> StringFromFloat(double value, char precision, bool trimZeros) {
    return narrowText(formatFixed(value, precision, trimZeros));
}

LightweightString<char> BoolAsString(bool value) {
    return value ? "true" : "false";
}

double asDouble(LightweightString<char> const& text) {
    double value = 0.0;
    Qor::parseNumber(text, value);
    return value;
}

double asDouble(LightweightString<wchar_t> const& text) {
    return Qor::FloatFromWString(text, 0.0);
}

bool isEssentiallyEmpty(LightweightString<char> const& text) {
    return allBlank(text);
}

bool isEssentiallyEmpty(LightweightString<wchar_t> const& text) {
    return allBlank(text);
}

int wstrxcmp(wchar_t const* a, wchar_t const* b) {
    a = a ? a : L"";
    b = b ? b : L"";
    for (;; ++a, ++b) {
        wint_t const x = wint_t(Qor::wideToLower(*a));
        wint_t const y = wint_t(Qor::wideToLower(*b));
        if (x != y)
            return x < y ? -1 : 1;
        if (x == 0)
            return 0;
    }
}
