#pragma once

// Paints descriptions of drawing onto a canvas: filled boxes (with an optional vertical gradient),
// lines, ellipses and arcs, images and text. Positions are in the canvas's coordinates, y up from
// its bottom-left corner. Everything is clipped to the renderer's area, the canvas and all its
// ancestors; what was painted is marked as damage of the window, and flush() shows it.

#include "glib/Colour.h"
#include "glib/Font.h"
#include "glib/Image.h"
#include "qor/Box.h"

#include <memory>

class Canvas;
typedef struct _cairo cairo_t;

namespace Glib {

struct RectDescription {
    Box box;
    NormalisedRGB colour;
    // With a gradient, `colour` is at the top edge and `bottomColour` at the bottom edge.
    bool gradient = false;
    NormalisedRGB bottomColour;
};

struct LineDescription {
    XY<int> from;
    XY<int> to;
    NormalisedRGB colour;
    double width = 1.0;
};

struct EllipseDescription {
    Box box;
    NormalisedRGB colour;
    bool filled = true;
    double lineWidth = 1.0;
    // Degrees, counter-clockwise from three o'clock; a whole ellipse by default.
    double startDeg = 0.0;
    double extentDeg = 360.0;
};

struct ImageDescription {
    Qor::Ptr<iHostImage> image;
    // The image is scaled down (never up) to fit the box, keeping its aspect, and centred.
    Box box;
    double alpha = 1.0;
};

struct TextDescription {
    enum Alignment { Left = 0, Right = 1, Centre = 2 };

    LightweightString<wchar_t> text;
    Qor::Ptr<iFont> font;
    NormalisedRGB colour;
    // x as the alignment says, y the baseline.
    XY<int> origin;
    Alignment alignment = Left;
    int style = 1;
    // Characters selStart <= i < selEnd are drawn in the selection colours.
    int selStart = 0;
    int selEnd = 0;
    NormalisedRGB selBackground;
    NormalisedRGB selForeground;

    // The box the text covers when drawn at `origin`.
    Box calcBounds(XY<int> const& origin) const;
};

} // namespace Glib

class CanvasRenderer {
public:
    // Draws on `canvas` within `area` (canvas coordinates).
    CanvasRenderer(Canvas* canvas, Box const& area);
    ~CanvasRenderer();
    CanvasRenderer(CanvasRenderer const&) = delete;
    CanvasRenderer& operator=(CanvasRenderer const&) = delete;

    void renderPrimitive(Glib::RectDescription const& rect);
    void renderPrimitive(Glib::LineDescription const& line);
    void renderPrimitive(Glib::EllipseDescription const& ellipse);
    void renderPrimitive(Glib::ImageDescription const& image);
    void renderPrimitive(Glib::TextDescription const& text);

    // Marks part of the canvas (its coordinates) as changed on the screen.
    void addModifiedArea(Box const& box);
    // Shows the window's damage now (unless updates are deferred).
    void flush();
    void setAntialiasingEnabled(bool enabled);
    // Limits drawing to the box (canvas coordinates) within the canvas.
    void setClipRect(Box const& box);
    Box clipRect() const { return area_; }

    Canvas* canvas() const { return canvas_; }
    // A cairo context set up for the canvas: origin at its bottom-left corner, y up, clipped as
    // drawing is. Null when the canvas has no window surface yet. For drawing code in the base.
    cairo_t* context();

private:
    struct State;

    void clipToShapes(cairo_t* cr, int windowHeight) const;

    Canvas* canvas_;
    Box area_;
    bool antialias_ = true;
    std::unique_ptr<State> state_;
};
