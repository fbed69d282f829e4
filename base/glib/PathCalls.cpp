#include "glib/PathCalls.h"

#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glib/DrawingState.h"
#include "glib/GlibState.h"
#include "glib/WindowSurface.h"

#include <cairo.h>
#include <cmath>
#include <vector>

namespace {

std::vector<Glib::DrawingState>& savedStates() {
    return GlibState::instance().saved();
}

Glib::DrawingState& state() {
    return Glib::DrawingState::current();
}

// The current canvas's renderer, or null when there is nothing to draw on.
CanvasRenderer* currentRenderer() {
    Canvas* canvas = state().canvas;
    return canvas != nullptr ? &canvas->renderer() : nullptr;
}

Box translated(Box const& box) {
    XY<int> t = state().translation;
    return box.translated(t.x, t.y);
}

Box roundOut(double x1, double y1, double x2, double y2) {
    return Box(int(std::floor(x1)), int(std::floor(y1)), int(std::ceil(x2)), int(std::ceil(y2)));
}

// Fills or strokes the path on the current canvas, marks what it covered and empties the path.
void paintPath(bool fill) {
    CanvasRenderer* renderer = currentRenderer();
    cairo_t* cr = renderer != nullptr ? renderer->context() : nullptr;
    if (cr != nullptr) {
        NormalisedRGB c = fromColour(state().colour);
        state().path.replay(cr);
        cairo_set_source_rgba(cr, c.r, c.g, c.b, c.a);
        cairo_set_line_width(cr, 1.0);
        double x1, y1, x2, y2;
        if (fill)
            cairo_fill_extents(cr, &x1, &y1, &x2, &y2);
        else
            cairo_stroke_extents(cr, &x1, &y1, &x2, &y2);
        if (fill)
            cairo_fill(cr);
        else
            cairo_stroke(cr);
        renderer->addModifiedArea(roundOut(x1, y1, x2, y2));
    }
    state().path.clear();
}

// The pixels of `source` (window coordinates, y up) as they are now, in a surface of their own:
// the source and the destination of a copy may overlap.
cairo_surface_t* grab(cairo_surface_t* store, int storeHeight, Box const& source) {
    cairo_surface_t* copy =
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, source.width(), source.height());
    cairo_t* cr = cairo_create(copy);
    cairo_set_source_surface(cr, store, -source.x1, -(storeHeight - source.y2));
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_paint(cr);
    cairo_destroy(cr);
    return copy;
}

} // namespace

Glib::DrawingState& Glib::DrawingState::current() {
    return GlibState::instance().drawing();
}

void glib_setcanvas(Canvas* canvas) {
    state().canvas = canvas;
}

Canvas* glib_currentcanvas() {
    return state().canvas;
}

void glib_setcolour(Colour const& colour) {
    state().colour = colour;
}

void glib_newpath() {
    state().path.clear();
}

void glib_moveto(double x, double y) {
    XY<int> t = state().translation;
    state().path.moveTo(x + t.x, y + t.y);
}

void glib_lineto(double x, double y) {
    XY<int> t = state().translation;
    state().path.lineTo(x + t.x, y + t.y);
}

void glib_closepath() {
    state().path.closePath();
}

void glib_addrect(double x, double y, double w, double h) {
    XY<int> t = state().translation;
    state().path.addRect(x + t.x, y + t.y, w, h);
}

void glib_addsoftrect(double x, double y, double w, double h, double radius) {
    XY<int> t = state().translation;
    state().path.addRoundedRect(x + t.x, y + t.y, w, h, radius);
}

void glib_arc1(double cx, double cy, double radius, double startDeg, double endDeg) {
    XY<int> t = state().translation;
    state().path.addArc(cx + t.x, cy + t.y, radius, startDeg, endDeg);
}

void glib_fill() {
    paintPath(true);
}

void glib_stroke() {
    paintPath(false);
}

Qor::Ptr<iRegion> glib_pathToRegion() {
    return state().path.toRegion();
}

void glib_rect(int x, int y, int w, int h) {
    if (CanvasRenderer* renderer = currentRenderer()) {
        Glib::RectDescription rect;
        rect.box = translated(Box(x, y, x + w, y + h));
        rect.colour = fromColour(state().colour);
        renderer->renderPrimitive(rect);
    }
}

void glib_translate(int x, int y) {
    XY<int>& t = state().translation;
    t = XY<int>(t.x + x, t.y + y);
}

void glib_gsave() {
    savedStates().push_back(state());
}

void glib_grestore() {
    if (savedStates().empty())
        return;
    state() = savedStates().back();
    savedStates().pop_back();
}

void glib_copy(int x, int y, int w, int h) {
    Canvas* canvas = state().canvas;
    WindowSurface* store = canvas != nullptr ? canvas->surface() : nullptr;
    cairo_t* cr = store != nullptr ? canvas->renderer().context() : nullptr;
    if (cr == nullptr)
        return;
    XY<int> offset = canvas->windowOffset();
    Box source = Box(x, y, x + w, y + h)
                     .translated(offset.x, offset.y)
                     .intersect(canvas->visibleWindowRect());
    if (source.isEmpty())
        return;
    XY<int> t = state().translation;
    int const height = store->size().y;
    cairo_surface_t* pixels = grab(store->surface(), height, source);
    Box target = source.translated(t.x, t.y);
    cairo_save(cr);
    // Device space, still clipped to the canvas.
    cairo_identity_matrix(cr);
    cairo_set_source_surface(cr, pixels, target.x1, height - target.y2);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_rectangle(cr, target.x1, height - target.y2, target.width(), target.height());
    cairo_fill(cr);
    cairo_restore(cr);
    cairo_surface_destroy(pixels);
    canvas->renderer().addModifiedArea(target.translated(-offset.x, -offset.y));
}

void glib_roundedRectOutline(Colour const& colour, Box const& box, int lineWidth, Box const* clip,
                             unsigned corners) {
    CanvasRenderer* renderer = currentRenderer();
    if (renderer == nullptr)
        return;
    Box const saved = renderer->clipRect();
    if (clip != nullptr)
        renderer->setClipRect(saved.intersect(translated(*clip)));
    Glib::drawRoundedRectOutline(*renderer, colour, translated(box), lineWidth, corners, 1);
    if (clip != nullptr)
        renderer->setClipRect(saved);
}

void glib_reshapecanvas(Canvas* canvas, Qor::Ptr<iRegion> const& region) {
    if (canvas != nullptr)
        canvas->shape(region);
}

void glib_rescalecanvas(Canvas*) {}
