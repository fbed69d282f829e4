#pragma once

// A group of controls headed by a check box: the controls are active only while the box is ticked
// (and the group itself is active). A click on the box tells the parent "CheckboxGroupClicked".
// The box carries the group's title as its label, so a click on the title ticks it too.

#include "buttons/Checkbox.h"
#include "panels/TabOrderableHost.h"
#include "panels/WidgetGroupEx.h"

class CheckboxGroup : public WidgetGroupEx, public TabOrderableHost {
public:
    struct InitArgs : WidgetGroupEx::InitArgs {
        InitArgs() = default;
        InitArgs(UIString const& title_, bool state_, unsigned short w, unsigned short h)
            : WidgetGroupEx::InitArgs(title_, w, h), state(state_) {}
        bool state = false;
    };

    static char const* const clickedMsg;

    explicit CheckboxGroup(InitArgs const& args);

    bool getState() const { return checkbox_->getState(); }
    // Sets the box (through its adaptor with `notify`) and brings the controls in step, redrawn
    // with `notify`.
    void setState(bool value, bool notify);
    void setBoldWhenTicked(bool bold) { checkbox_->setBoldWhenTicked(bold); }
    void setClicksEnabled(bool enabled) { checkbox_->setClicksEnabled(enabled); }
    void setCheckboxAppearance(Checkbox::eAppearance appearance);
    // The box's label in the bold interface font.
    void useBoldText();
    Checkbox* getCheckbox() const { return checkbox_; }

    // Makes every control active or not as the box says.
    virtual void handleStateChange(bool redraw);

    // The box, then each control that is a tab stop, in order.
    void getTabOrderables(std::vector<TabOrderable*>& out) override;
    char const* idstring() const override { return "CheckboxGroup"; }
    int handleMessageEvent(LightweightString<char> name, Glob* sender) override;
    void setWidgetsActive(bool active, eRedrawFlag redraw) override;
    void handleWidgetAdded(WidgetDetails const& details) override;

private:
    void init(UIString const& text, bool state);
    std::vector<Glob*> controls() const;

    Checkbox* checkbox_ = nullptr;
};
