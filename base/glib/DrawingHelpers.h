#pragma once

// Boxes, frames, bevels and rounded boxes drawn through a canvas's renderer, and the older helpers
// that draw on the current canvas. Boxes are in the canvas's coordinates (y up); every helper
// marks what it drew as damage. A corner mask has 1 for top left, 2 top right, 4 bottom left and
// 8 bottom right: 15 rounds all four, 0 none.

#include "glib/Colour.h"
#include "qor/Box.h"

class CanvasRenderer;

namespace Glib {

// A bevelled box filled with the colour. `bevel` is the width of the bevel in pixels; `depth`
// above 0 raises the box (light top and left, dark bottom and right), below 0 sinks it, and 0
// leaves it flat.
void drawDepthBox(CanvasRenderer& r, Colour const& colour, Box const& box, int bevel, int depth);
// A dotted one-pixel rectangle just inside the box: every other pixel of its edge.
void drawFocusRect(CanvasRenderer& r, Box const& box, Colour const& colour);
// A band of that thickness along the inside of the box's edges.
void drawFrame(CanvasRenderer& r, Colour const& colour, Box const& box, unsigned short thickness);
// A sunken box: filled with the colour, its top and left edges darker, bottom and right lighter.
void drawIndentBox(CanvasRenderer& r, Colour const& colour, Box const& box);
// A filled box inside a one-pixel outline.
void drawOutlinedRect(CanvasRenderer& r, Colour const& outline, Colour const& fill, Box const& box);
// A filled rounded box and its rounded outline (see drawRoundedRectOutline).
void drawRoundedRect(CanvasRenderer& r, Colour const& fill, Colour const& edge, Box const& box,
                     int lineWidth, unsigned corners, unsigned short thickness);
void drawRoundedRectFilled(CanvasRenderer& r, Colour const& colour, Box const& box,
                           unsigned corners);
// The outline of a rounded box: a stroke `lineWidth` wide whose inner side lies `thickness` pixels
// inside the box's edge, cut to the rounded box. So a width of 2 with a thickness of 1 gives a
// one-pixel edge whose rounded corners are as solid as its straight sides.
void drawRoundedRectOutline(CanvasRenderer& r, Colour const& colour, Box const& box, int lineWidth,
                            unsigned corners, unsigned short thickness);
// The radius of rounded corners in pixels.
double cornerRadius();

} // namespace Glib

// An indented box on the current canvas, at (x, y) plus the current translation.
void indent_box(Colour const& colour, int x, int y, int w, int h);
// The edge colour of an indented box of that colour: the colour darkened.
Colour getIndentBoxColour(Colour const& colour);
// A dark and then a light one-pixel vertical line along the box's left edge, translucent so that
// they suit any background.
void drawTitleButtonSeparator(CanvasRenderer& r, Box const& box);
