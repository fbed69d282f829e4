#include "buttons/BoolRadioSet.h"

void switchRadioMember(Checkbox* member, bool, bool) {
    member->setState(!member->getState());
}

BoolRadioSet::~BoolRadioSet() {
    releaseWidgets();
}

void BoolRadioSet::releaseWidgets() {
    for (int i = 0; i < getCount(); ++i)
        if (Checkbox* box = getItem(i))
            box->setUserFunction(nullptr, nullptr);
    clearItems();
}

void BoolRadioSet::setWidgets(Checkbox* first, Checkbox* second, bool inverted) {
    releaseWidgets();
    addItem(first);
    addItem(second);
    inverted_ = inverted;
    int const index = indexFor(getDataValue());
    first->setState(index == 0, false);
    second->setState(index == 1, false);
    setCurrentIndex(index);
    first->setUserFunction(&BoolRadioSet::checkboxCallback, this);
    second->setUserFunction(&BoolRadioSet::checkboxCallback, this);
    redrawWidgets();
}

// Only a click on the unticked box changes the value.
void BoolRadioSet::checkboxCallback(Checkbox* box, void* set) {
    auto* self = static_cast<BoolRadioSet*>(set);
    if (!box->getState())
        self->setState(!self->getWidgetValue());
}

void BoolRadioSet::setState(bool value) {
    if (value == getWidgetValue())
        return;
    if (getDataAdaptor())
        requestSetNewDataValue(value, NewText);
    else
        setNewWidgetValue(value, NoRedraw);
    redrawWidgets();
}

bool BoolRadioSet::getWidgetValue() {
    return (getCurrent() == 0) != inverted_;
}

void BoolRadioSet::setNewWidgetValue(bool& value, eRedrawFlag redraw) {
    set_current(indexFor(value), false);
    if (redraw == Redraw)
        redrawWidgets();
}

void BoolRadioSet::redrawWidgets() {
    for (int i = 0; i < getCount(); ++i)
        if (Checkbox* box = getItem(i))
            box->update();
}
