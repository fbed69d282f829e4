#pragma once

// A latching button that is one choice of a radio_set: a press on it makes it the set's current
// member, which puts it down and the set's former member up.
//
// Interaction:
//   left press              the set makes this button current (nothing if it already is); the
//                           button that goes down, and the one that comes up, send their message
//                           with " on" or " off" to the parent
//   other left events       used up
//   Return or Space         as a press, through Button's synthetic click
// A button refused by a full set takes no part in it: its presses do nothing.

#include "buttons/Button.h"

class radio_set;

class radio_button : public Button {
public:
    struct InitArgs : Button::InitArgs {
        InitArgs() = default;
        InitArgs(UIString const& label_, LightweightString<char> const& message, radio_set* set_,
                 unsigned short w, unsigned short h)
            : Button::InitArgs(label_, WidgetCallback(message), w, h), set(set_) {}
        radio_set* set = nullptr;
    };

    explicit radio_button(InitArgs const& args);
    radio_button(UIString const& text, char const* message, radio_set* set, unsigned short w,
                 unsigned short h, Canvas* canvas);
    // Leaves its set.
    ~radio_button() override;

    char const* idstring() const override { return "radio_button"; }
    int react(Event const& event) override;
    // Never redraws by itself: the set switches two buttons at a time and redraws each once.
    void setState(button_state state, eRedrawFlag redraw) override;
    // With `notify` the parent (or the nearest overlapping widget, or the button itself) gets
    // the message with " on" or " off".
    void switchState(button_state state, bool notify) override;

    radio_set* getSet() const { return set_; }
    int getIndex() const { return index_; }
    // The set is going away; the button works alone from now on.
    void forgetSet() {
        set_ = nullptr;
        index_ = -1;
    }

private:
    void init(radio_set* set);
    Glob* messageTarget();

    radio_set* set_ = nullptr;
    int index_ = -1;
    // Made for a set that was full: it stays out of every set and its presses do nothing.
    bool refused_ = false;
};
