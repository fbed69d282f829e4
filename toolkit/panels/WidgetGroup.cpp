#include "panels/WidgetGroup.h"

#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glib/UpdateDeferrer.h"
#include "glob/UifStd.h"

namespace {
StandardPanel::InitArgs panelArgs(GlobCreationInfo const& info) {
    StandardPanel::InitArgs args;
    static_cast<GlobCreationInfo&>(args) = info;
    return args;
}
} // namespace

WidgetGroup::WidgetGroup(InitArgs const& args) : StandardPanel(args) {
    init(args.title);
}

WidgetGroup::WidgetGroup(UIString const& title, GlobCreationInfo const& info)
    : StandardPanel(panelArgs(info)) {
    init(title);
}

void WidgetGroup::init(UIString const& title) {
    boldTitle_ = false;
    setResizable(false);
    setMovable(false);
    setBorderStyle(Border::RoundedIndented);
    setGroupTitle(title.getString(), false, false);
}

void WidgetGroup::setGroupTitle(LightweightString<wchar_t> const& title, bool bold, bool redraw) {
    groupTitle_ = title;
    boldTitle_ = bold;
    if (title.empty()) {
        removeStandardWidgets(Title | EditableTitle, true);
        return;
    }
    setTitle(UIString(title), getTitleFont(), redraw ? Redraw : NoRedraw);
}

Glib::FontDesc WidgetGroup::getTitleFont() const {
    Glib::FontDesc font = getFont().isEmpty() ? UifStd::getSubheadingFont() : getFont();
    if (boldTitle_)
        font.style |= Glib::FontDesc::Bold;
    else
        font.style &= ~unsigned(Glib::FontDesc::Bold);
    return font;
}

void WidgetGroup::setWidgetsActive(bool active, eRedrawFlag redraw) {
    Glib::UpdateDeferrer deferred(canvas());
    std::vector<Glob*> children;
    getChildren(children);
    for (Glob* child : children)
        child->setActive(active, redraw);
}

void WidgetGroup::setActive(bool active, eRedrawFlag redraw) {
    Glib::UpdateDeferrer deferred(canvas());
    Glob::setActive(active, NoRedraw);
    setWidgetsActive(active, redraw);
}

void WidgetGroup::handleTitleChange() {
    groupTitle_ = getTitleW();
}
