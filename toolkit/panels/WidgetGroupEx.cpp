#include "panels/WidgetGroupEx.h"

#include "glib/UpdateDeferrer.h"
#include "glob/UifStd.h"

#include <algorithm>

namespace {
WidgetGroupEx::InitArgs extendedArgs(WidgetGroup::InitArgs const& args) {
    WidgetGroupEx::InitArgs extended;
    static_cast<WidgetGroup::InitArgs&>(extended) = args;
    return extended;
}
} // namespace

WidgetGroupEx::WidgetGroupEx(InitArgs const& args) : WidgetGroup(args) {
    init(args);
}

WidgetGroupEx::WidgetGroupEx(WidgetGroup::InitArgs const& args) : WidgetGroup(args) {
    init(extendedArgs(args));
}

void WidgetGroupEx::init(InitArgs const& args) {
    autoResize_ = args.autoResize;
    setSeparatorStyle(args.separatorStyle);
    setWidget(nullptr, args.title.getString(), TextAlignLeft, args.editableTitle);
}

int WidgetGroupEx::childXOffset() {
    return 3 * UifStd::getWidgetGap();
}

int WidgetGroupEx::calcHeightForRows(int rows, int rowHeight, int gap, eSeparatorStyle style) {
    int height = (rows - 1) * gap + rows * rowHeight + UifStd::getRowHeight();
    return style == SeparatorOpen ? height : height + UifStd::getWidgetGap();
}

void WidgetGroupEx::setGroupTitle(LightweightString<wchar_t> const& title, bool redraw) {
    WidgetGroup::setGroupTitle(title, isTitleBold(), redraw);
}

void WidgetGroupEx::setGroupTitleColour(Colour const& colour) {
    Palette withHeading = getPalette();
    withHeading.setHeadingText(colour);
    setPalette(withHeading);
    if (Glob* title = getTitleWidget()) {
        title->setPalette(makeTextPalette(title->getPalette(), colour));
        title->update();
    }
}

void WidgetGroupEx::setBoldText(bool bold) {
    WidgetGroup::setGroupTitle(getGroupTitle(), bold, true);
}

void WidgetGroupEx::setChildrenOffset(int offset) {
    childOffset_ = offset;
    positionChildWidgets();
    update();
}

void WidgetGroupEx::setFont(Glib::FontDesc const& font) {
    WidgetGroup::setFont(font);
    if (!getGroupTitle().empty())
        setGroupTitle(getGroupTitle(), true);
}

void WidgetGroupEx::setWidget(Glob* widget, LightweightString<wchar_t> const& title,
                              TextAlignment alignment, bool editable) {
    titleWidget_ = widget;
    titleStamp_ = widget != nullptr ? widget->getIdStamp() : IdStamp::null();
    titleAlignment_ = alignment;
    placeTitleWidget();
    if (title.empty())
        return;
    WidgetGroup::setGroupTitle(title, isTitleBold(), false);
    addStandardWidgets(editable ? EditableTitle : Title);
    setEditableTitle(editable);
}

Glob* WidgetGroupEx::getTitleWidget() const {
    return EventHandler::valid(titleWidget_, titleStamp_) ? titleWidget_ : nullptr;
}

bool WidgetGroupEx::isTitle(Glob const* widget) const {
    return widget != nullptr && (widget == getTitleWidget() || isStandardWidget(widget));
}

// The title widget sits in the title row, centred on it from top to bottom.
void WidgetGroupEx::placeTitleWidget() {
    Glob* title = getTitleWidget();
    if (title == nullptr)
        return;
    int gap = UifStd::getWidgetGap();
    int y = std::max(0, (titleRowHeight() - title->height()) / 2);
    switch (titleAlignment_) {
    case TextAlignRight:
        addChild(title, TopRight(gap, y));
        break;
    case TextAlignCentre:
        addChild(title, TopLeft(std::max(0, (width() - title->width()) / 2), y));
        break;
    default:
        addChild(title, TopLeft(gap, y));
        break;
    }
}

