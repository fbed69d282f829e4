#pragma once

// Reading and writing JSON text. parse() gives an Element, a read-only view into a shared parsed
// document that copies cheaply; a Builder writes text one token at a time. Nothing here throws: bad
// input, access of the wrong kind and misuse give an invalid Element, the caller's default, or a
// failed Builder, with one diagnostic line where the input or the caller was at fault.

#include "qor/LightweightString.h"

#include <concepts>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace JSON {

class Element {
public:
    // An invalid element.
    Element();

    bool isValid() const { return node_ != nullptr; }
    bool isNull() const;
    bool isObject() const;
    bool isArray() const;
    bool isString() const;
    bool isNumber() const;
    bool isBool() const;

    // How many children an array or object has; 0 for anything else.
    unsigned size() const;

    // The child at an index of an array; invalid when out of range or not an array.
    Element child(unsigned index) const;
    // Any integer type, so that e[0] does not compete with the member lookup below.
    template <std::integral Index>
    Element operator[](Index index) const {
        return std::in_range<unsigned>(index) ? child(unsigned(index)) : Element();
    }
    // The member of an object; invalid when absent or not an object.
    Element member(char const* key) const;
    Element operator[](char const* key) const { return member(key); }
    bool hasMember(char const* key) const;
    // The names of an object's members, in byte order.
    std::vector<LightweightString<char>> keys() const;

    // The string at an index of an array; empty when there is no string there.
    LightweightString<wchar_t> getString(unsigned index) const;

    // The value, or the default when it is of another kind. An integer read accepts a number only
    // when it is integral and within range.
    LightweightString<wchar_t> asString(LightweightString<wchar_t> const& defaultValue = {}) const;
    int asInt(int defaultValue = 0) const;
    long long asInt64(long long defaultValue = 0) const;
    double asDouble(double defaultValue = 0.0) const;
    bool asBool(bool defaultValue = false) const;

private:
    struct Document;

    Element(std::shared_ptr<Document const> document, void const* node);
    friend Element parse(LightweightString<char> const& utf8Text);

    std::shared_ptr<Document const> document_;
    void const* node_ = nullptr;
};

// Malformed, truncated or too deeply nested text gives an invalid Element and one diagnostic line
// with the byte position and the reason.
Element parse(LightweightString<char> const& utf8Text);
Element parse(LightweightString<wchar_t> const& text);

// Writes JSON text as it is told, checking that the calls make one well-formed value.
class Builder {
public:
    // indent -1 writes compact text; n >= 0 one value per line, indented by n spaces a level.
    explicit Builder(int indent = -1);
    ~Builder();
    Builder(Builder&&) noexcept;
    Builder& operator=(Builder&&) noexcept;

    Builder& beginObject();
    Builder& endObject();
    Builder& beginArray();
    Builder& endArray();
    // The name of the next member; only inside an object, before each value.
    Builder& key(char const* name);
    Builder& key(LightweightString<char> const& name);

    Builder& value(LightweightString<wchar_t> const& text);
    Builder& value(wchar_t const* text);
    // Narrow text is taken as UTF-8; invalid bytes are written as U+FFFD.
    Builder& value(LightweightString<char> const& text);
    Builder& value(char const* text);
    // Non-finite numbers are written as null, the nearest that JSON has.
    Builder& value(double number);
    Builder& value(bool flag);
    template <std::integral Number>
    requires(!std::same_as<Number, bool>) Builder& value(Number number) {
        if constexpr (std::is_signed_v<Number>)
            return signedNumber((long long)number);
        else
            return unsignedNumber((unsigned long long)number);
    }
    // A single character is neither text nor a number here.
    Builder& value(char) = delete;
    Builder& value(wchar_t) = delete;
    Builder& null();

    // False once a call was out of place; the builder then ignores everything else.
    bool ok() const;
    // The finished text; empty (and reported) while a value is incomplete or after misuse.
    LightweightString<char> text() const;

private:
    struct State;

    Builder& signedNumber(long long number);
    Builder& unsignedNumber(unsigned long long number);

    std::unique_ptr<State> state_;
};

} // namespace JSON
