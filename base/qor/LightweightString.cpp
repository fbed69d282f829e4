#include "qor/LightweightString.h"

#include "qor/CharCase.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

namespace {

char foldCase(char c) noexcept {
    return Qor::asciiToLower(c);
}
wchar_t foldCase(wchar_t c) noexcept {
    return Qor::wideToLower(c);
}

template <class T>
int compareChars(T a, T b) noexcept {
    using U = std::make_unsigned_t<T>;
    return U(a) < U(b) ? -1 : (U(a) > U(b) ? 1 : 0);
}

template <class T>
bool sameChars(T const* a, T const* b, unsigned count, bool caseSensitive) noexcept {
    for (unsigned i = 0; i < count; ++i) {
        T x = caseSensitive ? a[i] : foldCase(a[i]);
        T y = caseSensitive ? b[i] : foldCase(b[i]);
        if (x != y)
            return false;
    }
    return true;
}

// Orders by code unit after `fold`, then by length.
template <class T, class Fold>
int compareFolded(LightweightString<T> const& a, LightweightString<T> const& b, Fold fold) {
    unsigned n = std::min(a.size(), b.size());
    for (unsigned i = 0; i < n; ++i)
        if (int d = compareChars(fold(a[i]), fold(b[i])))
            return d;
    return a.size() < b.size() ? -1 : (a.size() > b.size() ? 1 : 0);
}

} // namespace

template <class T>
T const* LightweightString<T>::emptyText() noexcept {
    static T const empty[1] = {T(0)};
    return empty;
}

template <class T>
unsigned LightweightString<T>::rawLength(T const* text) noexcept {
    return text ? unsigned(std::char_traits<T>::length(text)) : 0;
}

template <class T>
typename LightweightString<T>::ImplPtr LightweightString<T>::createImpl(unsigned length,
                                                                        bool roundUp) {
    if (length >= 0x7fffffffu)
        throw std::length_error("LightweightString: text too long");
    unsigned capacity = roundUp ? std::bit_ceil(length + 1) : length + 1;
    void* block = OS()->allocator().allocate(sizeof(Impl) + std::size_t(capacity) * sizeof(T));
    Impl* impl = new (block) Impl{nullptr, length, capacity, 0};
    impl->chars = reinterpret_cast<T*>(impl + 1);
    impl->chars[length] = T(0);
    return ImplPtr(impl);
}

template <class T>
LightweightString<T>::LightweightString(T const* text) : LightweightString(text, rawLength(text)) {}

template <class T>
LightweightString<T>::LightweightString(T const* text, unsigned count) {
    if (count == 0)
        return;
    impl_ = createImpl(count, false);
    std::char_traits<T>::copy(impl_->chars, text, count);
}

template <class T>
LightweightString<T>::LightweightString(std::basic_string_view<T> text)
    : LightweightString(text.data(), unsigned(text.size())) {}

template <class T>
LightweightString<T>::LightweightString(unsigned count, T fill) {
    if (count == 0)
        return;
    impl_ = createImpl(count, false);
    std::char_traits<T>::assign(impl_->chars, count, fill);
}

template <class T>
bool LightweightString<T>::isInside(T const* text) const noexcept {
    if (!impl_ || text == nullptr)
        return false;
    std::less_equal<T const*> le;
    return le(impl_->chars, text) && le(text, impl_->chars + impl_->capacity);
}

template <class T>
void LightweightString<T>::makeWritable(unsigned length) {
    if (impl_ && impl_.useCount() == 1 && impl_->capacity > length)
        return;
    ImplPtr fresh = createImpl(length, true);
    unsigned keep = std::min(size(), length);
    std::char_traits<T>::copy(fresh->chars, c_str(), keep);
    fresh->length = keep;
    fresh->chars[keep] = T(0);
    impl_ = std::move(fresh);
}

template <class T>
void LightweightString<T>::setLength(unsigned length) noexcept {
    impl_->length = length;
    impl_->chars[length] = T(0);
}

template <class T>
LightweightString<T>& LightweightString<T>::assign(T const* text) {
    return assign(text, rawLength(text));
}

template <class T>
LightweightString<T>& LightweightString<T>::assign(T const* text, unsigned count) {
    *this = LightweightString(text, count);
    return *this;
}

template <class T>
LightweightString<T>& LightweightString<T>::append(T const* text, unsigned count) {
    if (count == 0)
        return *this;
    if (isInside(text))
        return append(LightweightString(text, count));
    unsigned old = size();
    makeWritable(old + count);
    std::char_traits<T>::copy(impl_->chars + old, text, count);
    setLength(old + count);
    return *this;
}

template <class T>
LightweightString<T>& LightweightString<T>::append(T const* text) {
    return append(text, rawLength(text));
}

template <class T>
LightweightString<T>& LightweightString<T>::append(LightweightString const& other) {
    if (empty())
        return *this = other;
    return append(other.c_str(), other.size());
}

template <class T>
LightweightString<T>& LightweightString<T>::push_back(T c) {
    return append(&c, 1);
}

