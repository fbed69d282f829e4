#pragma once

// An outline recorded as moves, lines, arcs and closes, in y-up canvas coordinates, to be filled,
// stroked or turned into a region later. The path calls build one; the rounded-box helpers too.

#include "glib/Region.h"
#include "qor/Ptr.h"

#include <vector>

typedef struct _cairo cairo_t;

namespace Glib {

class Path {
public:
    enum Corner : unsigned { TopLeft = 1, TopRight = 2, BottomLeft = 4, BottomRight = 8, All = 15 };

    void clear() { ops_.clear(); }
    bool isEmpty() const { return ops_.empty(); }

    void moveTo(double x, double y);
    // From the current point; from (x, y) itself when there is none.
    void lineTo(double x, double y);
    void closePath();
    // A closed box with its bottom-left corner at (x, y).
    void addRect(double x, double y, double width, double height);
    // A closed box whose corners in the mask are quarter circles of `radius` (cut to half the
    // shorter side).
    void addRoundedRect(double x, double y, double width, double height, double radius,
                        unsigned corners = All);
    // An arc counter-clockwise from startDeg to endDeg (degrees from three o'clock), joined to
    // the current point by a line.
    void addArc(double cx, double cy, double radius, double startDeg, double endDeg);

    // Lays the path into the context in place of its current path; the context's user space is
    // taken to be the path's coordinates.
    void replay(cairo_t* cr) const;
    // The pixels whose centres lie inside the path (non-zero winding).
    Qor::Ptr<iRegion> toRegion() const;

private:
    struct Op {
        enum Kind { Move, Line, Close, Arc };
        Kind kind;
        double x;
        double y;
        double radius;
        double from;
        double to;
    };

    std::vector<Op> ops_;
};

} // namespace Glib
