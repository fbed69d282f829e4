#pragma once

// The rule of a set of check boxes that make one choice: a click on an unticked box ticks it and
// clears the others, and the ticked box takes no clicks, so it can't be unticked by hand. A box
// that dies is dropped from the list.

#include "buttons/Checkbox.h"

#include <vector>

class CheckboxRadioSetBase {
public:
    CheckboxRadioSetBase() = default;
    CheckboxRadioSetBase(CheckboxRadioSetBase const&) = delete;
    CheckboxRadioSetBase& operator=(CheckboxRadioSetBase const&) = delete;
    // Gives the boxes that are still alive their clicks back.
    virtual ~CheckboxRadioSetBase();

    // As a click on the box at the index; nothing for an index out of range.
    virtual void setSelectedItem(unsigned short index);
    // Lets go of every box.
    virtual void clear();
    // Told after a click has changed the choice; does nothing here.
    virtual void handleCheckboxClick(Checkbox* /*clicked*/) {}

    // Appends the box and takes over its clicks.
    void addCheckbox(Checkbox* box);
    // The live boxes, in order.
    std::vector<Checkbox*> const& getCheckboxes();
    static void checkboxClickCallback(Checkbox* clicked, void* set);

protected:
    void handleCheckboxClickInternal(Checkbox* clicked);

private:
    void dropDeadBoxes();

    std::vector<Checkbox*> boxes_;
    std::vector<IdStamp> stamps_;
};
