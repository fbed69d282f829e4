#pragma once

// A panel of round check boxes, one a row from the top, that make one choice. It shows an int
// (the chosen row, -1 for none) either of its own or through a ValAdaptorBase<int>.
//
// Interaction:
//   click on an unticked box   ticks it and clears the others; the adaptor is asked for the
//                              index, or without one the parent is called with
//                              selectionChangedMsg
//   click on the ticked box    nothing: it takes no clicks
//   wheel away (towards)       moves the choice up (down) a row, stopping at the ends; with
//                              nothing chosen, the row under the pointer is chosen. The parent is
//                              called with selectionChangedMsg; the adaptor is not asked. Every
//                              wheel turn is used up.

#include "buttons/CheckboxRadioSetBase.h"
#include "buttons/RSCheckbox.h"
#include "foundation/ValWidget.h"
#include "panels/StandardPanel.h"

#include <vector>

class CheckboxRadioSet : public StandardPanel, public ValWidget<int>, public CheckboxRadioSetBase {
public:
    struct InitArgs : GlobCreationInfo {
        InitArgs() = default;
        // A height of 0 fits the rows.
        InitArgs(std::vector<UIString> const& items_, int selected_, unsigned short w,
                 unsigned short h = 0)
            : GlobCreationInfo(w, h), items(items_), selected(selected_) {}
        std::vector<UIString> items;
        int selected = -1;
        // 0 for the standard row height.
        unsigned short rowHeight = 0;
    };

    static char const* const selectionChangedMsg;

    explicit CheckboxRadioSet(InitArgs const& args);
    ~CheckboxRadioSet() override;

    static unsigned short calcHeightForRows(unsigned rows, unsigned short rowHeight);

    // The first ticked row, -1 for none.
    int getSelectedItem();
    // Shows the choice without telling anybody; an index out of range leaves none chosen.
    void setSelectedItem(int index);
    using CheckboxRadioSetBase::setSelectedItem;
    void handleCheckboxClick(Checkbox* clicked) override;

    void setBoldWhenTicked(bool bold);
    void setAppearance(Checkbox::eAppearance appearance);
    void setTextColourWhenTicked(Colour const& colour);
    unsigned short getRowHeight() const { return rowHeight_; }

    int getWidgetValue() override { return getSelectedItem(); }
    void setNewWidgetValue(int& value, eRedrawFlag redraw) override;
    void setEnabledState(bool enabled) override { setActive(enabled, Redraw); }
    bool getEnabledState() const override { return isActive(); }

    char const* idstring() const override { return "CheckboxRadioSet"; }
    int handleMouseEvent(Event const& event) override;
    int handleMessageEvent(LightweightString<char> name, Glob* sender) override;
    void resize(double w, double h) override;
    void setActive(bool active, eRedrawFlag redraw) override;

private:
    void addRow(UIString const& text);
    // Ticks one row and frees the others' clicks, without telling anybody.
    void showSelection(int index);

    unsigned short rowHeight_;
};
