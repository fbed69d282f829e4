#include "panels/Splitter.h"

#include "glib/CanvasRenderer.h"
#include "glob/UifStd.h"

#include <algorithm>

char const* const Splitter::splitterMsg = "SplitterMsg";

namespace {
constexpr int nobbleCount = 3;
} // namespace

Splitter::Event::Event(eKind kind_, ::Event const& event)
    : kind(kind_), pos(event.pos), startPos(event.startPos), rootPos(event.rootPos),
      startRootPos(event.startRootPos) {}

Splitter::InitArgs::InitArgs(WidgetCallback::Callback const& callback_, Orientation orientation_,
                             unsigned short length)
    : callback(callback_), orientation(orientation_) {
    XY<int> size = calcDimensions(orientation_, length);
    width = (unsigned short)size.x;
    height = (unsigned short)size.y;
}

Splitter::Splitter(InitArgs const& args)
    : StandardPanel(args), callback_(args.callback), orientation_(args.orientation) {}

int Splitter::calcThickness() {
    return UifStd::getRowHeight() / 6 * 2;
}

XY<int> Splitter::calcDimensions(Orientation orientation, unsigned short length) {
    if (orientation == OrientationVertical)
        return XY<int>(calcThickness(), length);
    return XY<int>(length, calcThickness());
}

Colour Splitter::getBaseColour() const {
    return getPalette().window(WindowShadeDark);
}

int Splitter::handleMouseEvent(::Event const& event) {
    if (!isActive() || !mouse_left_event(event))
        return 0;
    Event::eKind kind = mouse_down_event(event) ? Event::Pressed
                        : mouse_up_event(event) ? Event::Released
                                                : Event::Moved;
    Qor::Ptr<iObject> data(new Event(kind, event));
    if (callback_)
        callback_->execute(NotifyMsg(LightweightString<char>(splitterMsg), data));
    else if (Glob* owner = parent())
        callMessageWithData(LightweightString<char>(splitterMsg), owner, data, this);
    return 1;
}

MouseCursorID Splitter::contextCursor(XY<int> const&) {
    if (!isActive())
        return CursorArrow;
    return orientation_ == OrientationVertical ? CursorHorizontalResize : CursorVerticalResize;
}

void Splitter::drawBackground() {
    fillRect(face(), getBaseColour());
    if (orientation_ == OrientationVertical)
        drawNobblesVertical();
    else
        drawNobblesHorizontal();
}

// A short column of grips at the middle, to show where to take hold.
void Splitter::drawNobblesVertical() {
    int step = std::max(3, int(width()));
    for (int i = 0; i < nobbleCount; ++i)
        drawNobble(XY<int>(width() / 2, height() / 2 + (i - nobbleCount / 2) * step));
}

void Splitter::drawNobblesHorizontal() {
    int step = std::max(3, int(height()));
    for (int i = 0; i < nobbleCount; ++i)
        drawNobble(XY<int>(width() / 2 + (i - nobbleCount / 2) * step, height() / 2));
}

// A raised dot: light at the top left, dark at the bottom right.
void Splitter::drawNobble(XY<int> const& centre) {
    int r = std::max(1, int(std::min(width(), height())) / 4);
    Colour base = getBaseColour();
    Palette const& p = getPalette();
    fillRect(Box(centre.x - r, centre.y - r + 1, centre.x + r, centre.y + r + 1),
             p.scale(base, 1.5));
    fillRect(Box(centre.x - r + 1, centre.y - r, centre.x + r + 1, centre.y + r),
             p.scale(base, 0.6));
    fillRect(Box(centre.x - r + 1, centre.y - r + 1, centre.x + r, centre.y + r), base);
}
