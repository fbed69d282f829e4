#include "glib/DrawingHelpers.h"

#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/DrawingState.h"
#include "glib/Path.h"

#include <algorithm>
#include <cairo.h>
#include <compare>
#include <map>

namespace {

void fillBox(CanvasRenderer& r, Colour const& colour, Box const& box) {
    Glib::RectDescription rect;
    rect.box = box;
    rect.colour = fromColour(colour);
    r.renderPrimitive(rect);
}

// A one-pixel line from one pixel to another, both included, when the run isn't reversed.
void drawRun(CanvasRenderer& r, NormalisedRGB const& colour, XY<int> const& from,
             XY<int> const& to) {
    if (to.x < from.x || to.y < from.y)
        return;
    Glib::LineDescription line;
    line.from = from;
    line.to = to;
    line.colour = colour;
    r.renderPrimitive(line);
}

Colour lighter(Colour const& colour) {
    return Colour::mix(colour, Colour(1.0, 1.0, 1.0), 0.5);
}

void setSource(cairo_t* cr, Colour const& colour) {
    NormalisedRGB c = fromColour(colour);
    cairo_set_source_rgba(cr, c.r, c.g, c.b, c.a);
}

void fillRounded(cairo_t* cr, Colour const& colour, Box const& box, unsigned corners) {
    Glib::Path path;
    path.addRoundedRect(box.x1, box.y1, box.width(), box.height(), Glib::cornerRadius(), corners);
    path.replay(cr);
    setSource(cr, colour);
    cairo_fill(cr);
}

// The stroke's inner side lies `thickness` inside the edge and what would stick out of the
// rounded box is cut away: that leaves a ring between two rounded boxes, filled directly (a
// rounded clip would cost a mask on every call).
void fillRoundedRing(cairo_t* cr, Colour const& colour, Box const& box, int lineWidth,
                     unsigned corners, unsigned short thickness) {
    double outer = std::max(0, int(thickness) - lineWidth);
    double inner = thickness;
    double radius = Glib::cornerRadius();
    Glib::Path ring;
    ring.addRoundedRect(box.x1 + outer, box.y1 + outer, box.width() - 2 * outer,
                        box.height() - 2 * outer, std::max(0.0, radius - outer), corners);
    if (box.width() > 2 * inner && box.height() > 2 * inner)
        ring.addRoundedRect(box.x1 + inner, box.y1 + inner, box.width() - 2 * inner,
                            box.height() - 2 * inner, std::max(0.0, radius - inner), corners);
    ring.replay(cr);
    setSource(cr, colour);
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_fill(cr);
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_WINDING);
}

// Faces of rounded boxes as pictures, by size, colours and shape: controls of a form share a few
// sizes, and copying a face costs a fraction of antialiasing its outline again.
class FaceCache {
public:
    struct Key {
        int width, height, lineWidth;
        unsigned corners, thickness, fill, edge;
        // Only the outline: the picture is clear inside it.
        bool hollow;
        auto operator<=>(Key const&) const = default;
    };

    // The face, drawn y up in a picture of the key's size; owned by the cache.
    cairo_surface_t* face(Key const& key, Colour const& fill, Colour const& edge) {
        auto it = faces_.find(key);
        if (it != faces_.end())
            return it->second;
        if (faces_.size() >= capacity)
            clear();
        cairo_surface_t* picture =
            cairo_image_surface_create(CAIRO_FORMAT_ARGB32, key.width, key.height);
        cairo_t* cr = cairo_create(picture);
        cairo_matrix_t flip;
        cairo_matrix_init(&flip, 1, 0, 0, -1, 0, key.height);
        cairo_set_matrix(cr, &flip);
        cairo_set_antialias(cr, CAIRO_ANTIALIAS_FAST);
        Box box(0, 0, key.width, key.height);
        if (!key.hollow)
            fillRounded(cr, fill, box, key.corners);
        fillRoundedRing(cr, edge, box, key.lineWidth, key.corners, (unsigned short)key.thickness);
        cairo_destroy(cr);
        faces_[key] = picture;
        return picture;
    }
    ~FaceCache() { clear(); }

private:
    static constexpr std::size_t capacity = 256;
    void clear() {
        for (auto& [key, picture] : faces_)
            cairo_surface_destroy(picture);
        faces_.clear();
    }
    std::map<Key, cairo_surface_t*> faces_;
};

// Faces are drawn on the user-interface thread only.
FaceCache& faceCache() {
    static FaceCache cache;
    return cache;
}

// Paints a cached face (or only its outline) into the box.
void paintFace(CanvasRenderer& r, Colour const& fill, Colour const& edge, Box const& box,
               int lineWidth, unsigned corners, unsigned short thickness, bool hollow) {
    cairo_t* cr = r.context();
    if (cr == nullptr || box.isEmpty())
        return;
    FaceCache::Key key{box.width(),
                       box.height(),
                       std::max(lineWidth, 0),
                       corners,
                       thickness,
                       hollow ? 0u : fill.get_vlib_colour(true),
                       edge.get_vlib_colour(true),
                       hollow};
    cairo_surface_t* face = faceCache().face(key, fill, edge);
    // The picture's rows run down; the canvas's y runs up.
    cairo_pattern_t* pattern = cairo_pattern_create_for_surface(face);
    cairo_matrix_t place;
    cairo_matrix_init(&place, 1, 0, 0, -1, -box.x1, box.y1 + box.height());
    cairo_pattern_set_matrix(pattern, &place);
    cairo_set_source(cr, pattern);
    cairo_pattern_destroy(pattern);
    cairo_rectangle(cr, box.x1, box.y1, box.width(), box.height());
    cairo_fill(cr);
    r.addModifiedArea(box);
}

} // namespace

