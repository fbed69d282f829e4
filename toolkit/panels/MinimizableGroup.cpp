#include "panels/MinimizableGroup.h"

#include "buttons/SizeButton.h"
#include "glob/UifStd.h"

#include <algorithm>

namespace {
MinimizableGroup::InitArgs groupArgs(LightweightString<wchar_t> const& title, bool sizeButton,
                                     GlobCreationInfo const& info) {
    MinimizableGroup::InitArgs args;
    static_cast<GlobCreationInfo&>(args) = info;
    args.title = UIString(title);
    args.sizeButton = sizeButton;
    return args;
}

GlobCreationInfo onCanvas(unsigned short w, unsigned short h, Canvas* canvas) {
    GlobCreationInfo info(w, h);
    info.canvas = canvas;
    return info;
}
} // namespace

MinimizableGroup::MinimizableGroup(LightweightString<wchar_t> const& title, unsigned short w,
                                   unsigned short h, Canvas* canvas)
    : MinimizableGroup(groupArgs(title, true, onCanvas(w, h, canvas))) {}

MinimizableGroup::MinimizableGroup(LightweightString<wchar_t> const& title, bool sizeButton,
                                   GlobCreationInfo const& info)
    : MinimizableGroup(groupArgs(title, sizeButton, info)) {}

MinimizableGroup::MinimizableGroup(InitArgs const& args) : WidgetGroupEx(args) {
    init(args.sizeButton);
}

void MinimizableGroup::init(bool withSizeButton) {
    storedHeight_ = std::max<int>(UifStd::getRowHeight(), getMinSize().y);
    if (withSizeButton) {
        int side = std::max(1, getMinSize().y - 2 * UifStd::getIndentWidth());
        SizeButton::InitArgs args((unsigned short)side, (unsigned short)side,
                                  SizeButton::TextAppearance);
        args.canvas = canvas();
        args.palette = getPalette();
        sizeButton_ = new SizeButton(args);
    }
    placeSizeButton();
    placeTitleWidget();
}

// The size button leads the title row, so that the title text follows it.
void MinimizableGroup::placeSizeButton() {
    if (sizeButton_ == nullptr)
        return;
    Glob* button = sizeButton_;
    StandardPanel::removeWidget(button, false);
    bool framed = getBorder().type != Border::None;
    addStatusWidget(sizeButton_, (unsigned short)(framed ? UifStd::getIndentWidth() : 0));
}

void MinimizableGroup::placeTitleWidget() {
    Glob* title = getTitleWidget();
    if (title == nullptr)
        return;
    if (sizeButton_ == nullptr) {
        WidgetGroupEx::placeTitleWidget();
        return;
    }
    bool framed = getBorder().type != Border::None;
    addChild(title, RightOf(framed ? UifStd::getWidgetGap() : 0, sizeButton_));
}

bool MinimizableGroup::isCoordinateInSizeToggleArea(XY<int> const& point) const {
    return point.y > height() - getMinSize().y;
}

bool MinimizableGroup::widgetVisibilityCanChange(Glob const* widget) const {
    return widget != sizeButton_ && !isTitle(widget);
}

void MinimizableGroup::setSize(eSizeState state) {
    if (state != sizeState_) {
        setSizeState(state);
        mapWidgets(state == SizeNormal);
        int current = height();
        if (state == SizeSmall)
            resize(width(), std::max<int>(UifStd::getRowHeight(), getMinSize().y));
        else
            resize(width(), storedHeight_);
        storedHeight_ = current;
    }
    if (sizeButton_ != nullptr)
        sizeButton_->set_size(state == SizeSmall);
}

void MinimizableGroup::handleFlipSize() {
    setSize(isFolded() ? SizeNormal : SizeSmall);
    notifyResized(XY<int>(0, height() - storedHeight_));
}

void MinimizableGroup::mapWidgets(bool show) {
    if (show) {
        for (unsigned short i = 0; i < widgetCount(); ++i) {
            Glob* widget = getWidget(i);
            if (widgetVisibilityCanChange(widget)) {
                widget->setVisible(true);
                widget->mapCanvas();
            }
        }
        return;
    }
    for (unsigned short i = 2; i < widgetCount(); ++i)
        getWidget(i)->unmapCanvas();
}

// While folded, a widget is measured against the open layout: children hung from the top sit
// lower there by the difference of the two heights.
void MinimizableGroup::handleWidgetAdded(WidgetDetails const& details) {
    if (!isFolded()) {
        WidgetGroupEx::handleWidgetAdded(details);
        return;
    }
    if (widgetVisibilityCanChange(details.widget))
        details.widget->unmapCanvas();
    if (!isAutoResize())
        return;
    int bottom = getAbsRect(details).y1;
    eCoordinateOrigin origin = details.getOrigin();
    bool fromBottom = !details.isRelative() &&
                      (origin == OriginBottomLeft || origin == OriginBottomRight ||
                       origin == OriginUserBottomLeft || origin == OriginUserBottomRight);
    if (!fromBottom)
        bottom += storedHeight_ - height();
    int border = getBorder().getSize();
    if (bottom < border)
        storedHeight_ += border - bottom;
}

void MinimizableGroup::handleChildResize(Glob const*, XY<int> const& change) {
    if (isFolded())
        storedHeight_ += change.y;
    else
        resize(width(), height() + change.y);
}

void MinimizableGroup::setMinSize(unsigned short w, unsigned short h) {
    WidgetGroupEx::setMinSize(w, h);
    if (sizeButton_ != nullptr)
        sizeButton_->resize(sizeButton_->width(), std::max(1, h - 2 * UifStd::getIndentWidth()));
}

void MinimizableGroup::setBorderStyle(Border::eType type) {
    WidgetGroupEx::setBorderStyle(type);
    placeSizeButton();
    placeTitleWidget();
}

bool MinimizableGroup::sizeButtonActive() const {
    return sizeButton_ != nullptr && sizeButton_->isActive();
}

int MinimizableGroup::handleMouseEvent(Event const& event) {
    if (!mouse_left_event(event) || !sizeButtonActive())
        return 0;
    if (!isCoordinateInSizeToggleArea(screenXYToGlobXY(event.rootPos)) ||
        !isCoordinateInSizeToggleArea(screenXYToGlobXY(event.startRootPos)))
        return 0;
    if (mouse_up_event(event))
        handleFlipSize();
    return 1;
}

MouseCursorID MinimizableGroup::contextCursor(XY<int> const& rootPos) {
    if (sizeButtonActive() && isCoordinateInSizeToggleArea(screenXYToGlobXY(rootPos)))
        return CursorHand;
    return CursorArrow;
}

void MinimizableGroup::setGroupTitleColour(Colour const& colour) {
    WidgetGroupEx::setGroupTitleColour(colour);
    if (sizeButton_ != nullptr) {
        sizeButton_->setPalette(makeTextPalette(sizeButton_->getPalette(), colour));
        sizeButton_->update();
    }
}

void MinimizableGroup::setCol(Colour const& colour, bool redraw) {
    WidgetGroupEx::setCol(colour, redraw);
    if (sizeButton_ != nullptr)
        sizeButton_->setPalette(makeTextPalette(sizeButton_->getPalette(), getPalette().text(1)));
}

void MinimizableGroup::setSizeChangeEnabled(bool enabled) {
    if (sizeButton_ != nullptr)
        sizeButton_->setActive(enabled, NoRedraw);
}
