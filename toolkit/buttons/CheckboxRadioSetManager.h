#pragma once

// Makes a list of RadioSetCheckboxes one choice: a click on any of them ticks it and clears the
// others, then tells the parent of the clicked box the box's message prefix alone. The manager
// takes over the boxes' clicks, so it must outlive them or be dropped with them.

#include "buttons/RadioSetCheckbox.h"

#include <vector>

class CheckboxRadioSetManager {
public:
    CheckboxRadioSetManager() = default;
    CheckboxRadioSetManager(CheckboxRadioSetManager const&) = delete;
    CheckboxRadioSetManager& operator=(CheckboxRadioSetManager const&) = delete;

    // Appends the box and makes the manager its user function.
    void add(RadioSetCheckbox* box);
    // The index of the first ticked box; 0 when none is ticked.
    int getSelected() const;
    // What a click on one of the boxes does.
    void callback(Checkbox* clicked);
    unsigned size() const { return unsigned(boxes_.size()); }

private:
    struct Entry {
        RadioSetCheckbox* box;
        IdStamp stamp;
    };

    static void userFunction(Checkbox* clicked, void* manager);
    bool isLive(Entry const& e) const { return EventHandler::valid(e.box, e.stamp); }

    std::vector<Entry> boxes_;
};
