#include "qor/AttribValuePair.h"

#include "qor/UTF8.h"

namespace Qor {

namespace {

wchar_t wideSeparator(char separator) {
    return static_cast<wchar_t>(static_cast<unsigned char>(separator));
}

} // namespace

AttribValuePair::AttribValuePair(LightweightString<wchar_t> const& text, wchar_t separator)
    : separator_(separator) {
    unsigned at = text.find(separator);
    name_ = text.substr(0, at);
    if (at != LightweightString<wchar_t>::npos)
        value_ = text.substr(at + 1);
}

AttribValuePair::AttribValuePair(LightweightString<char> const& text, char separator)
    : AttribValuePair(fromUTF8(text), wideSeparator(separator)) {}

AttribValuePair::AttribValuePair(LightweightString<wchar_t> const& name,
                                 LightweightString<wchar_t> const& value, wchar_t separator)
    : name_(name), value_(value), separator_(separator) {}

AttribValuePair::AttribValuePair(LightweightString<char> const& name,
                                 LightweightString<char> const& value, char separator)
    : AttribValuePair(fromUTF8(name), fromUTF8(value), wideSeparator(separator)) {}

LightweightString<wchar_t> AttribValuePair::asString() const {
    return LightweightString<wchar_t>(name_).push_back(separator_).append(value_);
}

LightweightString<char> AttribValuePair::getNameUTF8() const {
    return toUTF8(name_);
}

LightweightString<char> AttribValuePair::getValueUTF8() const {
    return toUTF8(value_);
}

LightweightString<char> AttribValuePair::asUTF8String() const {
    return toUTF8(asString());
}

} // namespace Qor
