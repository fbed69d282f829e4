#pragma once

// A map that forgets what has not been used for a while, for caches of measurements and shaped
// text. Entries live in two generations: lookups hit the young one first and promote from the old
// one; when the young one is full it becomes the old one and the previous old one is dropped. So
// at most 2 * capacity entries are held, recently used ones survive, and a hit costs one lookup.
// Not locked: the owner serialises access.

#include <cstddef>
#include <unordered_map>
#include <utility>

template <class Key, class Value, class Hash = std::hash<Key>>
class BoundedCache {
public:
    explicit BoundedCache(std::size_t capacity) : capacity_(capacity) {}

    // The cached value, or null; a hit in the old generation moves the entry to the young one.
    Value const* find(Key const& key) {
        auto young = young_.find(key);
        if (young != young_.end())
            return &young->second;
        auto old = old_.find(key);
        if (old == old_.end())
            return nullptr;
        Value value = std::move(old->second);
        old_.erase(old);
        return &insert(key, std::move(value));
    }

    Value const& insert(Key const& key, Value value) {
        if (young_.size() >= capacity_) {
            old_ = std::move(young_);
            young_.clear();
        }
        return young_.insert_or_assign(key, std::move(value)).first->second;
    }

    std::size_t size() const { return young_.size() + old_.size(); }
    void clear() {
        young_.clear();
        old_.clear();
    }

private:
    std::size_t capacity_;
    std::unordered_map<Key, Value, Hash> young_;
    std::unordered_map<Key, Value, Hash> old_;
};
