#include "glib/Path.h"

#include "glib/Image.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <numbers>

namespace Glib {

void Path::moveTo(double x, double y) {
    ops_.push_back(Op{Op::Move, x, y, 0, 0, 0});
}

void Path::lineTo(double x, double y) {
    ops_.push_back(Op{Op::Line, x, y, 0, 0, 0});
}

void Path::closePath() {
    ops_.push_back(Op{Op::Close, 0, 0, 0, 0, 0});
}

void Path::addRect(double x, double y, double width, double height) {
    moveTo(x, y);
    lineTo(x + width, y);
    lineTo(x + width, y + height);
    lineTo(x, y + height);
    closePath();
}

void Path::addRoundedRect(double x, double y, double width, double height, double radius,
                          unsigned corners) {
    double r = std::clamp(radius, 0.0, std::max(0.0, std::min(width, height) / 2));
    auto rad = [&](unsigned corner) { return (corners & corner) != 0 ? r : 0.0; };
    double bl = rad(BottomLeft), br = rad(BottomRight), tr = rad(TopRight), tl = rad(TopLeft);
    // Counter-clockwise from the bottom edge; a square corner is an arc of radius 0.
    moveTo(x + bl, y);
    addArc(x + width - br, y + br, br, 270, 360);
    addArc(x + width - tr, y + height - tr, tr, 0, 90);
    addArc(x + tl, y + height - tl, tl, 90, 180);
    addArc(x + bl, y + bl, bl, 180, 270);
    closePath();
}

void Path::addArc(double cx, double cy, double radius, double startDeg, double endDeg) {
    double const toRadians = std::numbers::pi / 180;
    ops_.push_back(Op{Op::Arc, cx, cy, radius, startDeg * toRadians, endDeg * toRadians});
}

void Path::replay(cairo_t* cr) const {
    cairo_new_path(cr);
    for (Op const& op : ops_) {
        switch (op.kind) {
        case Op::Move:
            cairo_move_to(cr, op.x, op.y);
            break;
        case Op::Line:
            cairo_line_to(cr, op.x, op.y);
            break;
        case Op::Close:
            cairo_close_path(cr);
            break;
        case Op::Arc:
            if (op.radius > 0)
                cairo_arc(cr, op.x, op.y, op.radius, op.from, op.to);
            else
                cairo_line_to(cr, op.x, op.y);
            break;
        }
    }
}

Qor::Ptr<iRegion> Path::toRegion() const {
    cairo_surface_t* scratch = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
    cairo_t* measure = cairo_create(scratch);
    replay(measure);
    double x1, y1, x2, y2;
    cairo_fill_extents(measure, &x1, &y1, &x2, &y2);
    cairo_destroy(measure);
    cairo_surface_destroy(scratch);
    Box extent(int(std::floor(x1)), int(std::floor(y1)), int(std::ceil(x2)), int(std::ceil(y2)));
    if (extent.isEmpty())
        return RegionBuilder().create();

    // Rasterised without antialiasing, so a pixel is in when its centre is.
    Qor::Ptr<iHostImage> mask = ImageServices::createImage(extent.width(), extent.height());
    cairo_t* cr = cairo_create(mask->surface());
    cairo_matrix_t flip;
    cairo_matrix_init(&flip, 1, 0, 0, -1, -extent.x1, extent.y2);
    cairo_set_matrix(cr, &flip);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    replay(cr);
    cairo_fill(cr);
    cairo_destroy(cr);
    return glib_buildRegionFromImage(mask)->translated(extent.x1, extent.y1);
}

} // namespace Glib
