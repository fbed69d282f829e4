#include "glib/HTMLParser.h"

#include <algorithm>
#include <cwctype>
#include <optional>
#include <utility>

namespace {

// Deeper nesting than this is malformed text; the limit keeps misnested ends cheap.
constexpr std::size_t maxDepth = 32;
// The longest entity name or number, "#x10FFFF" and the like.
constexpr std::size_t maxEntityLength = 10;

bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r' || c == L'\f';
}

bool isAsciiLetter(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

bool isAsciiAlnum(wchar_t c) {
    return isAsciiLetter(c) || (c >= L'0' && c <= L'9');
}

std::wstring lowered(wchar_t const* s, std::size_t from, std::size_t to) {
    std::wstring out(s + from, s + to);
    for (wchar_t& c : out)
        c = wchar_t(std::towlower(wint_t(c)));
    return out;
}

// A character number as text shows it: no NUL, surrogate or value past Unicode, and control
// characters as spaces, so that a line breaks only where a tag says.
wchar_t printable(unsigned long code) {
    if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        return L'\uFFFD';
    return code < 0x20 ? L' ' : wchar_t(code);
}

bool isHexDigit(wchar_t c) {
    return (c >= L'0' && c <= L'9') || (c >= L'a' && c <= L'f') || (c >= L'A' && c <= L'F');
}

int digitValue(wchar_t c) {
    if (c >= L'0' && c <= L'9')
        return c - L'0';
    return isHexDigit(c) ? (c | 0x20) - L'a' + 10 : 99;
}

// The character numbered by the digits, or nothing when they aren't digits of the base.
std::optional<wchar_t> numbered(std::wstring const& digits, int base) {
    if (digits.empty())
        return std::nullopt;
    unsigned long value = 0;
    for (wchar_t c : digits) {
        int d = digitValue(c);
        if (d >= base)
            return std::nullopt;
        value = std::min(value * base + d, 0x110000UL);
    }
    return printable(value);
}

std::optional<wchar_t> entityValue(std::wstring const& name) {
    static std::pair<wchar_t const*, wchar_t> const named[] = {
        {L"lt", L'<'},   {L"gt", L'>'},    {L"amp", L'&'},
        {L"quot", L'"'}, {L"apos", L'\''}, {L"nbsp", 0xA0},
    };
    if (name.size() > 2 && name[0] == L'#' && (name[1] == L'x' || name[1] == L'X'))
        return numbered(name.substr(2), 16);
    if (name.size() > 1 && name[0] == L'#')
        return numbered(name.substr(1), 10);
    for (auto const& [key, value] : named)
        if (name == key)
            return value;
    return std::nullopt;
}

// The character of the entity that starts with the "&" at `at`, and the length of the entity;
// nothing when no known entity starts there.
std::optional<std::pair<wchar_t, std::size_t>> readEntity(wchar_t const* s, std::size_t at,
                                                          std::size_t end) {
    std::size_t limit = std::min(end, at + 2 + maxEntityLength);
    for (std::size_t i = at + 1; i < limit; ++i) {
        if (s[i] == L';') {
            if (auto c = entityValue(std::wstring(s + at + 1, s + i)))
                return std::make_pair(*c, i + 1 - at);
            return std::nullopt;
        }
        if (!isAsciiAlnum(s[i]) && s[i] != L'#')
            return std::nullopt;
    }
    return std::nullopt;
}

LightweightString<wchar_t> decoded(wchar_t const* s, std::size_t from, std::size_t to) {
    std::wstring out;
    for (std::size_t i = from; i < to;) {
        auto entity = s[i] == L'&' ? readEntity(s, i, to) : std::nullopt;
        out += entity ? entity->first : s[i];
        i += entity ? entity->second : 1;
    }
    return LightweightString<wchar_t>(std::wstring_view(out));
}

bool isHexColour(std::wstring const& v) {
    return (v.size() == 7 || v.size() == 4) && v[0] == L'#' &&
           std::all_of(v.begin() + 1, v.end(), isHexDigit);
}

// "#rrggbb", "#rgb" or one of a few names; unset when it is none of those.
Colour parseColour(LightweightString<wchar_t> const& value) {
    static std::pair<wchar_t const*, unsigned> const names[] = {
        {L"black", 0x000000}, {L"white", 0xFFFFFF}, {L"red", 0xFF0000},  {L"green", 0x008000},
        {L"blue", 0x0000FF},  {L"grey", 0x808080},  {L"gray", 0x808080},
    };
    std::wstring v = lowered(value.c_str(), 0, value.size());
    std::optional<unsigned> rgb;
    if (isHexColour(v)) {
        rgb = 0;
        // "#rgb" stands for "#rrggbb".
        for (std::size_t i = 1; i < v.size(); ++i)
            for (int repeat = v.size() == 4 ? 2 : 1; repeat > 0; --repeat)
                rgb = *rgb * 16 + unsigned(digitValue(v[i]));
    }
    for (auto const& [name, code] : names)
        if (v == name)
            rgb = code;
    if (!rgb)
        return Colour();
    return Colour(((*rgb >> 16) & 0xFF) / 255.0, ((*rgb >> 8) & 0xFF) / 255.0,
                  (*rgb & 0xFF) / 255.0);
}

} // namespace

