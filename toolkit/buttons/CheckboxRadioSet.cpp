#include "buttons/CheckboxRadioSet.h"

#include "glib/UpdateDeferrer.h"
#include "glob/UifStd.h"

#include <algorithm>

char const* const CheckboxRadioSet::selectionChangedMsg = "CheckboxRadioSetSelectionChanged";

namespace {

unsigned short chosenRowHeight(CheckboxRadioSet::InitArgs const& args) {
    return args.rowHeight != 0 ? args.rowHeight : UifStd::getRowHeight();
}

unsigned short chosenHeight(CheckboxRadioSet::InitArgs const& args) {
    return args.height != 0 ? args.height
                            : CheckboxRadioSet::calcHeightForRows(unsigned(args.items.size()),
                                                                  chosenRowHeight(args));
}

} // namespace

CheckboxRadioSet::CheckboxRadioSet(InitArgs const& args)
    : StandardPanel(args.width, chosenHeight(args), args.palette, args.lightweight, args.canvas),
      rowHeight_(chosenRowHeight(args)) {
    for (UIString const& item : args.items)
        addRow(item);
    showSelection(args.selected);
}

CheckboxRadioSet::~CheckboxRadioSet() = default;

unsigned short CheckboxRadioSet::calcHeightForRows(unsigned rows, unsigned short rowHeight) {
    return (unsigned short)(std::max(rows, 1u) * rowHeight);
}

void CheckboxRadioSet::addRow(UIString const& text) {
    Checkbox::InitArgs args(text, false, width(), rowHeight_);
    auto* box = createChild<RSCheckbox>(args, TopLeft(0, int(getCheckboxes().size()) * rowHeight_));
    box->setTickPosition(Checkbox::TickLeft);
    addCheckbox(box);
}

int CheckboxRadioSet::getSelectedItem() {
    std::vector<Checkbox*> const& boxes = getCheckboxes();
    for (std::size_t i = 0; i < boxes.size(); ++i)
        if (boxes[i]->getState())
            return int(i);
    return -1;
}

void CheckboxRadioSet::setSelectedItem(int index) {
    if (index == getSelectedItem())
        return;
    showSelection(index);
}

void CheckboxRadioSet::showSelection(int index) {
    std::vector<Checkbox*> const boxes = getCheckboxes();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        bool const chosen = int(i) == index;
        if (boxes[i]->getState() != chosen || boxes[i]->getClicksEnabled() == chosen) {
            boxes[i]->setState(chosen, false);
            boxes[i]->setClicksEnabled(!chosen);
            boxes[i]->update();
        }
    }
}

void CheckboxRadioSet::setNewWidgetValue(int& value, eRedrawFlag redraw) {
    showSelection(value);
    if (redraw == Redraw)
        update();
}

// The parent hears last, so it may delete the set.
void CheckboxRadioSet::handleCheckboxClick(Checkbox*) {
    {
        Glib::UpdateDeferrer deferred(nullptr);
        update();
    }
    if (getDataAdaptor()) {
        requestSetNewDataValue(getSelectedItem(), NewText);
        return;
    }
    if (Glob* owner = parent())
        callMsg(owner, selectionChangedMsg);
}

int CheckboxRadioSet::handleMouseEvent(Event const& event) {
    if (!mouse_wheel_event(event) || !isActive())
        return 0;
    int const rows = int(getCheckboxes().size());
    if (rows == 0)
        return 1;
    int const current = getSelectedItem();
    int next;
    if (current < 0)
        next = std::clamp((height() - event.pos.y) / int(rowHeight_), 0, rows - 1);
    else
        next = event.code >= 1 ? current - 1 : current + 1;
    if (next < 0 || next >= rows)
        return 1;
    {
        Glib::UpdateDeferrer deferred(nullptr);
        showSelection(next);
    }
    if (Glob* owner = parent())
        callMsg(owner, selectionChangedMsg);
    return 1;
}

int CheckboxRadioSet::handleMessageEvent(LightweightString<char> name, Glob* sender) {
    if (name.startsWith(Checkbox::defaultMsgPrefix))
        return 1;
    return StandardPanel::handleMessageEvent(name, sender);
}

void CheckboxRadioSet::resize(double w, double h) {
    StandardPanel::resize(w, h);
    for (Checkbox* box : getCheckboxes())
        box->resize(width(), rowHeight_);
}

void CheckboxRadioSet::setActive(bool active, eRedrawFlag redraw) {
    Glib::UpdateDeferrer deferred(nullptr);
    StandardPanel::setActive(active, redraw);
    for (Checkbox* box : getCheckboxes())
        box->setActive(active, redraw);
}

void CheckboxRadioSet::setBoldWhenTicked(bool bold) {
    for (Checkbox* box : getCheckboxes())
        box->setBoldWhenTicked(bold);
}

void CheckboxRadioSet::setAppearance(Checkbox::eAppearance appearance) {
    for (Checkbox* box : getCheckboxes())
        box->setAppearance(appearance);
}

void CheckboxRadioSet::setTextColourWhenTicked(Colour const& colour) {
    for (Checkbox* box : getCheckboxes())
        box->setTextColourWhenTicked(colour);
}
