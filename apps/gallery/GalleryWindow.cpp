#include "GalleryWindow.h"

#include "glib/DrawingHelpers.h"
#include "glob/GlobManager.h"
#include "glob/UifStd.h"

#include <cstring>

GalleryWindow::GalleryWindow(XY<int> const& size)
    : Glob(GlobCreationInfo((unsigned short)size.x, (unsigned short)size.y)) {
    setPalette(UifStd::getColourScheme());
}

int GalleryWindow::tabHeight() const {
    return UifStd::getRowHeight() + 2 * UifStd::getWidgetGap();
}

// Each tab is as wide as its title and a row height of padding.
Box GalleryWindow::tabBox(unsigned index) const {
    int gap = UifStd::getWidgetGap();
    Qor::Ptr<iFont> font = Glib::loadFont(UifStd::getFont());
    auto tabWidth = [&](unsigned i) {
        return font->measure(pages_[i]->title()).x + UifStd::getRowHeight();
    };
    int x = gap;
    for (unsigned i = 0; i < index; ++i)
        x += tabWidth(i) + gap;
    return Box(x, height() - tabHeight() + gap, x + tabWidth(index), height() - gap);
}

void GalleryWindow::showPage(unsigned index) {
    if (index >= pages_.size())
        return;
    current_ = index;
    for (unsigned i = 0; i < pages_.size(); ++i)
        if (i == index)
            pages_[i]->mapCanvas();
        else
            pages_[i]->unmapCanvas();
    setTitleText(LightweightString<wchar_t>(L"Panelkit gallery — ") + pages_[index]->title());
    pages_[index]->shown();
    update();
}

void GalleryWindow::drawBackground() {
    Glob::drawBackground();
    drawTabs();
}

void GalleryWindow::drawTabs() {
    CanvasRenderer& r = canvas()->renderer();
    Palette const& p = getPalette();
    Glib::RectDescription strip;
    strip.box = Box(0, height() - tabHeight(), width(), height());
    strip.gradient = true;
    strip.colour = fromColour(p.window(WindowShadeLighter));
    strip.bottomColour = fromColour(p.window(WindowShadeDark));
    r.renderPrimitive(strip);
    Qor::Ptr<iFont> font = Glib::loadFont(UifStd::getFont());
    for (unsigned i = 0; i < pages_.size(); ++i) {
        Box b = tabBox(i);
        bool current = i == current_;
        Glib::drawRoundedRect(r, current ? p.selection() : p.window(WindowShadeLight),
                              p.window(WindowShadeDarker), b, 2, 15, 1);
        Glib::TextDescription t;
        t.text = pages_[i]->title();
        t.font = font;
        t.colour = fromColour(current ? p.selectedText() : p.text());
        t.alignment = Glib::TextDescription::Centre;
        t.origin = XY<int>((b.x1 + b.x2) / 2, b.y1 + getFontYOffset(b.height(), font));
        r.renderPrimitive(t);
    }
}

int GalleryWindow::react(Event const& event) {
    if (isMessageEvent(event) && std::strcmp(event.msg.c_str(), "poot") == 0) {
        GlobManager::instance().requestDeletion(this);
        return 1;
    }
    if (mouse_left_event(event) && mouse_down_event(event)) {
        for (unsigned i = 0; i < pages_.size(); ++i)
            if (tabBox(i).contains(event.pos)) {
                showPage(i);
                return 1;
            }
    }
    if (isKeyPressEvent(event) && !pages_.empty()) {
        unsigned n = unsigned(pages_.size());
        if (event.keyCode() == KeyCodes::Right || event.keyCode() == KeyCodes::Tab) {
            showPage((current_ + 1) % n);
            return 1;
        }
        if (event.keyCode() == KeyCodes::Left ||
            event.keyCode() == (KeyCodes::Shift | KeyCodes::Tab)) {
            showPage((current_ + n - 1) % n);
            return 1;
        }
    }
    return Glob::react(event);
}
