#include "panels/FrameWidget.h"

#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glob/UifStd.h"

FrameWidget::FrameWidget(GlobCreationInfo const& info) : Glob(info) {}

int FrameWidget::getThickness() {
    return 4 * UifStd::getIndentWidth();
}

void FrameWidget::drawBackground() {
    drawFrames(getPalette().window(WindowShadeBase));
}

// The outer and inner bands in a blend towards the text colour, so that they show on light and
// dark windows alike; the middle band in the colour itself.
void FrameWidget::drawFrames(Colour const& base) {
    CanvasRenderer& r = canvas()->renderer();
    Colour blend = Colour::mix(base, getPalette().text(), 0.2);
    unsigned short band = (unsigned short)(getThickness() / 4);
    Box box = face();
    Glib::drawFrame(r, blend, box, band);
    box = box.inset(band);
    Glib::drawFrame(r, base, box, (unsigned short)(2 * band));
    box = box.inset(2 * band);
    Glib::drawFrame(r, blend, box, band);
}

DropIndicator::DropIndicator(GlobCreationInfo const& info) : FrameWidget(info) {}

void DropIndicator::drawBackground() {
    drawFrames(getPalette().selection());
}
