#pragma once

// A growable array with the operations the widgets use by name. Indexes are unsigned; an index out
// of range makes a remover do nothing rather than fail.

#include <algorithm>
#include <initializer_list>
#include <vector>

template <class T>
class Vector {
public:
    Vector() = default;
    Vector(std::initializer_list<T> items) : items_(items) {}

    unsigned size() const { return unsigned(items_.size()); }
    bool empty() const { return items_.empty(); }
    T& operator[](unsigned index) { return items_[index]; }
    T const& operator[](unsigned index) const { return items_[index]; }
    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

    void push_back(T const& value) { items_.push_back(value); }
    // Appends and answers the new item's index.
    unsigned add(T const& value) {
        items_.push_back(value);
        return size() - 1;
    }
    // Inserts before `index`; an index past the end appends.
    void insert(T const& value, unsigned index) {
        items_.insert(items_.begin() + std::min(index, size()), value);
    }
    void remove(unsigned first, unsigned count) {
        if (first >= size())
            return;
        count = std::min(count, size() - first);
        items_.erase(items_.begin() + first, items_.begin() + first + count);
    }
    void removeIdx(unsigned index) { remove(index, 1); }
    // Removes the first item equal to `value`; answers whether there was one.
    bool removeItem(T const& value) {
        auto it = std::find(items_.begin(), items_.end(), value);
        if (it == items_.end())
            return false;
        items_.erase(it);
        return true;
    }
    // The index of the first item equal to `value`, or size() when there is none.
    unsigned indexOf(T const& value) const {
        return unsigned(std::find(items_.begin(), items_.end(), value) - items_.begin());
    }
    // Makes room for `count` items without changing the contents.
    void resizeFor(unsigned count) { items_.reserve(count); }
    void resize(unsigned count) { items_.resize(count); }
    void clear() { items_.clear(); }

    bool operator==(Vector const& o) const { return items_ == o.items_; }

private:
    std::vector<T> items_;
};
