#include "misc/Config.h"

#include <algorithm>
#include <charconv>

namespace {

void appendEscaped(LightweightString<char>& out, LightweightString<char> const& text, bool isKey) {
    for (char c : text) {
        switch (c) {
        case '\\':
            out.append("\\\\");
            break;
        case '\n':
            out.append("\\n");
            break;
        case '\r':
            out.append("\\r");
            break;
        case '=':
            out.append(isKey ? "\\=" : "=");
            break;
        default:
            out.push_back(c);
        }
    }
}

bool unescape(char escaped, char& c) {
    switch (escaped) {
    case '\\':
    case '=':
        c = escaped;
        return true;
    case 'n':
        c = '\n';
        return true;
    case 'r':
        c = '\r';
        return true;
    default:
        return false;
    }
}

// Splits one line of the text form at its first bare '='.
bool parseLine(std::string_view line, LightweightString<char>& key,
               LightweightString<char>& value) {
    LightweightString<char>* target = &key;
    for (std::size_t i = 0; i < line.size(); ++i) {
        char c = line[i];
        if (c == '\\') {
            if (++i == line.size() || !unescape(line[i], c))
                return false;
        } else if (c == '=' && target == &key) {
            target = &value;
            continue;
        }
        target->push_back(c);
    }
    return target == &value;
}

} // namespace

bool configb::in(LightweightString<char> const& key, LightweightString<char>& value) const {
    Entry const* entry = find(key);
    if (entry == nullptr)
        return false;
    value = entry->second;
    return true;
}

bool configb::in(LightweightString<char> const& key, int& value) const {
    Entry const* entry = find(key);
    return entry != nullptr && parseInt(entry->second.view(), value);
}

void configb::set(char const* key, int value) {
    put(key, std::to_string(value).c_str());
}

void configb::set(char const* key, LightweightString<char> const& value) {
    put(key, value);
}

bool configb::remove(LightweightString<char> const& key) {
    auto it = std::find_if(entries_.begin(), entries_.end(),
                           [&](Entry const& entry) { return entry.first == key; });
    if (it == entries_.end())
        return false;
    entries_.erase(it);
    return true;
}

LightweightString<char> configb::toText() const {
    LightweightString<char> text;
    for (auto const& [key, value] : entries_) {
        appendEscaped(text, key, true);
        text.push_back('=');
        appendEscaped(text, value, false);
        text.push_back('\n');
    }
    return text;
}

bool configb::fromText(LightweightString<char> const& text, configb& block) {
    configb parsed;
    std::string_view rest = text.view();
    while (!rest.empty()) {
        std::size_t end = std::min(rest.find('\n'), rest.size());
        LightweightString<char> key, value;
        if (!parseLine(rest.substr(0, end), key, value))
            return false;
        parsed.put(key, value);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    block = std::move(parsed);
    return true;
}

bool configb::parseInt(std::string_view text, int& value) {
    // from_chars takes a minus sign but not a plus sign.
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    int parsed = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (error != std::errc() || end != text.data() + text.size())
        return false;
    value = parsed;
    return true;
}

configb::Entry const* configb::find(LightweightString<char> const& key) const {
    for (Entry const& entry : entries_)
        if (entry.first == key)
            return &entry;
    return nullptr;
}

void configb::put(LightweightString<char> const& key, LightweightString<char> const& value) {
    for (Entry& entry : entries_) {
        if (entry.first == key) {
            entry.second = value;
            return;
        }
    }
    entries_.emplace_back(key, value);
}
