#include "misc/DataConvert.h"

#include "qor/Strings.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

// ASCII-only, so that a locale's own case rules (a dotless i) cannot change what a word reads as.
bool isWord(std::wstring_view text, std::string_view word) {
    if (text.size() != word.size())
        return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        wchar_t const c = text[i];
        if (c >= 0x80 || Qor::toLower(char(c)) != word[i])
            return false;
    }
    return true;
}

template <class Float>
bool readSpecialFloat(WString const& text, Float& to) {
    auto const trimmed = Qor::stripBlanks(text);
    auto const word = trimmed.view();
    if (isWord(word, "nan"))
        to = std::numeric_limits<Float>::quiet_NaN();
    else if (isWord(word, "inf") || isWord(word, "+inf"))
        to = std::numeric_limits<Float>::infinity();
    else if (isWord(word, "-inf"))
        to = -std::numeric_limits<Float>::infinity();
    else
        return false;
    return true;
}

template <class Float>
bool readFloat(WString const& text, Float& to) {
    return Qor::parseNumber(text, to) || readSpecialFloat(text, to);
}

template <class Float>
WString shortestText(Float value) {
    if (std::isnan(value))
        return L"nan";
    char buffer[32];
    char* const end =
        std::to_chars(buffer, buffer + sizeof buffer - 1, value, std::chars_format::general).ptr;
    *end = 0;
    return Qor::WStringFromAscii(buffer);
}

bool inUnitRange(float component) {
    return component >= 0.0f && component <= 1.0f;
}

int hexValue(wchar_t c) {
    if (c >= L'0' && c <= L'9')
        return c - L'0';
    if (c >= L'a' && c <= L'f')
        return c - L'a' + 10;
    if (c >= L'A' && c <= L'F')
        return c - L'A' + 10;
    return -1;
}

bool readHexColour(std::wstring_view digits, NormalisedRGB& to) {
    if (digits.size() != 6 && digits.size() != 8)
        return false;
    float components[4] = {0.0f, 0.0f, 0.0f, 1.0f};
    for (std::size_t i = 0; i < digits.size() / 2; ++i) {
        int const high = hexValue(digits[2 * i]);
        int const low = hexValue(digits[2 * i + 1]);
        if (high < 0 || low < 0)
            return false;
        components[i] = float(high * 16 + low) / 255.0f;
    }
    to = NormalisedRGB(components[0], components[1], components[2], components[3]);
    return true;
}

bool readColourComponents(WString const& text, NormalisedRGB& to) {
    std::vector<WString> parts;
    Qor::splitIf(text, L',', parts, Qor::SplitKeepEmpty);
    if (parts.size() != 3 && parts.size() != 4)
        return false;
    float components[4] = {0.0f, 0.0f, 0.0f, 1.0f};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!Qor::parseNumber(parts[i], components[i]) || !inUnitRange(components[i]))
            return false;
    }
    to = NormalisedRGB(components[0], components[1], components[2], components[3]);
    return true;
}

} // namespace

namespace DataConvert {

bool convert(WString const& from, bool& to) {
    auto const trimmed = Qor::stripBlanks(from);
    auto const word = trimmed.view();
    if (isWord(word, "true") || isWord(word, "1") || isWord(word, "yes"))
        to = true;
    else if (isWord(word, "false") || isWord(word, "0") || isWord(word, "no"))
        to = false;
    else
        return false;
    return true;
}

bool convert(WString const& from, double& to) {
    return readFloat(from, to);
}

bool convert(WString const& from, float& to) {
    return readFloat(from, to);
}

bool convert(WString const& from, unsigned& to) {
    return Qor::parseNumber(from, to);
}

bool convert(WString const& from, int& to) {
    return Qor::parseNumber(from, to);
}

bool convert(WString const& from, NormalisedRGB& to) {
    auto const trimmed = Qor::stripBlanks(from);
    if (trimmed.startsWith(L"#"))
        return readHexColour(trimmed.view().substr(1), to);
    return readColourComponents(trimmed, to);
}

bool convert(bool from, WString& to) {
    to = from ? L"true" : L"false";
    return true;
}

bool convert(double from, WString& to) {
    to = shortestText(from);
    return true;
}

bool convert(float from, WString& to) {
    to = shortestText(from);
    return true;
}

bool convert(unsigned from, WString& to) {
    to = Qor::WStringFromInteger(from);
    return true;
}

bool convert(int from, WString& to) {
    to = Qor::WStringFromInteger(from);
    return true;
}

bool convert(NormalisedRGB const& from, WString& to) {
    float const components[4] = {from.r, from.g, from.b, from.a};
    WString text;
    for (float component : components) {
        if (!inUnitRange(component))
            return false;
        if (!text.empty())
            text.push_back(L',');
        text.append(shortestText(component));
    }
    to = text;
    return true;
}

} // namespace DataConvert
