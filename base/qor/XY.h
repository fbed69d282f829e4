#pragma once

// A point or a size. The y axis of a widget runs upward from its bottom-left corner.

template <class T>
class XY {
public:
    XY() = default;
    XY(T x_, T y_) : x(x_), y(y_) {}
    XY(XY const&) = default;
    XY& operator=(XY const&) = default;
    virtual ~XY() = default;

    bool operator==(XY const& o) const { return x == o.x && y == o.y; }
    bool operator!=(XY const& o) const { return !(*this == o); }
    // Orders x first, then y, so that a point can key a map.
    bool operator<(XY const& o) const { return x < o.x || (x == o.x && y < o.y); }
    XY operator+(XY const& o) const { return XY(x + o.x, y + o.y); }
    XY operator-(XY const& o) const { return XY(x - o.x, y - o.y); }

    T x = T();
    T y = T();
};
