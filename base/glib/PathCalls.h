#pragma once

// The PostScript-like drawing calls on the current canvas. A path is built with moves, lines,
// boxes and arcs, each offset by the current translation when it is added, then filled, stroked
// (which, as in PostScript, use up the path) or turned into a region for shaping a canvas.
// glib_gsave and glib_grestore keep and bring back the canvas, translation, colour and path.
// Everything here happens on the user-interface thread; with no current canvas, drawing does
// nothing.

#include "glib/Colour.h"
#include "glib/Region.h"
#include "qor/Box.h"
#include "qor/Ptr.h"

class Canvas;

void glib_setcanvas(Canvas* canvas);
Canvas* glib_currentcanvas();
void glib_setcolour(Colour const& colour);

void glib_newpath();
void glib_moveto(double x, double y);
void glib_lineto(double x, double y);
void glib_closepath();
// Adds a closed box with its bottom-left corner at (x, y).
void glib_addrect(double x, double y, double w, double h);
// Adds a closed box with all four corners rounded.
void glib_addsoftrect(double x, double y, double w, double h, double radius);
// Adds an arc counter-clockwise from startDeg to endDeg (degrees from three o'clock).
void glib_arc1(double cx, double cy, double radius, double startDeg, double endDeg);
// Fills the path in the current colour, or draws a one-pixel line along it; either empties it.
void glib_fill();
void glib_stroke();
// The pixels inside the current path, for shaping a canvas.
Qor::Ptr<iRegion> glib_pathToRegion();

// Fills the box (pixels x to x + w - 1, y to y + h - 1) in the current colour; the path stays.
void glib_rect(int x, int y, int w, int h);
// Adds to the offset of everything drawn or added to the path from now on.
void glib_translate(int x, int y);
void glib_gsave();
void glib_grestore();
// Copies the pixels of the box of the current canvas to the current translation: after
// glib_translate(dx, dy) the box moves by (dx, dy), as scrolling by copy needs. Only pixels that
// show on the canvas are copied.
void glib_copy(int x, int y, int w, int h);
// A one-pixel rounded outline of the box on the current canvas, cut to `clip` when it is given.
void glib_roundedRectOutline(Colour const& colour, Box const& box, int lineWidth, Box const* clip,
                             unsigned corners);

// Gives the canvas the shape (its coordinates); an empty pointer removes the shape.
void glib_reshapecanvas(Canvas* canvas, Qor::Ptr<iRegion> const& region);
// Re-applies the interface scale to the canvas. Canvases are laid out in interface pixels and
// drawing is not scaled yet, so at scale 1, the only one in use, there is nothing to do.
void glib_rescalecanvas(Canvas* canvas);
