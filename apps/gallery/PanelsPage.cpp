#include "PanelsPage.h"

#include "glib/DrawingHelpers.h"
#include "glob/UifStd.h"

#include <cstring>

FocusField::FocusField(GlobCreationInfo const& info, wchar_t const* label)
    : Glob(info), label_(label) {}

bool FocusField::isTabStopActive() {
    return isActive() && isVisible() && canvas()->isMappedToRoot();
}

void FocusField::handleTabStopFocusReceipt(eDirection) {
    if (get_kbd_focus() != this)
        claimKbdFocus();
    update();
}

void FocusField::handleTabStopFocusLoss() {
    update();
}

// Focus that comes by a click makes this the form's current field too.
void FocusField::handleKbdFocus() {
    if (get_kbd_focus() == this && !isTabStopFocus())
        setTabStopFocus();
    update();
}

int FocusField::react(Event const& event) {
    if (event.type == EventCode::LeftPress) {
        claimKbdFocus();
        return 1;
    }
    return Glob::react(event);
}

void FocusField::drawBackground() {
    CanvasRenderer& r = canvas()->renderer();
    Palette const& p = getPalette();
    bool focused = get_kbd_focus() == this;
    Glib::drawIndentBox(r, p.childWindow(ChildWindowInset), face());
    Qor::Ptr<iFont> font = Glib::loadFont(UifStd::getFont());
    Glib::TextDescription t;
    t.text = label_;
    t.font = font;
    t.colour = fromColour(p.text());
    t.origin = XY<int>(6, getFontYOffset(height(), font));
    r.renderPrimitive(t);
    if (focused)
        Glib::drawFocusRect(r, face().inset(2), p.selection());
}

PanelsPage::PanelsPage(GlobCreationInfo const& info) : GalleryPage(info) {
    struct Sample {
        Border::eType type;
        unsigned style;
        wchar_t const* label;
    } const samples[] = {
        {Border::Line, Border::DarkEdge, L"Line, dark edge"},
        {Border::Attached, Border::DarkEdge | Border::LightEdge, L"Attached, both edges"},
        {Border::Curved, 0, L"Curved"},
        {Border::Inset, Border::LightEdge, L"Inset, light edge"},
        {Border::Bevelled, Border::DarkEdge | Border::LightEdge, L"Bevelled, both edges"},
        {Border::Panel, Border::TitleArea, L"Panel with a title area"},
        {Border::RoundedIndented, 0, L"Rounded, indented"},
        {Border::Narrow, Border::StatusArea, L"Narrow with a status area"},
    };
    int const w = 220, h = 130, gap = 24;
    int row = 0, col = 0;
    for (auto const& s : samples) {
        XY<int> at(24 + col * (w + gap), top() - 40 - h - row * (h + 44));
        Border border(s.type, 0, Border::AllEdges);
        border.style = s.style;
        addPanel(at, XY<int>(w, h), border);
        addLabel(s.label, XY<int>(at.x, at.y + h + 6));
        if (++col == 3) {
            col = 0;
            ++row;
        }
    }
    addForm(XY<int>(24 + 2 * (w + gap), top() - 40 - h - 2 * (h + 44)));
}

StandardPanel* PanelsPage::addPanel(XY<int> const& at, XY<int> const& size, Border const& border) {
    StandardPanel::InitArgs args((unsigned short)size.x, (unsigned short)size.y);
    args.canvas = canvas();
    args.palette = getPalette();
    args.border = border;
    auto* panel = new StandardPanel(args);
    addWidget(panel, at.x, at.y);
    return panel;
}

void PanelsPage::addForm(XY<int> const& at) {
    StandardPanel* form =
        addPanel(at, XY<int>(220, 130), Border(Border::Panel, 0, Border::AllEdges));
    form_ = form;
    wchar_t const* names[] = {L"Name", L"Street", L"Town"};
    unsigned order = 0;
    for (wchar_t const* name : names) {
        GlobCreationInfo info(180, 26);
        info.canvas = form->canvas();
        info.palette = getPalette();
        auto* field = new FocusField(info, name);
        form->addChild(field, Glob::UserTopLeft(10, 10 + int(order) * 34));
        form->addTabStop(*field, order++);
    }
    addLabel(L"A form: Tab and Shift+Tab move the focus", XY<int>(at.x, at.y + 136));
}

// A shade darker than the panels, so that their edges show.
void PanelsPage::drawBackground() {
    fillRect(face(), getPalette().window(WindowShadeDark));
}

void PanelsPage::drawWidgets() {
    // The form shows its focus on its first field when it is first seen.
    if (form_->getCurrentTabStopIndex() == TabOrderManager::None)
        form_->setTabStopFocus(0u);
    GalleryPage::drawWidgets();
}
