#pragma once

// Two check boxes that show one bool, as a pair of choices ("on" and "off"): the first box means
// true, or false when inverted. It is a value widget of its own, not a panel; the boxes belong to
// whatever panel holds them, and the set lets go of a box that dies.

#include "buttons/Checkbox.h"
#include "buttons/RadioSetBase.h"
#include "foundation/ValWidget.h"

class BoolRadioSet : public RadioSetBase<Checkbox>, public ValWidget<bool> {
public:
    BoolRadioSet() = default;
    ~BoolRadioSet() override;

    // Lets go of the boxes held before, then takes these two: ticks them from the value and takes
    // over their clicks.
    void setWidgets(Checkbox* first, Checkbox* second, bool inverted);
    // Asks for the value; without an adaptor the set keeps it itself.
    void setState(bool value);

    bool getWidgetValue() override;
    void setNewWidgetValue(bool& value, eRedrawFlag redraw) override;

private:
    static void checkboxCallback(Checkbox* box, void* set);
    void releaseWidgets();
    void redrawWidgets();
    int indexFor(bool value) const { return value != inverted_ ? 0 : 1; }

    bool inverted_ = false;
};
