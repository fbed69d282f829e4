#pragma once

// A range of numbers between a start and an end. An Unordered range keeps its ends as given, so a
// selection remembers where it was anchored and which way it grew; an Ordered one puts the smaller
// end first.

#include <algorithm>
#include <utility>

enum NumRangeOrder { Unordered = 0, Ordered = 1 };

template <class T, NumRangeOrder Order = Ordered>
class NumRange {
public:
    NumRange() = default;
    NumRange(T start, T end) : start_(start), end_(end) { normalise(); }

    T start() const { return start_; }
    T end() const { return end_; }
    void setStart(T start) {
        start_ = start;
        normalise();
    }
    void setEnd(T end) {
        end_ = end;
        normalise();
    }

    T lower() const { return std::min(start_, end_); }
    T upper() const { return std::max(start_, end_); }
    // How many values lower() <= v < upper() the range spans, whichever way it runs.
    T size() const { return upper() - lower(); }
    bool empty() const { return start_ == end_; }
    bool contains(T value) const { return value >= lower() && value < upper(); }

    bool operator==(NumRange const&) const = default;

private:
    void normalise() {
        if (Order == Ordered && end_ < start_)
            std::swap(start_, end_);
    }

    T start_ = T();
    T end_ = T();
};
