#include "buttons/Gauge.h"

#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glob/UifStd.h"

#include <cmath>

Gauge::Gauge(InitArgs const& args)
    : rect(args), fillColour_(args.fillColour), emptyColour_(args.emptyColour), text_(args.text) {}

void Gauge::setMeasure(double measure) {
    if (measure >= 0.0 && measure <= 1.0)
        measure_ = measure;
}

void Gauge::setColours(Colour const& fill, Colour const& empty, eRedrawFlag redraw) {
    fillColour_ = fill;
    emptyColour_ = empty;
    if (redraw == Redraw)
        update();
}

void Gauge::display() {
    if (text_ != shownText_ || !isShowingValue(measure_))
        update();
}

bool Gauge::isShowingValue(double measure) const {
    return lengthFor(measure) == shownLength_;
}

int Gauge::lengthFor(double measure) const {
    return int(std::trunc(width() * measure + 0.5));
}

void Gauge::drawBackground() {
    CanvasRenderer& r = canvas()->renderer();
    Palette const& p = getPalette();
    Colour empty = emptyColour_.isSet() ? emptyColour_ : p.childWindow(ChildWindowInset);
    Colour fill = fillColour_.isSet() ? fillColour_ : p.selection();
    Glib::drawIndentBox(r, empty, face());
    int length = lengthFor(measure_);
    Box filled = Box(0, 0, length, height()).intersect(face().inset(1));
    if (!filled.isEmpty())
        fillRect(filled, fill);
    drawText(filled);
    shownText_ = text_;
    shownLength_ = length;
}

// The text reads in the selection's text colour over the filled part, in the normal one beyond.
void Gauge::drawText(Box const& filled) {
    if (text_.empty())
        return;
    CanvasRenderer& r = canvas()->renderer();
    Palette const& p = getPalette();
    Qor::Ptr<iFont> font = Glib::loadFont(UifStd::getFont());
    Glib::TextDescription t;
    t.text = Glib::fitTextToWidth(font, text_, width() - 2 * UifStd::getWidgetGap());
    t.font = font;
    t.origin = XY<int>(width() / 2, getFontYOffset(height(), font));
    t.alignment = Glib::TextDescription::Centre;
    Box whole = r.clipRect();
    Box beyond(filled.isEmpty() ? 0 : filled.x2, 0, width(), height());
    Box parts[2] = {filled, beyond};
    Colour colours[2] = {p.selectedText(), p.text(isActive() ? TextNormal : TextInactive)};
    for (int i = 0; i < 2; ++i) {
        if (parts[i].isEmpty())
            continue;
        r.setClipRect(parts[i].intersect(whole));
        t.colour = fromColour(colours[i]);
        r.renderPrimitive(t);
    }
    r.setClipRect(whole);
}