namespace Glib {

double cornerRadius() {
    // Four interface pixels; the interface scale is 1 until scaled drawing arrives.
    return 4.0;
}

void drawDepthBox(CanvasRenderer& r, Colour const& colour, Box const& box, int bevel, int depth) {
    fillBox(r, colour, box);
    if (depth == 0)
        return;
    NormalisedRGB light = fromColour(lighter(colour));
    NormalisedRGB dark = fromColour(getIndentBoxColour(colour));
    NormalisedRGB topLeft = depth > 0 ? light : dark;
    NormalisedRGB bottomRight = depth > 0 ? dark : light;
    for (int i = 0; i < bevel; ++i) {
        Box ring = box.inset(i);
        if (ring.isEmpty())
            break;
        int left = ring.x1, bottom = ring.y1, right = ring.x2 - 1, top = ring.y2 - 1;
        drawRun(r, topLeft, XY<int>(left, top), XY<int>(right, top));
        drawRun(r, topLeft, XY<int>(left, bottom), XY<int>(left, top - 1));
        drawRun(r, bottomRight, XY<int>(left + 1, bottom), XY<int>(right, bottom));
        drawRun(r, bottomRight, XY<int>(right, bottom + 1), XY<int>(right, top - 1));
    }
}

void drawFocusRect(CanvasRenderer& r, Box const& box, Colour const& colour) {
    cairo_t* cr = r.context();
    if (cr == nullptr || box.isEmpty())
        return;
    // Dots where x + y is even, so that the pattern lines up across neighbouring boxes.
    auto dot = [cr](int x, int y) {
        if (((x + y) & 1) == 0)
            cairo_rectangle(cr, x, y, 1, 1);
    };
    cairo_new_path(cr);
    int const top = box.y2 - 1, right = box.x2 - 1;
    for (int x = box.x1; x <= right; ++x) {
        dot(x, box.y1);
        if (top != box.y1)
            dot(x, top);
    }
    for (int y = box.y1 + 1; y < top; ++y) {
        dot(box.x1, y);
        if (right != box.x1)
            dot(right, y);
    }
    setSource(cr, colour);
    cairo_fill(cr);
    r.addModifiedArea(box);
}

void drawFrame(CanvasRenderer& r, Colour const& colour, Box const& box, unsigned short thickness) {
    int t = thickness;
    if (t == 0 || box.isEmpty())
        return;
    if (2 * t >= box.width() || 2 * t >= box.height()) {
        fillBox(r, colour, box);
        return;
    }
    fillBox(r, colour, Box(box.x1, box.y1, box.x2, box.y1 + t));
    fillBox(r, colour, Box(box.x1, box.y2 - t, box.x2, box.y2));
    fillBox(r, colour, Box(box.x1, box.y1 + t, box.x1 + t, box.y2 - t));
    fillBox(r, colour, Box(box.x2 - t, box.y1 + t, box.x2, box.y2 - t));
}

void drawIndentBox(CanvasRenderer& r, Colour const& colour, Box const& box) {
    drawDepthBox(r, colour, box, 1, -1);
}

void drawOutlinedRect(CanvasRenderer& r, Colour const& outline, Colour const& fill,
                      Box const& box) {
    fillBox(r, fill, box.inset(1));
    drawFrame(r, outline, box, 1);
}

void drawRoundedRect(CanvasRenderer& r, Colour const& fill, Colour const& edge, Box const& box,
                     int lineWidth, unsigned corners, unsigned short thickness) {
    paintFace(r, fill, edge, box, lineWidth, corners, thickness, false);
}

void drawRoundedRectFilled(CanvasRenderer& r, Colour const& colour, Box const& box,
                           unsigned corners) {
    cairo_t* cr = r.context();
    if (cr == nullptr || box.isEmpty())
        return;
    fillRounded(cr, colour, box, corners);
    r.addModifiedArea(box);
}

void drawRoundedRectOutline(CanvasRenderer& r, Colour const& colour, Box const& box, int lineWidth,
                            unsigned corners, unsigned short thickness) {
    if (lineWidth > 0)
        paintFace(r, Colour(), colour, box, lineWidth, corners, thickness, true);
}

} // namespace Glib

void indent_box(Colour const& colour, int x, int y, int w, int h) {
    Glib::DrawingState const& state = Glib::DrawingState::current();
    if (state.canvas == nullptr)
        return;
    Box box = Box(x, y, x + w, y + h).translated(state.translation.x, state.translation.y);
    Glib::drawIndentBox(state.canvas->renderer(), colour, box);
}

Colour getIndentBoxColour(Colour const& colour) {
    return scale(colour, 0.6);
}

void drawTitleButtonSeparator(CanvasRenderer& r, Box const& box) {
    if (box.isEmpty())
        return;
    drawRun(r, NormalisedRGB(0, 0, 0, 0.25f), XY<int>(box.x1, box.y1), XY<int>(box.x1, box.y2 - 1));
    drawRun(r, NormalisedRGB(1, 1, 1, 0.5f), XY<int>(box.x1 + 1, box.y1),
            XY<int>(box.x1 + 1, box.y2 - 1));
}
