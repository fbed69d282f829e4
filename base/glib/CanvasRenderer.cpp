#include "glib/CanvasRenderer.h"

#include "glib/Canvas.h"
#include "glib/WindowSurface.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <numbers>

// The context is kept between draws and set up again only when the window's store or the
// geometry of any canvas has changed since it was made.
struct CanvasRenderer::State {
    cairo_t* cr = nullptr;
    cairo_surface_t* target = nullptr;
    unsigned long storeGeneration = 0;
    unsigned long geometryGeneration = 0;
    // The drawable part of the canvas, in window coordinates.
    Box windowClip;
    XY<int> offset;

    ~State() { release(); }
    void release() {
        if (cr != nullptr)
            cairo_destroy(cr);
        cr = nullptr;
        target = nullptr;
    }
};

namespace {

void setSource(cairo_t* cr, NormalisedRGB const& c) {
    cairo_set_source_rgba(cr, c.r, c.g, c.b, c.a);
}

double radians(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}

// The pixels of a horizontal or vertical line: the run from one end to the other, both
// included, `width` pixels across; an even width's extra pixel goes above or to the right.
Box straightLinePixels(XY<int> const& from, XY<int> const& to, int width) {
    Box run = makeBox(from, to);
    run.x2 += 1;
    run.y2 += 1;
    int below = (width - 1) / 2;
    if (from.y == to.y) {
        run.y1 -= below;
        run.y2 = run.y1 + width;
    }
    if (from.x == to.x) {
        run.x1 -= below;
        run.x2 = run.x1 + width;
    }
    return run;
}

} // namespace

// A canvas cut to a shape (a curved panel) draws only inside it, and so do the canvases within it.
void CanvasRenderer::clipToShapes(cairo_t* cr, int windowHeight) const {
    for (Canvas const* c = canvas_; c != nullptr && !c->isRoot(); c = c->getParent()) {
        Qor::Ptr<iRegion> const& shape = c->getShape();
        if (!shape)
            continue;
        XY<int> at = c->windowOffset();
        for (Box const& b : shape->boxes())
            cairo_rectangle(cr, b.x1 + at.x, windowHeight - (b.y2 + at.y), b.width(), b.height());
        cairo_clip(cr);
        if (c->isTopLevel())
            break;
    }
}

CanvasRenderer::CanvasRenderer(Canvas* canvas, Box const& area)
    : canvas_(canvas), area_(area), state_(std::make_unique<State>()) {}

CanvasRenderer::~CanvasRenderer() = default;

cairo_t* CanvasRenderer::context() {
    WindowSurface* store = canvas_ != nullptr ? canvas_->surface() : nullptr;
    if (store == nullptr) {
        state_->release();
        return nullptr;
    }
    State& s = *state_;
    if (s.cr != nullptr && s.target == store->surface() &&
        s.storeGeneration == store->generation() &&
        s.geometryGeneration == Canvas::geometryGeneration())
        return s.cr;
    s.release();
    s.target = store->surface();
    s.cr = cairo_create(s.target);
    s.storeGeneration = store->generation();
    s.geometryGeneration = Canvas::geometryGeneration();
    s.offset = canvas_->windowOffset();
    s.windowClip = canvas_->visibleWindowRect().intersect(area_.translated(s.offset.x, s.offset.y));
    int height = store->size().y;
    cairo_rectangle(s.cr, s.windowClip.x1, height - s.windowClip.y2, s.windowClip.width(),
                    s.windowClip.height());
    cairo_clip(s.cr);
    clipToShapes(s.cr, height);
    cairo_matrix_t flip;
    cairo_matrix_init(&flip, 1, 0, 0, -1, s.offset.x, height - s.offset.y);
    cairo_set_matrix(s.cr, &flip);
    cairo_set_antialias(s.cr, antialias_ ? CAIRO_ANTIALIAS_FAST : CAIRO_ANTIALIAS_NONE);
    return s.cr;
}

void CanvasRenderer::renderPrimitive(Glib::RectDescription const& rect) {
    cairo_t* cr = context();
    if (cr == nullptr || rect.box.isEmpty())
        return;
    Box const& b = rect.box;
    if (rect.gradient) {
        cairo_pattern_t* pattern = cairo_pattern_create_linear(0, b.y2, 0, b.y1);
        cairo_pattern_add_color_stop_rgba(pattern, 0, rect.colour.r, rect.colour.g, rect.colour.b,
                                          rect.colour.a);
        cairo_pattern_add_color_stop_rgba(pattern, 1, rect.bottomColour.r, rect.bottomColour.g,
                                          rect.bottomColour.b, rect.bottomColour.a);
        cairo_set_source(cr, pattern);
        cairo_pattern_destroy(pattern);
    } else {
        setSource(cr, rect.colour);
    }
    cairo_rectangle(cr, b.x1, b.y1, b.width(), b.height());
    cairo_fill(cr);
    addModifiedArea(b);
}