void WidgetGroupEx::setSeparatorStyle(eSeparatorStyle style) {
    bool atMinimum = height() == getMinSize().y;
    separatorStyle_ = style;
    setMinSize(0, UifStd::getRowHeight());
    if (atMinimum)
        resize(width(), getMinSize().y);
    // The title's background follows the face, which the style changes.
    setPalette(getPalette());
    update();
}

void WidgetGroupEx::resizeToAccomodateWidget(WidgetDetails const& details) {
    if (!autoResize_)
        return;
    int bottom = getAbsRect(details).y1;
    int border = getBorder().getSize();
    if (bottom >= border)
        return;
    int growth = border - bottom;
    resize(width(), height() + growth);
    notifyResized(XY<int>(0, growth));
}

void WidgetGroupEx::resizeToAccomodateWidget(Glob* widget) {
    if (WidgetDetails* details = getWidget(widget))
        resizeToAccomodateWidget(*details);
}

void WidgetGroupEx::handleWidgetAdded(WidgetDetails const& details) {
    resizeToAccomodateWidget(details);
}

void WidgetGroupEx::setWidgetActive(bool active, bool redraw) {
    Glob* title = getTitleWidget();
    if (title == nullptr || title->isActive() == active)
        return;
    title->setActive(active, redraw ? Redraw : NoRedraw);
}

void WidgetGroupEx::setWidgetsActive(bool active, eRedrawFlag redraw) {
    Glib::UpdateDeferrer deferred(canvas());
    std::vector<Glob*> children;
    getChildren(children);
    for (Glob* child : children)
        if (!isTitle(child))
            child->setActive(active, redraw);
}

void WidgetGroupEx::setActive(bool active, eRedrawFlag redraw) {
    Glib::UpdateDeferrer deferred(canvas());
    WidgetGroup::setActive(active, redraw);
    setWidgetActive(active, redraw == Redraw);
}

void WidgetGroupEx::recolourChildren(WidgetGroupEx* group) {
    std::vector<Glob*> children;
    group->getChildren(children);
    for (Glob* child : children) {
        child->setPalette(group->getPalette());
        if (auto* nested = dynamic_cast<WidgetGroupEx*>(child))
            recolourChildren(nested);
    }
}

XY<int> WidgetGroupEx::getOriginXY(eCoordinateOrigin origin) const {
    XY<int> p = StandardPanel::getOriginXY(origin);
    if (origin == OriginUserTopLeft || origin == OriginUserTopRight)
        p.y = height() - (titleRowHeight() + getBorder().getSize());
    if (origin == OriginUserBottomLeft || origin == OriginUserTopLeft)
        p.x += childOffset_;
    return p;
}

Box WidgetGroupEx::getUserArea() const {
    XY<int> from = getOriginXY(OriginUserBottomLeft);
    XY<int> to = getOriginXY(OriginUserTopRight);
    return Box(from.x, from.y, to.x, to.y);
}

void WidgetGroupEx::resize(double w, double h) {
    WidgetGroup::resize(w, h);
    if (titleAlignment_ == TextAlignCentre)
        placeTitleWidget();
}

// An open group has no well: the window's own colour shows.
void WidgetGroupEx::drawBackground() {
    if (separatorStyle_ == SeparatorOpen)
        rect::drawBackground();
    else
        WidgetGroup::drawBackground();
}

Colour WidgetGroupEx::faceColour() const {
    if (separatorStyle_ == SeparatorOpen)
        return getPalette().window(WindowShadeBase);
    return WidgetGroup::faceColour();
}

void WidgetGroupEx::drawBorder() {
    if (canvas() == nullptr)
        return;
    if (separatorStyle_ != SeparatorNone)
        drawSeparator();
}

// An etched line: dark above light, one pixel each.
void WidgetGroupEx::drawSeparator() {
    Colour base = getPalette().window(WindowShadeBase);
    int y = height() - titleRowHeight();
    int gap = UifStd::getWidgetGap();
    fillRect(Box(gap, y, width() - gap, y + 1), scale(base, 0.6));
    fillRect(Box(gap, y - 1, width() - gap, y), scale(base, 1.4));
}
