#include "DrawingPage.h"

#include "glib/DrawingHelpers.h"

#include <cmath>

void DrawingPage::drawWidgets() {
    drawPrimitives(24, top() - 30);
    drawHelpers(24, top() - 300);
    drawRounded(520, top() - 30);
    Glob::drawWidgets();
}

void DrawingPage::drawPrimitives(int x, int y) {
    caption(L"Boxes, gradients, lines, ellipses and arcs", XY<int>(x, y));
    CanvasRenderer& r = renderer();
    Palette const& p = getPalette();
    Glib::RectDescription box;
    box.box = Box(x, y - 110, x + 90, y - 20);
    box.colour = fromColour(p.selection());
    r.renderPrimitive(box);
    Glib::RectDescription gradient;
    gradient.box = Box(x + 105, y - 110, x + 195, y - 20);
    gradient.gradient = true;
    gradient.colour = NormalisedRGB(1.0f, 0.85f, 0.3f);
    gradient.bottomColour = NormalisedRGB(0.8f, 0.25f, 0.1f);
    r.renderPrimitive(gradient);
    Glib::RectDescription glass;
    glass.box = Box(x + 60, y - 80, x + 140, y - 50);
    glass.colour = NormalisedRGB(1, 1, 1, 0.5f);
    r.renderPrimitive(glass);

    for (int i = 0; i < 12; ++i) {
        double a = i * 3.14159265 / 12;
        Glib::LineDescription spoke;
        spoke.from = XY<int>(x + 260, y - 65);
        spoke.to = XY<int>(x + 260 + int(45 * std::cos(a)), y - 65 + int(45 * std::sin(a)));
        spoke.colour = fromColour(p.text());
        spoke.width = 1 + i % 3;
        r.renderPrimitive(spoke);
    }

    Glib::EllipseDescription disc;
    disc.box = Box(x + 330, y - 110, x + 420, y - 20);
    disc.colour = NormalisedRGB(0.2f, 0.6f, 0.3f);
    r.renderPrimitive(disc);
    Glib::EllipseDescription arc;
    arc.box = Box(x + 345, y - 95, x + 405, y - 35);
    arc.filled = false;
    arc.lineWidth = 4;
    arc.startDeg = 30;
    arc.extentDeg = 270;
    arc.colour = NormalisedRGB(1, 1, 1);
    r.renderPrimitive(arc);
    Glib::EllipseDescription pie;
    pie.box = Box(x, y - 230, x + 90, y - 140);
    pie.startDeg = 90;
    pie.extentDeg = 120;
    pie.colour = fromColour(p.warning());
    r.renderPrimitive(pie);
}

void DrawingPage::drawHelpers(int x, int y) {
    caption(L"Bevels, frames, focus and indents", XY<int>(x, y));
    CanvasRenderer& r = renderer();
    Palette const& p = getPalette();
    Colour face = p.window(WindowShadeLight);
    Glib::drawDepthBox(r, face, Box(x, y - 90, x + 90, y - 20), 3, 1);
    Glib::drawDepthBox(r, face, Box(x + 105, y - 90, x + 195, y - 20), 3, -1);
    Glib::drawFrame(r, p.selection(), Box(x + 210, y - 90, x + 300, y - 20), 4);
    Glib::drawIndentBox(r, p.childWindow(ChildWindowInset), Box(x + 315, y - 90, x + 405, y - 20));
    Glib::drawOutlinedRect(r, p.text(), p.window(WindowShadeLighter),
                           Box(x, y - 190, x + 90, y - 120));
    Glib::RectDescription back;
    back.box = Box(x + 105, y - 190, x + 195, y - 120);
    back.colour = fromColour(p.window(WindowShadeLightest));
    r.renderPrimitive(back);
    Glib::drawFocusRect(r, Box(x + 110, y - 185, x + 190, y - 125), p.text());
    drawTitleButtonSeparator(r, Box(x + 230, y - 190, x + 260, y - 120));
}

void DrawingPage::drawRounded(int x, int y) {
    caption(L"Rounded boxes: corners chosen one by one", XY<int>(x, y));
    CanvasRenderer& r = renderer();
    Palette const& p = getPalette();
    unsigned const corners[] = {15, 1 | 2, 4 | 8, 1 | 8, 0};
    int at = x;
    for (unsigned c : corners) {
        Glib::drawRoundedRect(r, p.window(WindowShadeLighter), p.window(WindowShadeDarker),
                              Box(at, y - 80, at + 70, y - 20), 2, c, 1);
        at += 82;
    }
    Glib::drawRoundedRectFilled(r, p.selection(), Box(x, y - 170, x + 150, y - 100), 15);
    Glib::drawRoundedRectOutline(r, p.headingText(), Box(x + 170, y - 170, x + 320, y - 100), 2, 15,
                                 1);
    Glib::drawRoundedRectOutline(r, p.warning(), Box(x + 340, y - 170, x + 400, y - 100), 4, 5, 2);
}
