#pragma once

// A shared, counted string of char or wchar_t (32 bits). Copies share one body; a writer makes a
// body of its own first unless it is the only owner and the capacity suffices. A null body and a
// body of length 0 are both the empty string. Bodies come from the OS() allocator.

#include "qor/Ptr.h"

#include <compare>
#include <cstring>
#include <cwchar>
#include <functional>
#include <string>
#include <string_view>

template <class T>
class LightweightString {
public:
    // Header of a body; the characters and a terminating zero follow it in the same block.
    struct Impl {
        T* chars;
        unsigned length;
        unsigned capacity;
        unsigned refCount;
    };
    struct ImplDtorTraits {
        static void destroy(Impl* impl) { OS()->allocator().free(impl); }
    };
    struct ImplRefCountTraits {
        static void* adopt(Impl* impl) { return &impl->refCount; }
        static void dispose(void*) {}
    };
    using ImplPtr = Qor::Ptr<Impl, ImplDtorTraits, ImplRefCountTraits>;

    static constexpr unsigned npos = ~0u;

    LightweightString() noexcept = default;
    LightweightString(T const* text);
    LightweightString(T const* text, unsigned count);
    explicit LightweightString(std::basic_string_view<T> text);
    LightweightString(unsigned count, T fill);

    // A body for `length` characters: capacity length + 1, or with `roundUp` the smallest power of
    // two greater than the length.
    static ImplPtr createImpl(unsigned length, bool roundUp);

    unsigned size() const noexcept { return impl_ ? impl_->length : 0; }
    unsigned length() const noexcept { return size(); }
    bool empty() const noexcept { return size() == 0; }
    bool isEmpty() const noexcept { return empty(); }
    unsigned capacity() const noexcept { return impl_ ? impl_->capacity : 0; }
    // Never null: the empty string answers a static empty text.
    T const* c_str() const noexcept { return impl_ ? impl_->chars : emptyText(); }
    T const* data() const noexcept { return c_str(); }
    T const* begin() const noexcept { return c_str(); }
    T const* end() const noexcept { return c_str() + size(); }
    T operator[](unsigned index) const noexcept { return c_str()[index]; }
    T back() const noexcept { return empty() ? T(0) : c_str()[size() - 1]; }
    std::basic_string_view<T> view() const noexcept { return {c_str(), size()}; }
    std::basic_string<T> str() const { return std::basic_string<T>(c_str(), size()); }
    // How many owners share the body (0 for the empty string without one).
    unsigned shareCount() const { return impl_.useCount(); }
    bool sharesBodyWith(LightweightString const& other) const noexcept {
        return impl_ && impl_.get() == other.impl_.get();
    }

    // Writers.
    LightweightString& assign(T const* text);
    LightweightString& assign(T const* text, unsigned count);
    LightweightString& append(T const* text, unsigned count);
    LightweightString& append(T const* text);
    LightweightString& append(LightweightString const& other);
    LightweightString& push_back(T c);
    LightweightString& insert(unsigned index, T const* text, unsigned count);
    LightweightString& insert(unsigned index, LightweightString const& text);
    LightweightString& erase(unsigned first, unsigned count = npos);
    LightweightString& resize(unsigned newLength, T fill = T(' '));
    // Makes room for `count` characters without changing the text.
    LightweightString& resizeFor(unsigned count);
    // Replaces every occurrence; answers how many were replaced.
    unsigned substitute(T const* from, T const* to);
    unsigned substitute(T from, T to);
    void setChar(unsigned index, T c);
    void clear() noexcept { impl_.reset(); }

    LightweightString& operator+=(LightweightString const& other) { return append(other); }
    LightweightString& operator+=(T const* text) { return append(text); }
    LightweightString& operator+=(T c) { return push_back(c); }

    // Readers.
    LightweightString substr(unsigned first, unsigned count = npos) const;
    bool startsWith(T const* prefix, bool caseSensitive = true) const;
    bool endsWith(T const* suffix, bool caseSensitive = true) const;
    unsigned find(T c, unsigned from = 0) const;
    unsigned find(T const* text, unsigned from = 0) const;
    unsigned rfind(T c, unsigned from = npos) const;
    unsigned rfind(T const* text, unsigned from = npos) const;
    int compare(LightweightString const& other) const;
    int compareCaseInsensitive(LightweightString const& other) const;

    // Null-safe comparison of two raw texts (null equals empty); 0 means equal.
    static int compare(T const* a, T const* b);

    // The parts joined with the separator between them.
    template <class Container>
    static LightweightString join(Container const& parts, T const* separator);

    friend LightweightString operator+(LightweightString a, LightweightString const& b) {
        return a.append(b);
    }
    friend LightweightString operator+(LightweightString a, T const* b) { return a.append(b); }
    friend LightweightString operator+(T const* a, LightweightString const& b) {
        return LightweightString(a).append(b);
    }
    friend bool operator==(LightweightString const& a, LightweightString const& b) {
        return a.size() == b.size() && a.compare(b) == 0;
    }
    friend bool operator==(LightweightString const& a, T const* b) {
        return compare(a.c_str(), b) == 0;
    }
    friend bool operator<(LightweightString const& a, LightweightString const& b) {
        return a.compare(b) < 0;
    }

private:
    static T const* emptyText() noexcept;
    static unsigned rawLength(T const* text) noexcept;
    bool isInside(T const* text) const noexcept;
    // Ensures a body of our own with room for `length` characters, keeping the current text.
    void makeWritable(unsigned length);
    void setLength(unsigned length) noexcept;

    ImplPtr impl_;
};

template <class T>
template <class Container>
LightweightString<T> LightweightString<T>::join(Container const& parts, T const* separator) {
    LightweightString result;
    bool first = true;
    for (auto const& part : parts) {
        if (!first)
            result.append(separator);
        result.append(part);
        first = false;
    }
    return result;
}

extern template class LightweightString<char>;
extern template class LightweightString<wchar_t>;

template <class T>
struct std::hash<LightweightString<T>> {
    std::size_t operator()(LightweightString<T> const& s) const noexcept {
        return std::hash<std::basic_string_view<T>>()(s.view());
    }
};
