#include "panels/TitleGlob.h"

#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glob/UifStd.h"

#include <algorithm>

TitleGlob::TitleGlob(InitArgs const& args)
    : StandardPanel(args), titleWidth_(args.titleWidth), title_(args.title) {}

void TitleGlob::setFont(Glib::FontDesc const& font) {
    StandardPanel::setFont(font);
    layoutChild();
    update();
}

void TitleGlob::setTitle(LightweightString<wchar_t> const& title) {
    title_ = title;
    layoutChild();
    update();
}

void TitleGlob::setLabelColour(Colour const& colour) {
    labelColour_ = colour;
    update();
}

void TitleGlob::setTitleWidth(int width) {
    titleWidth_ = width;
    layoutChild();
    update();
}

void TitleGlob::setTitleAlignment(TextAlignment alignment) {
    alignment_ = alignment;
    update();
}

void TitleGlob::setShowSeparator(bool show) {
    separator_ = show;
    update();
}

Qor::Ptr<iFont> TitleGlob::labelFont() const {
    return Glib::loadFont(getFont().isEmpty() ? UifStd::getFont() : getFont());
}

int TitleGlob::calcTitleAreaWidth() const {
    if (titleWidth_ > 0)
        return titleWidth_;
    if (title_.empty())
        return 0;
    return labelFont()->measure(title_).x + 2 * UifStd::getWidgetGap();
}

Glob* TitleGlob::getChild() const {
    return EventHandler::valid(child_, childStamp_) ? child_ : nullptr;
}

void TitleGlob::setChild(Glob* child) {
    child_ = child;
    childStamp_ = child != nullptr ? child->getIdStamp() : IdStamp::null();
    if (child != nullptr)
        child->setPalette(getPalette());
    layoutChild();
}

void TitleGlob::layoutChild() {
    Glob* child = getChild();
    if (child == nullptr)
        return;
    int border = getBorder().getSize();
    int room = std::max(1, width() - calcTitleAreaWidth() - border);
    if (room != child->width())
        child->resize(room, child->height());
    addChild(child, RightCentre(border, 0));
}

void TitleGlob::setPalette(Palette const& palette) {
    StandardPanel::setPalette(palette);
    if (Glob* child = getChild())
        child->setPalette(palette);
}

void TitleGlob::setActive(bool active, eRedrawFlag redraw) {
    Glob::setActive(active, redraw);
    if (Glob* child = getChild())
        child->setActive(active, redraw);
}

void TitleGlob::claimKbdFocus() {
    if (Glob* child = getChild())
        child->claimKbdFocus();
    else
        StandardPanel::claimKbdFocus();
}

void TitleGlob::resize(double w, double h) {
    StandardPanel::resize(w, h);
    layoutChild();
}

void TitleGlob::setBorderStyle(Border::eType type) {
    StandardPanel::setBorderStyle(type);
    layoutChild();
}

bool TitleGlob::isEventSource(Event const& event) const {
    Glob* sender = event_to_sender_glob(event);
    if (sender == nullptr)
        return false;
    Glob* child = getChild();
    return sender == this || (child != nullptr && isParentedTo(sender, child));
}

void TitleGlob::drawBackground() {
    Glob::drawBackground();
    CanvasRenderer& r = canvas()->renderer();
    int area = calcTitleAreaWidth();
    int gap = UifStd::getWidgetGap();
    Qor::Ptr<iFont> font = labelFont();
    Glib::TextDescription t;
    t.text = Glib::fitTextToWidth(font, title_, area - 2 * gap);
    t.font = font;
    Colour colour = labelColour_.isSet() ? labelColour_ : getPalette().text();
    t.colour = fromColour(isActive() ? colour : Colour::mix(colour, getCol(), 0.5));
    int x = gap;
    if (alignment_ == TextAlignRight) {
        t.alignment = Glib::TextDescription::Right;
        x = area - gap;
    } else if (alignment_ == TextAlignCentre) {
        t.alignment = Glib::TextDescription::Centre;
        x = area / 2;
    }
    t.origin = XY<int>(x, getFontYOffset(height(), font));
    r.renderPrimitive(t);
    if (separator_)
        if (Glob* child = getChild())
            drawTitleButtonSeparator(r, getWidgetBounds(child).translated(-2, 0));
}
