#pragma once

// Shapes made of rectangles, in the y-up coordinates of the canvas they are for. A window or a
// canvas can be cut to one (round corners, a tip's arrow), and picking honours the cut.

#include "qor/Box.h"
#include "qor/Ptr.h"

#include <vector>

class iHostImage;

class iRegion : public iObject {
public:
    virtual bool contains(XY<int> const& p) const = 0;
    virtual Box bounds() const = 0;
    virtual bool isEmpty() const = 0;
    // Non-overlapping boxes that together make the region.
    virtual std::vector<Box> boxes() const = 0;
    virtual Qor::Ptr<iRegion> translated(int dx, int dy) const = 0;
};

namespace Glib {

class RegionBuilder {
public:
    explicit RegionBuilder(unsigned long expectedRects = 0);
    ~RegionBuilder();
    RegionBuilder(RegionBuilder const&) = delete;
    RegionBuilder& operator=(RegionBuilder const&) = delete;

    // Adds the box from (x1, y1) to (x2, y2); an empty box adds nothing.
    void appendRect(int x1, int y1, int x2, int y2);
    void appendRect(Box const& box) { appendRect(box.x1, box.y1, box.x2, box.y2); }
    Qor::Ptr<iRegion> create() const;

private:
    std::vector<Box> boxes_;
};

} // namespace Glib

bool region_eq(Qor::Ptr<iRegion> const& a, Qor::Ptr<iRegion> const& b);
Qor::Ptr<iRegion> region_intersect(Qor::Ptr<iRegion> const& a, Qor::Ptr<iRegion> const& b);
Qor::Ptr<iRegion> region_union(Qor::Ptr<iRegion> const& a, Qor::Ptr<iRegion> const& b);
Qor::Ptr<iRegion> region_subtract(Qor::Ptr<iRegion> const& a, Qor::Ptr<iRegion> const& b);

// The pixels of the image whose alpha is at least half.
Qor::Ptr<iRegion> glib_buildRegionFromImage(Qor::Ptr<iHostImage> const& image);

enum eCurvedRegionType {
    // Corners cut in quarter circles of the panel radius.
    CurvedRegionRounded = 1,
    // Corners cut on the diagonal.
    CurvedRegionChamfered = 2,
};

// A panel's outline: the size's box with the corners in the mask (1 top left, 2 top right, 4
// bottom left, 8 bottom right; 15 all) cut away. At most 9 pixels are cut on each side of a
// corner, so that a hand-drawn corner can follow the outline pixel by pixel.
Qor::Ptr<iRegion> makeCurvedRegion(XY<int> const& size, unsigned corners, eCurvedRegionType type);
// The pixels cut from row `row` (0 at the edge) of one corner of a curved region.
int curvedRegionInset(int row, eCurvedRegionType type);
