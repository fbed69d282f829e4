#include "panels/WidgetHost.h"

#include "glib/CanvasRenderer.h"
#include "glob/UifStd.h"

WidgetHost::WidgetHost(InitArgs const& args) : StandardPanel(args) {}

int WidgetHost::hostedWidgetCount() const {
    std::vector<Glob*> children;
    getChildren(children);
    int count = 0;
    for (Glob* child : children)
        count += isStandardWidget(child) ? 0 : 1;
    return count;
}

void WidgetHost::handleWidgetAdded(WidgetDetails const& details) {
    StandardPanel::handleWidgetAdded(details);
    if (!isStandardWidget(details.widget))
        handleHostedWidgetsChanged();
}

void WidgetHost::removeWidget(Glob*& child, bool destroy) {
    bool hosted = child != nullptr && !isStandardWidget(child);
    StandardPanel::removeWidget(child, destroy);
    if (hosted)
        handleHostedWidgetsChanged();
}

WidgetBg::WidgetBg(InitArgs const& args) : WidgetHost(args), caption_(args.caption) {}

void WidgetBg::setCaption(UIString const& caption) {
    caption_ = caption;
    update();
}

void WidgetBg::drawBackground() {
    WidgetHost::drawBackground();
    if (hostedWidgetCount() > 0 || caption_.getString().empty())
        return;
    Qor::Ptr<iFont> font = Glib::loadFont(UifStd::getFont());
    Box area = getUserArea();
    Glib::TextDescription t;
    t.text = Glib::fitTextToWidth(font, caption_.getString(), area.width());
    t.font = font;
    t.colour = fromColour(getPalette().text(TextFaint));
    t.alignment = Glib::TextDescription::Centre;
    t.origin = XY<int>(area.x1 + area.width() / 2, area.y1 + getFontYOffset(area.height(), font));
    canvas()->renderer().renderPrimitive(t);
}
