#pragma once

// A rectangle of four values: left x1, bottom y1, right x2, top y2. With BottomUpTraits the y axis
// runs upward, so "top" is the larger y. A box holds the points x1 <= x < x2, y1 <= y < y2.

#include "qor/XY.h"

#include <algorithm>

namespace Qor {

struct BottomUpTraits {};

template <class T, class Traits = BottomUpTraits>
class Box {
public:
    Box() = default;
    Box(T left, T bottom, T right, T top) : x1(left), y1(bottom), x2(right), y2(top) {}

    T width() const { return x2 - x1; }
    T height() const { return y2 - y1; }
    bool isEmpty() const { return !(x2 > x1 && y2 > y1); }
    bool contains(T x, T y) const { return x >= x1 && x < x2 && y >= y1 && y < y2; }
    bool contains(XY<T> const& p) const { return contains(p.x, p.y); }
    bool contains(Box const& o) const {
        return o.x1 >= x1 && o.x2 <= x2 && o.y1 >= y1 && o.y2 <= y2;
    }
    // Smaller on every side by `by` (larger with a negative value).
    Box inset(T by) const { return Box(x1 + by, y1 + by, x2 - by, y2 - by); }
    Box translated(T dx, T dy) const { return Box(x1 + dx, y1 + dy, x2 + dx, y2 + dy); }
    // The smallest box holding both; an empty box adds nothing.
    Box unite(Box const& o) const {
        if (isEmpty())
            return o;
        if (o.isEmpty())
            return *this;
        return Box(std::min(x1, o.x1), std::min(y1, o.y1), std::max(x2, o.x2), std::max(y2, o.y2));
    }
    // The common part; empty (all zero) when they do not meet.
    Box intersect(Box const& o) const {
        Box r(std::max(x1, o.x1), std::max(y1, o.y1), std::min(x2, o.x2), std::min(y2, o.y2));
        return r.isEmpty() ? Box() : r;
    }
    bool intersects(Box const& o) const { return !intersect(o).isEmpty(); }
    XY<T> bottomLeft() const { return XY<T>(x1, y1); }
    XY<T> topRight() const { return XY<T>(x2, y2); }

    bool operator==(Box const& o) const {
        return x1 == o.x1 && y1 == o.y1 && x2 == o.x2 && y2 == o.y2;
    }
    bool operator!=(Box const& o) const { return !(*this == o); }

    T x1 = T();
    T y1 = T();
    T x2 = T();
    T y2 = T();
};

} // namespace Qor

using Box = Qor::Box<int, Qor::BottomUpTraits>;

// The box spanned by two corners, in any order.
template <class T>
Qor::Box<T> makeBox(XY<T> const& a, XY<T> const& b) {
    return Qor::Box<T>(std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x),
                       std::max(a.y, b.y));
}

template <class T>
XY<T> getDimensions(Qor::Box<T> const& box) {
    return XY<T>(box.width(), box.height());
}

// Edges included: a point on the border of the box is in it.
inline bool point_in_box(double x, double y, Qor::Box<double> const& box) {
    return x >= box.x1 && x <= box.x2 && y >= box.y1 && y <= box.y2;
}
