#pragma once

// A unique identity of three unsigned ints with a text form "a.b.c". IdStamp() makes a fresh
// stamp, unique over the process; IdStamp(0, 0, 0) is the null stamp. A stamp outlives the object
// that carries it: holders compare the stamp they kept with the registry of live objects.

#include "qor/LightweightString.h"

class IdStamp {
public:
    IdStamp();
    IdStamp(unsigned a, unsigned b, unsigned c) : a_(a), b_(b), c_(c) {}
    // Parses the text form; anything else gives the null stamp.
    explicit IdStamp(char const* text);

    static IdStamp null() { return IdStamp(0, 0, 0); }

    LightweightString<char> asString() const;
    bool valid() const { return a_ != 0 || b_ != 0 || c_ != 0; }
    void invalidate() { a_ = b_ = c_ = 0; }

    bool operator==(IdStamp const& o) const { return a_ == o.a_ && b_ == o.b_ && c_ == o.c_; }
    bool operator!=(IdStamp const& o) const { return !(*this == o); }
    bool operator<(IdStamp const& o) const;

private:
    unsigned a_, b_, c_;
};

// The live objects and their stamps. An object registers on construction and leaves on
// destruction; isLive never touches the object itself, so it is safe on a dangling pointer.
namespace LiveObjects {
void add(void const* object, IdStamp const& stamp);
void remove(void const* object);
bool isLive(void const* object);
bool isLive(void const* object, IdStamp const& stamp);
// Counts removals. While it stands still, whatever was live is live still: a caller that noted it
// before running foreign code may skip the lookup afterwards.
unsigned long long removals();
} // namespace LiveObjects
