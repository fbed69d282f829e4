#include "panels/ActionIndicator.h"

#include "glib/CanvasRenderer.h"
#include "os/Clock.h"

#include <algorithm>
#include <cmath>

ActionIndicator::ActionIndicator(InitArgs const& args) : StandardPanel(args) {
    if (isVisible())
        setInterest(EventCode::Timer);
}

ActionIndicator::~ActionIndicator() {
    clearInterest(EventCode::Timer);
}

void ActionIndicator::setVisible(bool visible) {
    StandardPanel::setVisible(visible);
    if (visible)
        setInterest(EventCode::Timer);
    else
        clearInterest(EventCode::Timer);
}

void ActionIndicator::handleTimerEvent() {
    update();
}

void ActionIndicator::drawBackground() {
    StandardPanel::drawBackground();
    draw(canvas()->renderer(), getUserArea(), isActive());
}

// The inner arc turns the other way at a different pace, so the two never line up for long.
void ActionIndicator::draw(CanvasRenderer& r, Box const& box, bool lively) {
    int side = std::min(box.width(), box.height());
    if (side <= 4)
        return;
    double now = msecsNow();
    double angle = std::fmod(now / turnPeriodMs * 360.0, 360.0);
    Colour colour = lively ? getPalette().selection() : getPalette().text(TextFaint);
    double lineWidth = std::max(2, side / 8);
    int x = box.x1 + (box.width() - side) / 2;
    int y = box.y1 + (box.height() - side) / 2;
    Glib::EllipseDescription arc;
    arc.filled = false;
    arc.colour = fromColour(colour);
    arc.lineWidth = lineWidth;
    arc.box = Box(x, y, x + side, y + side).inset(int(lineWidth / 2) + 1);
    arc.startDeg = -angle;
    arc.extentDeg = 180.0;
    r.renderPrimitive(arc);
    int inner = int(lineWidth) + 2;
    if (arc.box.width() <= 2 * inner)
        return;
    arc.box = arc.box.inset(inner);
    arc.lineWidth = std::max(1.0, lineWidth - 2);
    arc.startDeg = std::fmod(angle * 1.5, 360.0);
    r.renderPrimitive(arc);
}
