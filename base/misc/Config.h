#pragma once

// A configuration block: named text values that a widget dumps its state into and loads it back
// from. Keys keep the order in which they were first set, so a dumped block reads in the order its
// owner wrote it. toText()/fromText() give a line-based form that survives any key and value.

#include "qor/LightweightString.h"

#include <string_view>
#include <utility>
#include <vector>

class configb {
public:
    // Reads a value; false (and `value` untouched) when the key is absent.
    bool in(LightweightString<char> const& key, LightweightString<char>& value) const;
    // As above, but also false (and `value` untouched) when the text is not a whole decimal
    // integer that fits an int.
    bool in(LightweightString<char> const& key, int& value) const;

    // Adds the key at the end, or replaces its value where it stands.
    void set(char const* key, int value);
    void set(char const* key, LightweightString<char> const& value);
    // False when the key was not there.
    bool remove(LightweightString<char> const& key);

    unsigned size() const { return unsigned(entries_.size()); }
    bool isEmpty() const { return entries_.empty(); }

    // One "key=value" line per entry. Backslash, newline and carriage return are escaped in keys
    // and values, and '=' in keys, so that the first bare '=' always ends the key.
    LightweightString<char> toText() const;
    // Replaces `block` with the entries of a toText() form; false (and `block` untouched) when a
    // line has no bare '=' or an unknown escape.
    static bool fromText(LightweightString<char> const& text, configb& block);

    // A whole decimal integer: an optional sign and digits, nothing else, within int range.
    static bool parseInt(std::string_view text, int& value);

    friend bool operator==(configb const& a, configb const& b) { return a.entries_ == b.entries_; }

private:
    using Entry = std::pair<LightweightString<char>, LightweightString<char>>;

    Entry const* find(LightweightString<char> const& key) const;
    void put(LightweightString<char> const& key, LightweightString<char> const& value);

    std::vector<Entry> entries_;
};
