#include "glib/Region.h"

#include "glib/Image.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace {

// A set of rectangles kept by cairo. Cairo's rows run downward, but a set of boxes doesn't care
// which way y runs, so our y-up values are stored as they are.
class CairoRegion : public iRegion {
public:
    explicit CairoRegion(cairo_region_t* region) : region_(region) {}
    ~CairoRegion() override { cairo_region_destroy(region_); }
    CairoRegion(CairoRegion const&) = delete;
    CairoRegion& operator=(CairoRegion const&) = delete;

    bool contains(XY<int> const& p) const override {
        return cairo_region_contains_point(region_, p.x, p.y);
    }
    Box bounds() const override {
        cairo_rectangle_int_t r;
        cairo_region_get_extents(region_, &r);
        return isEmpty() ? Box() : Box(r.x, r.y, r.x + r.width, r.y + r.height);
    }
    bool isEmpty() const override { return cairo_region_is_empty(region_); }
    std::vector<Box> boxes() const override {
        std::vector<Box> out;
        int n = cairo_region_num_rectangles(region_);
        out.reserve(std::size_t(n));
        for (int i = 0; i < n; ++i) {
            cairo_rectangle_int_t r;
            cairo_region_get_rectangle(region_, i, &r);
            out.emplace_back(r.x, r.y, r.x + r.width, r.y + r.height);
        }
        return out;
    }
    Qor::Ptr<iRegion> translated(int dx, int dy) const override {
        cairo_region_t* copy = cairo_region_copy(region_);
        cairo_region_translate(copy, dx, dy);
        return Qor::Ptr<iRegion>(new CairoRegion(copy));
    }

    cairo_region_t* get() const { return region_; }

private:
    cairo_region_t* region_;
};

// The cairo form of any region; a null pointer or a foreign region is copied box by box.
cairo_region_t* copyOf(Qor::Ptr<iRegion> const& region) {
    if (!region)
        return cairo_region_create();
    if (auto const* native = dynamic_cast<CairoRegion const*>(region.get()))
        return cairo_region_copy(native->get());
    cairo_region_t* out = cairo_region_create();
    for (Box const& b : region->boxes()) {
        cairo_rectangle_int_t r{b.x1, b.y1, b.width(), b.height()};
        cairo_region_union_rectangle(out, &r);
    }
    return out;
}

using RegionOp = cairo_status_t (*)(cairo_region_t*, cairo_region_t const*);

Qor::Ptr<iRegion> combine(Qor::Ptr<iRegion> const& a, Qor::Ptr<iRegion> const& b, RegionOp op) {
    cairo_region_t* result = copyOf(a);
    cairo_region_t* other = copyOf(b);
    op(result, other);
    cairo_region_destroy(other);
    return Qor::Ptr<iRegion>(new CairoRegion(result));
}

// Rows of a quarter circle of this radius, sampled at pixel centres.
constexpr int kCornerRadius = 9;
constexpr int kChamferSize = 5;

int roundedInset(int row) {
    double const r = kCornerRadius;
    double dy = r - (row + 0.5);
    if (dy <= 0)
        return 0;
    // Pixels whose centre lies left of the circle's edge on this row are cut.
    double edge = r - std::sqrt(r * r - dy * dy);
    return std::max(0, int(std::ceil(edge - 0.5)));
}

} // namespace

namespace Glib {

RegionBuilder::RegionBuilder(unsigned long expectedRects) {
    boxes_.reserve(expectedRects);
}

RegionBuilder::~RegionBuilder() = default;

void RegionBuilder::appendRect(int x1, int y1, int x2, int y2) {
    Box b(x1, y1, x2, y2);
    if (!b.isEmpty())
        boxes_.push_back(b);
}

Qor::Ptr<iRegion> RegionBuilder::create() const {
    std::vector<cairo_rectangle_int_t> rects;
    rects.reserve(boxes_.size());
    for (Box const& b : boxes_)
        rects.push_back(cairo_rectangle_int_t{b.x1, b.y1, b.width(), b.height()});
    cairo_region_t* region = cairo_region_create_rectangles(rects.data(), int(rects.size()));
    return Qor::Ptr<iRegion>(new CairoRegion(region));
}

} // namespace Glib

bool region_eq(Qor::Ptr<iRegion> const& a, Qor::Ptr<iRegion> const& b) {
    cairo_region_t* ca = copyOf(a);
    cairo_region_t* cb = copyOf(b);
    bool equal = cairo_region_equal(ca, cb);
    cairo_region_destroy(ca);
    cairo_region_destroy(cb);
    return equal;
}

Qor::Ptr<iRegion> region_intersect(Qor::Ptr<iRegion> const& a, Qor::Ptr<iRegion> const& b) {
    return combine(a, b, cairo_region_intersect);
}

Qor::Ptr<iRegion> region_union(Qor::Ptr<iRegion> const& a, Qor::Ptr<iRegion> const& b) {
    return combine(a, b, cairo_region_union);
}

Qor::Ptr<iRegion> region_subtract(Qor::Ptr<iRegion> const& a, Qor::Ptr<iRegion> const& b) {
    return combine(a, b, cairo_region_subtract);
}

Qor::Ptr<iRegion> glib_buildRegionFromImage(Qor::Ptr<iHostImage> const& image) {
    Glib::RegionBuilder builder;
    if (!image)
        return builder.create();
    int const w = image->width();
    for (int y = 0; y < image->height(); ++y) {
        int runStart = -1;
        for (int x = 0; x <= w; ++x) {
            bool opaque = x < w && image->pixel(x, y).a >= 0.5f;
            if (opaque && runStart < 0)
                runStart = x;
            if (!opaque && runStart >= 0) {
                builder.appendRect(runStart, y, x, y + 1);
                runStart = -1;
            }
        }
    }
    return builder.create();
}

int curvedRegionInset(int row, eCurvedRegionType type) {
    if (row < 0)
        return 0;
    if (type == CurvedRegionChamfered)
        return std::max(0, kChamferSize - row);
    return roundedInset(row);
}

Qor::Ptr<iRegion> makeCurvedRegion(XY<int> const& size, unsigned corners, eCurvedRegionType type) {
    enum : unsigned { TopLeft = 1, TopRight = 2, BottomLeft = 4, BottomRight = 8 };
    auto cut = [&](unsigned corner, int row) {
        return (corners & corner) != 0 ? curvedRegionInset(row, type) : 0;
    };
    Glib::RegionBuilder builder(static_cast<unsigned long>(std::max(size.y, 0)));
    for (int y = 0; y < size.y; ++y) {
        int fromTop = size.y - 1 - y;
        int left = std::max(cut(TopLeft, fromTop), cut(BottomLeft, y));
        int right = std::max(cut(TopRight, fromTop), cut(BottomRight, y));
        // A panel narrower than two corners keeps at least its middle pixel.
        int most = std::max(0, (size.x - 1) / 2);
        left = std::min(left, most);
        right = std::min(right, most);
        builder.appendRect(left, y, size.x - right, y + 1);
    }
    return builder.create();
}
