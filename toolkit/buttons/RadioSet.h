#pragma once

// A panel of StdRadioButtons made from a list of labels, side by side or one above another, of
// which one is chosen. A user's choice calls the parent with radioSetMsg; the program's choice
// (setSelectedItem) tells nobody.

#include "buttons/radio_set.h"
#include "misc/Vector.h"
#include "panels/StandardPanel.h"

class radio_button;

class RadioSet : public StandardPanel, public radio_set {
public:
    struct InitArgs : GlobCreationInfo {
        InitArgs() = default;
        InitArgs(Vector<LightweightString<wchar_t>> const& items_, unsigned short w,
                 unsigned short h)
            : GlobCreationInfo(w, h), items(items_) {}
        Vector<LightweightString<wchar_t>> items;
        Orientation orientation = OrientationHorizontal;
        int selected = -1;
    };

    static char const* const radioSetMsg;

    explicit RadioSet(InitArgs const& args);
    ~RadioSet() override;

    char const* idstring() const override { return "RadioSet"; }
    int react(Event const& event) override;

    int getSelectedItem() const { return getCurrent(); }
    void setSelectedItem(int index) { set_current(index, false); }
    radio_button* getButton(int index) const;

private:
    bool isOwnButton(Glob const* glob) const;
};
