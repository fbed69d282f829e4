#include "buttons/ColourSwatch.h"

#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glob/UifStd.h"

#include <algorithm>

ColourSwatch::ColourSwatch(InitArgs const& args)
    : rect(args), colour_(args.colour), alpha_(std::clamp(args.alpha, 0.0, 1.0)) {}

void ColourSwatch::setColour(Colour const& colour, double alpha, eRedrawFlag redraw) {
    colour_ = colour;
    alpha_ = std::clamp(alpha, 0.0, 1.0);
    if (redraw == Redraw)
        update();
}

void ColourSwatch::drawBackground() {
    Colour edge = getIndentBoxColour(getCol());
    Glib::drawOutlinedRect(canvas()->renderer(), edge, getCol(), face());
    Box inside = face().inset(1);
    if (!colour_.isSet())
        drawStrikeOut(inside);
    else if (alpha_ < 1.0)
        drawChequer(inside);
    else
        fillRect(inside, colour_);
}

// Light and dark squares, each already blended with the colour by its opacity.
void ColourSwatch::drawChequer(Box const& inside) {
    int cell = std::max(2, 2 * int(UifStd::getWidgetGap()));
    Colour squares[2] = {Colour::mix(Colour(1.0, 1.0, 1.0), colour_, alpha_),
                         Colour::mix(Colour(0.75, 0.75, 0.75), colour_, alpha_)};
    for (int y = inside.y1; y < inside.y2; y += cell)
        for (int x = inside.x1; x < inside.x2; x += cell) {
            Box square(x, y, std::min(x + cell, inside.x2), std::min(y + cell, inside.y2));
            fillRect(square, squares[((x - inside.x1) / cell + (y - inside.y1) / cell) % 2]);
        }
}

void ColourSwatch::drawStrikeOut(Box const& inside) {
    fillRect(inside, getPalette().childWindow(ChildWindowInset));
    Glib::LineDescription line;
    line.from = XY<int>(inside.x1, inside.y1);
    line.to = XY<int>(inside.x2, inside.y2);
    line.colour = fromColour(getPalette().text(TextFaint));
    canvas()->renderer().renderPrimitive(line);
}