void CanvasRenderer::renderPrimitive(Glib::LineDescription const& line) {
    cairo_t* cr = context();
    if (cr == nullptr)
        return;
    setSource(cr, line.colour);
    if (line.from.x == line.to.x || line.from.y == line.to.y) {
        // Filled as a box, so that a straight line is crisp whatever the antialiasing.
        Box pixels =
            straightLinePixels(line.from, line.to, std::max(1, int(std::lround(line.width))));
        cairo_rectangle(cr, pixels.x1, pixels.y1, pixels.width(), pixels.height());
        cairo_fill(cr);
        addModifiedArea(pixels);
        return;
    }
    // From pixel centre to pixel centre; square caps cover the end pixels.
    cairo_set_line_width(cr, line.width);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_SQUARE);
    cairo_move_to(cr, line.from.x + 0.5, line.from.y + 0.5);
    cairo_line_to(cr, line.to.x + 0.5, line.to.y + 0.5);
    cairo_stroke(cr);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
    int pad = int(std::ceil(line.width));
    Box ends = makeBox(line.from, line.to);
    addModifiedArea(Box(ends.x1 - pad, ends.y1 - pad, ends.x2 + 1 + pad, ends.y2 + 1 + pad));
}

void CanvasRenderer::renderPrimitive(Glib::EllipseDescription const& ellipse) {
    cairo_t* cr = context();
    Box const& b = ellipse.box;
    if (cr == nullptr || b.isEmpty())
        return;
    // An outline stays inside the box.
    double inset = ellipse.filled ? 0.0 : ellipse.lineWidth / 2;
    double rx = b.width() / 2.0 - inset;
    double ry = b.height() / 2.0 - inset;
    if (rx <= 0 || ry <= 0)
        return;
    bool whole = std::abs(ellipse.extentDeg) >= 360.0;
    double from = radians(ellipse.startDeg);
    double to = radians(ellipse.startDeg + ellipse.extentDeg);
    cairo_new_path(cr);
    cairo_save(cr);
    cairo_translate(cr, (b.x1 + b.x2) / 2.0, (b.y1 + b.y2) / 2.0);
    cairo_scale(cr, rx, ry);
    // With y up, cairo's increasing angles turn counter-clockwise.
    if (ellipse.filled && !whole)
        cairo_move_to(cr, 0, 0);
    if (ellipse.extentDeg >= 0)
        cairo_arc(cr, 0, 0, 1, from, to);
    else
        cairo_arc_negative(cr, 0, 0, 1, from, to);
    if (ellipse.filled || whole)
        cairo_close_path(cr);
    cairo_restore(cr);
    setSource(cr, ellipse.colour);
    if (ellipse.filled) {
        cairo_fill(cr);
    } else {
        cairo_set_line_width(cr, ellipse.lineWidth);
        cairo_stroke(cr);
    }
    addModifiedArea(b);
}

void CanvasRenderer::renderPrimitive(Glib::ImageDescription const& desc) {
    cairo_t* cr = context();
    Box const& b = desc.box;
    if (cr == nullptr || !desc.image || b.isEmpty())
        return;
    int const iw = desc.image->width();
    int const ih = desc.image->height();
    if (iw <= 0 || ih <= 0)
        return;
    double pixelsPerUnit = desc.image->scale() > 0 ? desc.image->scale() : 1.0;
    double fit = std::min({1.0 / pixelsPerUnit, b.width() / double(iw), b.height() / double(ih)});
    double w = iw * fit;
    double h = ih * fit;
    double x = b.x1 + std::floor((b.width() - w) / 2);
    double y = b.y1 + std::floor((b.height() - h) / 2);
    cairo_save(cr);
    // The image's rows run top down: put its first row at the top of the box, y turned back.
    cairo_translate(cr, x, y + h);
    cairo_scale(cr, fit, -fit);
    cairo_set_source_surface(cr, desc.image->surface(), 0, 0);
    cairo_pattern_t* pattern = cairo_get_source(cr);
    cairo_pattern_set_filter(pattern, CAIRO_FILTER_GOOD);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
    cairo_rectangle(cr, 0, 0, iw, ih);
    cairo_clip(cr);
    cairo_paint_with_alpha(cr, desc.alpha);
    cairo_restore(cr);
    addModifiedArea(
        Box(int(std::floor(x)), int(std::floor(y)), int(std::ceil(x + w)), int(std::ceil(y + h))));
}

void CanvasRenderer::addModifiedArea(Box const& box) {
    WindowSurface* store = canvas_ != nullptr ? canvas_->surface() : nullptr;
    if (store == nullptr)
        return;
    if (context() == nullptr)
        return;
    XY<int> offset = state_->offset;
    store->addDamage(box.translated(offset.x, offset.y).intersect(state_->windowClip));
}

void CanvasRenderer::flush() {
    if (WindowSurface* store = canvas_ != nullptr ? canvas_->surface() : nullptr)
        store->flush();
}

void CanvasRenderer::setAntialiasingEnabled(bool enabled) {
    antialias_ = enabled;
    if (state_->cr != nullptr)
        cairo_set_antialias(state_->cr, enabled ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
}

void CanvasRenderer::setClipRect(Box const& box) {
    area_ = box;
    state_->release();
}
