#pragma once

// A shared growable array: copies refer to the same items, so a list handed to a widget and kept by
// its owner stays one list. The array lives under a Qor::Ptr with an external count.

#include "qor/Ptr.h"

#include <algorithm>
#include <vector>

template <class T>
class LightweightVector {
public:
    using Items = std::vector<T>;
    using iterator = typename Items::iterator;
    using const_iterator = typename Items::const_iterator;

    LightweightVector() : items_(new Items) {}

    unsigned size() const { return unsigned(items_->size()); }
    bool empty() const { return items_->empty(); }
    T& operator[](unsigned index) { return (*items_)[index]; }
    T const& operator[](unsigned index) const { return (*items_)[index]; }
    iterator begin() { return items_->begin(); }
    iterator end() { return items_->end(); }
    const_iterator begin() const { return items_->begin(); }
    const_iterator end() const { return items_->end(); }

    void push_back(T const& value) { items_->push_back(value); }
    void insert(unsigned index, T const& value) {
        items_->insert(items_->begin() + std::min<std::size_t>(index, items_->size()), value);
    }
    iterator erase(iterator at) { return items_->erase(at); }
    void erase(unsigned index) {
        if (index < size())
            items_->erase(items_->begin() + index);
    }
    void clear() { items_->clear(); }
    void reserve(unsigned count) { items_->reserve(count); }

    // The shared std::vector itself, for algorithms (sorting, merging).
    Items& items() { return *items_; }
    Items const& items() const { return *items_; }
    // A separate array holding the same items.
    LightweightVector copy() const {
        LightweightVector fresh;
        *fresh.items_ = *items_;
        return fresh;
    }
    bool sharesWith(LightweightVector const& o) const { return items_ == o.items_; }

private:
    Qor::Ptr<Items, Qor::DefaultDtorTraits, Qor::ExternalRefCountTraits> items_;
};
