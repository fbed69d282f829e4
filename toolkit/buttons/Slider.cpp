#include "buttons/Slider.h"

#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glob/UifStd.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <locale>
#include <sstream>

namespace {

constexpr double samePosition = 1e-6;
// Keeps a value that is round in decimal but a hair below it in binary from rounding a step down.
constexpr double roundingSlack = 1e-9;

double roundDownToThousandths(double value) {
    return std::floor(value * 1000.0 + roundingSlack) / 1000.0;
}

} // namespace

Slider::Slider(InitArgs const& args)
    : Glob(args), minimum_(args.minimum), maximum_(args.maximum), increment_(args.increment),
      roundedPixelValues_(args.roundedPixelValues), orientation_(args.orientation),
      callback_(args.callback) {
    init();
    position_ = clampValue(args.position);
}

void Slider::init() {
    int a = UifStd::getWidgetGap();
    int b = UifStd::getIndentWidth();
    thumbHalfWidth_ = (3 * a - 2 * b) / 2;
    recalculateStartAndEnd();
}

void Slider::recalculateStartAndEnd() {
    startPixel_ = UifStd::getIndentWidth() + thumbHalfWidth_;
    endPixel_ = length() - startPixel_;
}

void Slider::resize(double w, double h) {
    Glob::resize(w, h);
    recalculateStartAndEnd();
}

// Settings

void Slider::setRange(double minimum, double maximum, eRedrawFlag redraw) {
    minimum_ = minimum;
    maximum_ = maximum;
    position_ = clampValue(position_);
    if (redraw == Redraw)
        update();
}

double Slider::getStep() const {
    return increment_ != 0.0 ? increment_ : (maximum_ - minimum_) / 500.0;
}

void Slider::setOrientation(::Orientation orientation) {
    orientation_ = orientation;
    recalculateStartAndEnd();
    update();
}

void Slider::setThumbColour(Colour const& colour) {
    thumbColour_ = colour;
    update();
}

void Slider::setPointsOfInterest(std::vector<PointOfInterest> const& points) {
    pointsOfInterest_ = points;
    update();
}

double Slider::getPointOfInterest() const {
    double best = position_;
    double bestDistance = INFINITY;
    for (PointOfInterest const& point : pointsOfInterest_) {
        double distance = std::abs(point.value - position_);
        if (distance < bestDistance) {
            best = point.value;
            bestDistance = distance;
        }
    }
    return best;
}

// Mapping

double Slider::v2x(double value) const {
    if (maximum_ == minimum_)
        return startPixel_;
    return (value - minimum_) / (maximum_ - minimum_) * (endPixel_ - startPixel_) + startPixel_;
}

double Slider::x2v(double x) const {
    auto raw = [this](double at) {
        if (endPixel_ == startPixel_)
            return minimum_;
        return minimum_ + (at - startPixel_) / (endPixel_ - startPixel_) * (maximum_ - minimum_);
    };
    if (!roundedPixelValues_)
        return raw(x);
    if (x == startPixel_)
        return minimum_;
    if (x == endPixel_)
        return maximum_;
    double a = raw(x);
    double b = raw(x + 1);
    if (b > a)
        return std::max(roundDownToThousandths(b), a);
    return std::max(roundDownToThousandths(a), b);
}

// Changes

int Slider::setPosition(double value) {
    if (std::abs(position_ - value) < samePosition)
        return 0;
    position_ = value;
    return 1;
}

int Slider::changePosition(double value) {
    if (!setPosition(clampValue(value)))
        return 0;
    IdStamp stamp = getIdStamp();
    informParent(0);
    if (!EventHandler::valid(this, stamp))
        return 1;
    informParent(1);
    if (EventHandler::valid(this, stamp))
        update();
    return 1;
}

void Slider::nudge(bool up) {
    double step = getStep();
    if (setPosition(clampValue(position_ + (up ? step : -step))))
        completeChange();
}

void Slider::setNewWidgetValue(double& value, eRedrawFlag redraw) {
    if (setPosition(clampValue(value)) && redraw == Redraw)
        update();
}

void Slider::informParent(int kind) {
    if (callback_.hasCallback()) {
        auto event = Qor::makePtr<Event>(position_, kind == 1 ? Released : Changed);
        callback_.execute(NotifyMsg(callback_.message(), Qor::Ptr<iObject>(event)));
        return;
    }
    Glob* target = parent();
    if (target == nullptr)
        return;
    // The text is the same in every locale, so hosts can compare and parse it.
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << (kind == 1 ? "slider_released" : "slider") << ' ' << std::fixed << std::setprecision(6)
         << position_;
    sendMessage(LightweightString<char>(text.str().c_str()), target, static_cast<Glob*>(this));
}

bool Slider::informParentSafely(int kind) {
    IdStamp stamp = getIdStamp();
    informParent(kind);
    return EventHandler::valid(this, stamp);
}

bool Slider::completeChange() {
    if (!informParentSafely(0) || !informParentSafely(1))
        return false;
    update();
    // Last: the adaptor's other widgets may take this one away.
    requestSetNewDataValue(position_, SetByProgram);
    return true;
}

// Mouse

int Slider::react(::Event const& event) {
    if (!isActive() && !thumbHeld_)
        return Glob::react(event);
    if (thumbHeld_ && mouse_move_event(event))
        return reactToMove(event);
    if (thumbHeld_ && event.type == EventCode::LeftRelease)
        return reactToRelease();
    if (mouse_down_event(event) && mouse_chord_event(event) && !pointsOfInterest_.empty())
        return reactToChord();
    if (mouse_wheel_event(event)) {
        nudge(event.code >= 1);
        return 1;
    }
    if (event.type == EventCode::LeftPress) {
        if (!isOnThumb(event.pos))
            return reactToPressOffThumb(event);
        pickUpThumb(event);
        return 1;
    }
    return Glob::react(event);
}

