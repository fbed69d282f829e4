#include "panels/WidgetGroup3.h"

#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glob/UifStd.h"

WidgetGroup3::WidgetGroup3(WidgetGroup::InitArgs const& args) : WidgetGroupEx(args) {
    setSeparatorStyle(SeparatorNone);
}

XY<int> WidgetGroup3::getOriginXY(eCoordinateOrigin origin) const {
    XY<int> p = WidgetGroupEx::getOriginXY(origin);
    if (origin == OriginUserTopLeft || origin == OriginUserTopRight)
        p.y -= UifStd::getWidgetGap();
    return p;
}

Box WidgetGroup3::frameBox() const {
    return Box(0, 0, width(), height() - titleRowHeight());
}

void WidgetGroup3::drawBackground() {
    StandardPanel::drawBackground();
    Palette const& p = getPalette();
    Colour base = p.window(WindowShadeBase);
    Glib::drawRoundedRect(canvas()->renderer(), p.scale(base, 0.8), getIndentBoxColour(base),
                          frameBox(), 2, 15, 1);
}