struct HTMLParser::Tag {
    std::wstring name;
    bool closing = false;
    std::vector<std::pair<std::wstring, LightweightString<wchar_t>>> attributes;

    LightweightString<wchar_t> attribute(wchar_t const* key) const {
        for (auto const& [attributeName, value] : attributes)
            if (attributeName == key)
                return value;
        return {};
    }

    // Reads the text between "<" and ">", [from, to). False when it isn't a tag: no name, or a
    // name that doesn't start with a letter.
    bool read(wchar_t const* s, std::size_t from, std::size_t to) {
        std::size_t p = from;
        closing = p < to && s[p] == L'/';
        p += closing ? 1 : 0;
        std::size_t nameStart = p;
        while (p < to && isAsciiAlnum(s[p]))
            ++p;
        if (p == nameStart || !isAsciiLetter(s[nameStart]) ||
            (p < to && !isBlank(s[p]) && s[p] != L'/'))
            return false;
        name = lowered(s, nameStart, p);
        while (p < to)
            p = readAttribute(s, p, to);
        return true;
    }

    // Reads one attribute, or skips a stray character; answers where reading goes on.
    std::size_t readAttribute(wchar_t const* s, std::size_t p, std::size_t to) {
        if (isBlank(s[p]) || s[p] == L'/' || s[p] == L'=')
            return p + 1;
        std::size_t nameStart = p;
        while (p < to && !isBlank(s[p]) && s[p] != L'=' && s[p] != L'/')
            ++p;
        std::wstring key = lowered(s, nameStart, p);
        while (p < to && isBlank(s[p]))
            ++p;
        if (p == to || s[p] != L'=') {
            attributes.emplace_back(key, LightweightString<wchar_t>());
            return p;
        }
        ++p;
        while (p < to && isBlank(s[p]))
            ++p;
        wchar_t quote = p < to && (s[p] == L'"' || s[p] == L'\'') ? s[p] : 0;
        std::size_t valueStart = quote ? p + 1 : p;
        std::size_t valueEnd = valueStart;
        while (valueEnd < to && (quote ? s[valueEnd] != quote : !isBlank(s[valueEnd])))
            ++valueEnd;
        attributes.emplace_back(key, decoded(s, valueStart, valueEnd));
        return std::min(to, valueEnd + (quote ? 1 : 0));
    }
};

HTMLParser::HTMLParser(LightweightString<wchar_t> const& text, Palette const& palette)
    : source_(text), palette_(palette), noTagFrom_(text.size()) {
    style_.colour = palette.text();
}

LightweightVector<HTMLParagraph> HTMLParser::parse() {
    wchar_t const* s = source_.c_str();
    std::size_t const n = source_.size();
    for (std::size_t i = 0; i < n;) {
        if (s[i] == L'<') {
            std::size_t next = readTag(i);
            if (next == 0)
                addChar(L'<');
            i = next != 0 ? next : i + 1;
            continue;
        }
        auto entity = s[i] == L'&' ? readEntity(s, i, n) : std::nullopt;
        if (entity)
            addChar(entity->first);
        else if (isBlank(s[i]))
            addSpace();
        else
            addChar(s[i]);
        i += entity ? entity->second : 1;
    }
    endParagraph();
    return result_;
}