void Slider::pickUpThumb(::Event const& event) {
    thumbHeld_ = true;
    changeKind_ = DragStart;
    grabOffset_ = int(std::lround(v2x(position_))) - along(event.pos);
}

int Slider::setSliderFromPixelPos(::Event const& event) {
    double x = std::clamp(double(along(event.pos) + grabOffset_), startPixel_, endPixel_);
    return setPosition(x2v(x));
}

int Slider::reactToMove(::Event const& event) {
    if (!setSliderFromPixelPos(event))
        return 1;
    if (!informParentSafely(0))
        return 1;
    auto kind = DataChangeType(changeKind_);
    changeKind_ = DragStep;
    update();
    requestSetNewDataValue(position_, kind);
    return 1;
}

int Slider::reactToRelease() {
    thumbHeld_ = false;
    bool moved = changeKind_ != DragStart;
    if (informParentSafely(1) && moved)
        requestSetNewDataValue(position_, DragEnd);
    return 1;
}

int Slider::reactToChord() {
    double target = getPointOfInterest();
    thumbHeld_ = false;
    if (setPosition(target))
        completeChange();
    return 1;
}

int Slider::reactToPressOffThumb(::Event const& event) {
    double x = std::clamp(double(along(event.pos)), startPixel_, endPixel_);
    if (setPosition(clampValue(x2v(x))))
        completeChange();
    return 1;
}

// Geometry

int Slider::along(XY<int> const& p) const {
    return orientation_ == OrientationHorizontal ? p.x : p.y;
}

int Slider::length() const {
    return orientation_ == OrientationHorizontal ? width() : height();
}

double Slider::clampValue(double value) const {
    return std::clamp(value, std::min(minimum_, maximum_), std::max(minimum_, maximum_));
}

bool Slider::isOnThumb(XY<int> const& p) const {
    return thumbBox().contains(p);
}

namespace {

// A box from spans along the slider and across it.
Box orientedBox(::Orientation orientation, int a1, int c1, int a2, int c2) {
    return orientation == OrientationHorizontal ? Box(a1, c1, a2, c2) : Box(c1, a1, c2, a2);
}

} // namespace

Box Slider::channelBox() const {
    int across = orientation_ == OrientationHorizontal ? height() : width();
    int thickness = UifStd::getWidgetGap() + 1;
    int c1 = (across - thickness) / 2;
    int indent = UifStd::getIndentWidth();
    return orientedBox(orientation_, indent, c1, length() - indent, c1 + thickness);
}

Box Slider::thumbBox() const {
    int across = orientation_ == OrientationHorizontal ? height() : width();
    int centre = int(std::lround(v2x(position_)));
    int indent = UifStd::getIndentWidth();
    return orientedBox(orientation_, centre - thumbHalfWidth_, indent, centre + thumbHalfWidth_ + 1,
                       across - indent);
}

// Drawing

void Slider::drawBackground() {
    fillRect(face(), getCol());
    drawChannel();
    drawThumb();
}

void Slider::drawChannel() {
    CanvasRenderer& r = canvas()->renderer();
    Palette const& p = getPalette();
    Box channel = channelBox();
    Glib::drawRoundedRect(r, p.childWindow(ChildWindowInset), getIndentBoxColour(getCol()), channel,
                          2, 15, 1);
    // The run up to the thumb is filled, so the value reads at a glance.
    int centre = int(std::lround(v2x(position_)));
    Box filled = orientation_ == OrientationHorizontal
                     ? Box(channel.x1, channel.y1, centre, channel.y2)
                     : Box(channel.x1, channel.y1, channel.x2, centre);
    if (!filled.isEmpty())
        Glib::drawRoundedRectFilled(r, p.selection(isActive() ? SelectionNormal : SelectionFaint),
                                    filled.inset(1), 15);
    Colour tick = p.text(TextFaint);
    // Ticks stand below (or left of) the channel.
    int tickEnd = orientation_ == OrientationHorizontal ? channel.y1 : channel.x1;
    for (PointOfInterest const& point : pointsOfInterest_) {
        int at = int(std::lround(v2x(point.value)));
        fillRect(orientedBox(orientation_, at, UifStd::getIndentWidth(), at + 1, tickEnd - 1),
                 tick);
    }
}

void Slider::drawThumb() {
    CanvasRenderer& r = canvas()->renderer();
    Palette const& p = getPalette();
    Box thumb = thumbBox();
    Colour face = isActive() ? p.window(WindowShadeLightest) : p.window(WindowShadeLight);
    Glib::drawRoundedRect(r, face, p.window(WindowShadeDarkest), thumb, 2, 15, 1);
    // A line of the thumb colour marks the exact value.
    Colour mark = isActive() ? thumbColour_ : Colour::mix(thumbColour_, getCol(), 0.6);
    int centre = int(std::lround(v2x(position_)));
    int inset = UifStd::getWidgetGap();
    Box line = orientation_ == OrientationHorizontal
                   ? Box(centre, thumb.y1 + inset, centre + 1, thumb.y2 - inset)
                   : Box(thumb.x1 + inset, centre, thumb.x2 - inset, centre + 1);
    fillRect(line, mark);
}
