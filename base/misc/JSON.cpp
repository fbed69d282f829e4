#include "misc/JSON.h"

#include "os/Diagnostics.h"
#include "qor/UTF8.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <string>

using Json = nlohmann::json;

namespace JSON {

struct Element::Document {
    Json root;
};

namespace {

// Deeper text is refused before parsing: walking or writing a document recurses per level.
constexpr unsigned MaxDepth = 512;

Json const& nodeOf(void const* node) {
    return *static_cast<Json const*>(node);
}

// The byte offset where nesting first goes deeper than MaxDepth, or npos.
std::size_t tooDeepAt(std::string_view text) {
    unsigned depth = 0;
    bool inString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (inString) {
            if (c == '\\')
                ++i;
            else if (c == '"')
                inString = false;
        } else if (c == '"') {
            inString = true;
        } else if (c == '[' || c == '{') {
            if (++depth > MaxDepth)
                return i;
        } else if ((c == ']' || c == '}') && depth > 0) {
            --depth;
        }
    }
    return std::string_view::npos;
}

// The library's message without its "[json.exception...] " tag.
std::string reasonOf(Json::exception const& error) {
    std::string what = error.what();
    std::size_t tagEnd = what.find("] ");
    return tagEnd == std::string::npos ? what : what.substr(tagEnd + 2);
}

// Integral numbers within the range of Int; 3.0 counts, 3.5 does not.
template <class Int>
bool readInteger(Json const& value, Int& result) {
    if (value.is_number_unsigned()) {
        auto number = value.get<std::uint64_t>();
        if (!std::in_range<Int>(number))
            return false;
        result = Int(number);
        return true;
    }
    if (value.is_number_integer()) {
        auto number = value.get<std::int64_t>();
        if (!std::in_range<Int>(number))
            return false;
        result = Int(number);
        return true;
    }
    if (!value.is_number_float())
        return false;
    double number = value.get<double>();
    if (number != std::trunc(number) || number < -0x1p63 || number >= 0x1p63 ||
        !std::in_range<Int>((long long)number))
        return false;
    result = Int(number);
    return true;
}

std::string quoted(std::string_view utf8) {
    return Json(std::string(utf8)).dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace

Element::Element() = default;

Element::Element(std::shared_ptr<Document const> document, void const* node)
    : document_(std::move(document)), node_(node) {}

bool Element::isNull() const {
    return isValid() && nodeOf(node_).is_null();
}

bool Element::isObject() const {
    return isValid() && nodeOf(node_).is_object();
}

bool Element::isArray() const {
    return isValid() && nodeOf(node_).is_array();
}

bool Element::isString() const {
    return isValid() && nodeOf(node_).is_string();
}

bool Element::isNumber() const {
    return isValid() && nodeOf(node_).is_number();
}

bool Element::isBool() const {
    return isValid() && nodeOf(node_).is_boolean();
}

unsigned Element::size() const {
    return isArray() || isObject() ? unsigned(nodeOf(node_).size()) : 0;
}

Element Element::child(unsigned index) const {
    if (!isArray() || index >= size())
        return Element();
    return Element(document_, &nodeOf(node_)[index]);
}

Element Element::member(char const* key) const {
    if (!isObject() || key == nullptr)
        return Element();
    Json const& object = nodeOf(node_);
    auto it = object.find(key);
    return it != object.end() ? Element(document_, &*it) : Element();
}

bool Element::hasMember(char const* key) const {
    return member(key).isValid();
}

std::vector<LightweightString<char>> Element::keys() const {
    std::vector<LightweightString<char>> names;
    if (!isObject())
        return names;
    for (auto const& item : nodeOf(node_).items())
        names.emplace_back(std::string_view(item.key()));
    return names;
}

LightweightString<wchar_t> Element::getString(unsigned index) const {
    return child(index).asString();
}

LightweightString<wchar_t> Element::asString(LightweightString<wchar_t> const& defaultValue) const {
    if (!isString())
        return defaultValue;
    auto const& text = nodeOf(node_).get_ref<Json::string_t const&>();
    return fromUTF8(text.data(), unsigned(text.size()));
}

int Element::asInt(int defaultValue) const {
    int result = defaultValue;
    return isValid() && readInteger(nodeOf(node_), result) ? result : defaultValue;
}

long long Element::asInt64(long long defaultValue) const {
    long long result = defaultValue;
    return isValid() && readInteger(nodeOf(node_), result) ? result : defaultValue;
}

double Element::asDouble(double defaultValue) const {
    return isNumber() ? nodeOf(node_).get<double>() : defaultValue;
}

bool Element::asBool(bool defaultValue) const {
    return isBool() ? nodeOf(node_).get<bool>() : defaultValue;
}

Element parse(LightweightString<char> const& utf8Text) {
    std::string_view text = utf8Text.view();
    if (std::size_t at = tooDeepAt(text); at != std::string_view::npos) {
        diag_printf("JSON: parse error at byte %zu: nesting deeper than %u levels", at, MaxDepth);
        return Element();
    }
    auto document = std::make_shared<Element::Document>();
    try {
        document->root = Json::parse(text.begin(), text.end());
    } catch (Json::parse_error const& error) {
        diag_printf("JSON: parse error at byte %zu: %s", error.byte, reasonOf(error).c_str());
        return Element();
    }
    Json const* root = &document->root;
    return Element(std::move(document), root);
}

Element parse(LightweightString<wchar_t> const& text) {
    return parse(toUTF8(text));
}

struct Builder::State {
    struct Frame {
        bool isObject;
        unsigned count = 0;
        bool keyPending = false;
    };

    int indent;
    std::string out;
    std::vector<Frame> stack;
    bool complete = false;
    bool failed = false;

    bool fail(char const* what) {
        if (!failed)
            diag_printf("JSON::Builder: %s", what);
        failed = true;
        return false;
    }

    void newline(std::size_t depth) {
        if (indent >= 0)
            out.append("\n").append(std::size_t(indent) * depth, ' ');
    }

    // Writes what precedes an array element or an object key: the comma after an earlier one and,
    // when pretty, the line break and indentation.
    void separate(Frame& frame) {
        if (frame.count++ > 0)
            out += ',';
        newline(stack.size());
    }

    bool beforeValue() {
        if (failed)
            return false;
        if (stack.empty())
            return !complete || fail("a second value after the finished one");
        Frame& frame = stack.back();
        if (frame.isObject) {
            if (!frame.keyPending)
                return fail("a value where a key is expected");
            frame.keyPending = false;
        } else {
            separate(frame);
        }
        return true;
    }

    void afterValue() { complete = stack.empty(); }

    void scalar(std::string const& text) {
        if (!beforeValue())
            return;
        out += text;
        afterValue();
    }

    void begin(bool isObject) {
        if (!beforeValue())
            return;
        out += isObject ? '{' : '[';
        stack.push_back(Frame{isObject});
    }

    void end(bool isObject) {
        if (failed)
            return;
        if (stack.empty() || stack.back().isObject != isObject) {
            fail(isObject ? "endObject() without an open object"
                          : "endArray() without an open array");
            return;
        }
        if (stack.back().keyPending) {
            fail("endObject() after a key without its value");
            return;
        }
        bool hadElements = stack.back().count > 0;
        stack.pop_back();
        if (hadElements)
            newline(stack.size());
        out += isObject ? '}' : ']';
        afterValue();
    }

    void key(std::string_view name) {
        if (failed)
            return;
        if (stack.empty() || !stack.back().isObject) {
            fail("a key outside an object");
            return;
        }
        Frame& frame = stack.back();
        if (frame.keyPending) {
            fail("a key where a value is expected");
            return;
        }
        separate(frame);
        out += quoted(name);
        out += indent >= 0 ? ": " : ":";
        frame.keyPending = true;
    }
};

Builder::Builder(int indent) : state_(std::make_unique<State>()) {
    state_->indent = indent;
}

Builder::~Builder() = default;
Builder::Builder(Builder&&) noexcept = default;
Builder& Builder::operator=(Builder&&) noexcept = default;

Builder& Builder::beginObject() {
    state_->begin(true);
    return *this;
}

Builder& Builder::endObject() {
    state_->end(true);
    return *this;
}

Builder& Builder::beginArray() {
    state_->begin(false);
    return *this;
}

Builder& Builder::endArray() {
    state_->end(false);
    return *this;
}

Builder& Builder::key(char const* name) {
    state_->key(name != nullptr ? name : "");
    return *this;
}

Builder& Builder::key(LightweightString<char> const& name) {
    state_->key(name.view());
    return *this;
}

Builder& Builder::value(LightweightString<wchar_t> const& text) {
    return value(toUTF8(text));
}

Builder& Builder::value(wchar_t const* text) {
    return value(LightweightString<wchar_t>(text != nullptr ? text : L""));
}

Builder& Builder::value(LightweightString<char> const& text) {
    state_->scalar(quoted(text.view()));
    return *this;
}

Builder& Builder::value(char const* text) {
    state_->scalar(quoted(text != nullptr ? text : ""));
    return *this;
}

Builder& Builder::value(double number) {
    state_->scalar(Json(number).dump());
    return *this;
}

Builder& Builder::value(bool flag) {
    state_->scalar(flag ? "true" : "false");
    return *this;
}

Builder& Builder::null() {
    state_->scalar("null");
    return *this;
}

Builder& Builder::signedNumber(long long number) {
    state_->scalar(std::to_string(number));
    return *this;
}

Builder& Builder::unsignedNumber(unsigned long long number) {
    state_->scalar(std::to_string(number));
    return *this;
}

bool Builder::ok() const {
    return !state_->failed;
}

LightweightString<char> Builder::text() const {
    if (state_->failed)
        return {};
    if (!state_->complete) {
        state_->fail("text() before the value is complete");
        return {};
    }
    return LightweightString<char>(std::string_view(state_->out));
}

} // namespace JSON