template <class T>
LightweightString<T>& LightweightString<T>::insert(unsigned index, T const* text, unsigned count) {
    if (count == 0)
        return *this;
    if (isInside(text))
        return insert(index, LightweightString(text, count));
    unsigned old = size();
    index = std::min(index, old);
    makeWritable(old + count);
    std::char_traits<T>::move(impl_->chars + index + count, impl_->chars + index, old - index);
    std::char_traits<T>::copy(impl_->chars + index, text, count);
    setLength(old + count);
    return *this;
}

template <class T>
LightweightString<T>& LightweightString<T>::insert(unsigned index, LightweightString const& text) {
    return insert(index, text.c_str(), text.size());
}

template <class T>
LightweightString<T>& LightweightString<T>::erase(unsigned first, unsigned count) {
    unsigned old = size();
    if (first >= old || count == 0)
        return *this;
    count = std::min(count, old - first);
    if (count == old)
        return *this = LightweightString();
    makeWritable(old);
    std::char_traits<T>::move(impl_->chars + first, impl_->chars + first + count,
                              old - first - count);
    setLength(old - count);
    return *this;
}

template <class T>
LightweightString<T>& LightweightString<T>::resize(unsigned newLength, T fill) {
    unsigned old = size();
    if (newLength == old)
        return *this;
    if (newLength == 0)
        return *this = LightweightString();
    makeWritable(newLength);
    if (newLength > old)
        std::char_traits<T>::assign(impl_->chars + old, newLength - old, fill);
    setLength(newLength);
    return *this;
}

template <class T>
LightweightString<T>& LightweightString<T>::resizeFor(unsigned count) {
    if (count > 0)
        makeWritable(std::max(count, size()));
    return *this;
}

template <class T>
unsigned LightweightString<T>::substitute(T const* from, T const* to) {
    unsigned fromLength = rawLength(from);
    if (fromLength == 0)
        return 0;
    unsigned toLength = rawLength(to);
    LightweightString result;
    unsigned replaced = 0, start = 0;
    for (unsigned at = find(from); at != npos; at = find(from, at + fromLength)) {
        result.append(c_str() + start, at - start);
        result.append(to, toLength);
        start = at + fromLength;
        ++replaced;
    }
    if (replaced > 0) {
        result.append(c_str() + start, size() - start);
        *this = std::move(result);
    }
    return replaced;
}

template <class T>
unsigned LightweightString<T>::substitute(T from, T to) {
    unsigned replaced = 0;
    for (unsigned i = find(from); i != npos; i = find(from, i + 1)) {
        setChar(i, to);
        ++replaced;
    }
    return replaced;
}

template <class T>
void LightweightString<T>::setChar(unsigned index, T c) {
    if (index >= size())
        return;
    makeWritable(size());
    impl_->chars[index] = c;
}

template <class T>
LightweightString<T> LightweightString<T>::substr(unsigned first, unsigned count) const {
    unsigned length = size();
    if (first >= length)
        return LightweightString();
    count = std::min(count, length - first);
    if (first == 0 && count == length)
        return *this;
    return LightweightString(c_str() + first, count);
}

template <class T>
bool LightweightString<T>::startsWith(T const* prefix, bool caseSensitive) const {
    unsigned n = rawLength(prefix);
    return n <= size() && sameChars(c_str(), prefix, n, caseSensitive);
}

template <class T>
bool LightweightString<T>::endsWith(T const* suffix, bool caseSensitive) const {
    unsigned n = rawLength(suffix);
    return n <= size() && sameChars(c_str() + size() - n, suffix, n, caseSensitive);
}

template <class T>
unsigned LightweightString<T>::find(T c, unsigned from) const {
    auto at = view().find(c, from);
    return at == std::basic_string_view<T>::npos ? npos : unsigned(at);
}

template <class T>
unsigned LightweightString<T>::find(T const* text, unsigned from) const {
    if (rawLength(text) == 0)
        return npos;
    auto at = view().find(text, from);
    return at == std::basic_string_view<T>::npos ? npos : unsigned(at);
}

template <class T>
unsigned LightweightString<T>::rfind(T c, unsigned from) const {
    auto at = view().rfind(c, from == npos ? std::basic_string_view<T>::npos : from);
    return at == std::basic_string_view<T>::npos ? npos : unsigned(at);
}

template <class T>
unsigned LightweightString<T>::rfind(T const* text, unsigned from) const {
    if (rawLength(text) == 0)
        return npos;
    auto at = view().rfind(text, from == npos ? std::basic_string_view<T>::npos : from);
    return at == std::basic_string_view<T>::npos ? npos : unsigned(at);
}

template <class T>
int LightweightString<T>::compare(LightweightString const& other) const {
    return compareFolded(*this, other, [](T c) { return c; });
}

template <class T>
int LightweightString<T>::compareCaseInsensitive(LightweightString const& other) const {
    return compareFolded(*this, other, [](T c) { return foldCase(c); });
}

template <class T>
int LightweightString<T>::compare(T const* a, T const* b) {
    a = a ? a : emptyText();
    b = b ? b : emptyText();
    for (;; ++a, ++b) {
        if (int d = compareChars(*a, *b))
            return d;
        if (*a == T(0))
            return 0;
    }
}

template class LightweightString<char>;
template class LightweightString<wchar_t>;