// A tag runs to the next ">"; a "<" before it means that this "<" was text.
std::size_t HTMLParser::readTag(std::size_t at) {
    if (at >= noTagFrom_)
        return 0;
    wchar_t const* s = source_.c_str();
    std::size_t const n = source_.size();
    std::size_t end = at + 1;
    while (end < n && s[end] != L'>' && s[end] != L'<')
        ++end;
    if (end == n)
        noTagFrom_ = at;
    if (end == n || s[end] == L'<')
        return 0;
    // Comments and declarations show nothing.
    if (at + 1 < end && s[at + 1] == L'!')
        return end + 1;
    Tag tag;
    if (!tag.read(s, at + 1, end))
        return 0;
    handle(tag);
    return end + 1;
}

void HTMLParser::handle(Tag const& tag) {
    static std::pair<wchar_t const*, Kind> const styles[] = {
        {L"b", Bold},      {L"strong", Bold}, {L"i", Italic}, {L"em", Italic},
        {L"u", Underline}, {L"font", Font},   {L"a", Anchor},
    };
    if (tag.name == L"p") {
        if (tag.closing)
            endParagraph();
        else
            startParagraph();
        return;
    }
    if (tag.name == L"br") {
        lineBreak();
        return;
    }
    for (auto const& [name, kind] : styles) {
        if (tag.name != name)
            continue;
        if (tag.closing)
            close(kind);
        else
            open(kind, tag);
        return;
    }
}

void HTMLParser::open(Kind kind, Tag const& tag) {
    if (stack_.size() >= maxDepth) {
        ++ignoredCount_[kind];
        return;
    }
    Open entry{kind, HTMLParagraph::Run(), HTMLParagraph::Run()};
    if (kind == Font)
        entry.effect.colour = parseColour(tag.attribute(L"color"));
    if (kind == Anchor)
        entry.effect.url = tag.attribute(L"href");
    push(entry);
}

// Closes the innermost open tag of the kind; the tags opened inside it stay in force, as they
// would if the tags had been nested properly.
void HTMLParser::close(Kind kind) {
    if (ignoredCount_[kind] > 0) {
        --ignoredCount_[kind];
        return;
    }
    if (openCount_[kind] == 0)
        return;
    auto at = std::find_if(stack_.rbegin(), stack_.rend(),
                           [kind](Open const& o) { return o.kind == kind; });
    std::vector<Open> inner(at.base(), stack_.end());
    flushText();
    style_ = at->before;
    stack_.erase(std::prev(at.base()), stack_.end());
    --openCount_[kind];
    for (Open const& entry : inner) {
        --openCount_[entry.kind];
        push(entry);
    }
}

void HTMLParser::push(Open const& entry) {
    flushText();
    stack_.push_back(Open{entry.kind, entry.effect, style_});
    ++openCount_[entry.kind];
    style_ = applied(entry.kind, entry.effect);
}

HTMLParagraph::Run HTMLParser::applied(Kind kind, HTMLParagraph::Run const& effect) const {
    HTMLParagraph::Run style = style_;
    switch (kind) {
    case Bold:
        style.bold = true;
        break;
    case Italic:
        style.italic = true;
        break;
    case Underline:
        style.underline = true;
        break;
    case Font:
        style.colour = effect.colour.isSet() ? effect.colour : style.colour;
        break;
    case Anchor:
        if (!effect.url.empty()) {
            style.url = effect.url;
            style.colour = palette_.selection();
            style.underline = true;
        }
        break;
    case KindCount:
        break;
    }
    return style;
}

void HTMLParser::addChar(wchar_t c) {
    ensureOpen();
    pending_ += c;
    atLineStart_ = false;
    afterSpace_ = false;
}

void HTMLParser::addSpace() {
    if (!paragraphOpen_ || atLineStart_ || afterSpace_)
        return;
    pending_ += L' ';
    afterSpace_ = true;
}

void HTMLParser::lineBreak() {
    ensureOpen();
    pending_ += L'\n';
    atLineStart_ = true;
    afterSpace_ = false;
}

void HTMLParser::startParagraph() {
    endParagraph();
    paragraphOpen_ = true;
    atLineStart_ = true;
    afterSpace_ = false;
}

void HTMLParser::endParagraph() {
    if (!paragraphOpen_)
        return;
    flushText();
    result_.push_back(paragraph_);
    paragraph_ = HTMLParagraph();
    paragraphOpen_ = false;
}

void HTMLParser::ensureOpen() {
    if (!paragraphOpen_)
        startParagraph();
}

void HTMLParser::flushText() {
    if (pending_.empty())
        return;
    HTMLParagraph::Run run = style_;
    run.text = LightweightString<wchar_t>(std::wstring_view(pending_));
    paragraph_.append(run);
    pending_.clear();
}
