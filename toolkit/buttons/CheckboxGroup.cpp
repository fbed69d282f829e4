#include "buttons/CheckboxGroup.h"

#include "glib/UpdateDeferrer.h"
#include "glob/UifStd.h"

char const* const CheckboxGroup::clickedMsg = "CheckboxGroupClicked";

namespace {

// The group's own title row stays empty: the box shows the title.
WidgetGroupEx::InitArgs untitled(CheckboxGroup::InitArgs const& args) {
    WidgetGroupEx::InitArgs plain = args;
    plain.title = UIString(L"");
    return plain;
}

} // namespace

CheckboxGroup::CheckboxGroup(InitArgs const& args) : WidgetGroupEx(untitled(args)) {
    init(args.title, args.state);
}

void CheckboxGroup::init(UIString const& text, bool state) {
    int const width = Checkbox::calcWidth(text, Border::None, Checkbox::SquareWell, true);
    Checkbox::InitArgs args(text, state, (unsigned short)width, UifStd::getRowHeight());
    args.canvas = canvas();
    args.palette = getPalette();
    auto* box = new Checkbox(args);
    box->setTickPosition(Checkbox::TickLeft);
    box->setBorderStyle(Border::None);
    box->set_radius(4.0);
    checkbox_ = box;
    setWidget(box, LightweightString<wchar_t>(), TextAlignLeft, false);
}

std::vector<Glob*> CheckboxGroup::controls() const {
    std::vector<Glob*> children;
    getChildren(children);
    std::vector<Glob*> out;
    for (Glob* child : children)
        if (child != checkbox_ && !isTitle(child))
            out.push_back(child);
    return out;
}

void CheckboxGroup::setState(bool value, bool notify) {
    checkbox_->setState(value, notify);
    handleStateChange(notify);
}

void CheckboxGroup::setCheckboxAppearance(Checkbox::eAppearance appearance) {
    checkbox_->setAppearance(appearance);
}

void CheckboxGroup::useBoldText() {
    Glib::FontDesc font = checkbox_->getFont();
    font.style |= Glib::FontDesc::Bold;
    checkbox_->setFont(font);
    checkbox_->update();
}

void CheckboxGroup::handleStateChange(bool redraw) {
    Glib::UpdateDeferrer deferred(nullptr);
    bool const active = getState() && isActive();
    for (Glob* control : controls())
        control->setActive(active, redraw ? Redraw : NoRedraw);
}

// The group's own activity reaches the controls only while the box is ticked.
void CheckboxGroup::setWidgetsActive(bool active, eRedrawFlag redraw) {
    Glib::UpdateDeferrer deferred(nullptr);
    for (Glob* control : controls())
        control->setActive(active && getState(), redraw);
}

void CheckboxGroup::handleWidgetAdded(WidgetDetails const& details) {
    WidgetGroupEx::handleWidgetAdded(details);
    if (checkbox_ != nullptr && details.widget != checkbox_ && !isTitle(details.widget))
        details.widget->setActive(getState() && isActive(), NoRedraw);
}

void CheckboxGroup::getTabOrderables(std::vector<TabOrderable*>& out) {
    out.push_back(checkbox_);
    for (Glob* control : controls())
        if (auto* stop = dynamic_cast<TabOrderable*>(control))
            out.push_back(stop);
}

// The parent hears last, so it may delete the group.
int CheckboxGroup::handleMessageEvent(LightweightString<char> name, Glob* sender) {
    if (sender != checkbox_ || !name.startsWith(Checkbox::defaultMsgPrefix))
        return WidgetGroupEx::handleMessageEvent(name, sender);
    handleStateChange(true);
    if (Glob* owner = parent())
        sendMsg(owner, clickedMsg);
    return 1;
}
