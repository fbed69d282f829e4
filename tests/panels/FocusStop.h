#pragma once

// A widget for driving tab order through the real event delivery: a child that a click or the
// tab order focuses.

#include "glob/Glob.h"
#include "panels/TabOrderable.h"

#include <vector>

class FocusStop : public Glob, public TabOrderable {
public:
    using InitArgs = GlobCreationInfo;

    explicit FocusStop(GlobCreationInfo const& info) : Glob(info) {}

    char const* idstring() const override { return "FocusStop"; }
    bool isTabStopActive() override {
        return !refuses && isActive() && isVisible() && canvas() != nullptr &&
               canvas()->isMappedToRoot();
    }
    void handleTabStopFocusReceipt(eDirection direction) override {
        receipts.push_back(direction);
        if (get_kbd_focus() != this)
            claimKbdFocus();
    }
    // Focus that comes some other way (a click) makes this the current stop too.
    void handleKbdFocus() override {
        if (get_kbd_focus() == this && !isTabStopFocus())
            setTabStopFocus();
    }
    int react(Event const& e) override {
        if (e.type == EventCode::LeftPress) {
            claimKbdFocus();
            return 1;
        }
        return Glob::react(e);
    }

    // Declines the focus whatever its state.
    bool refuses = false;
    std::vector<eDirection> receipts;
};

// A child of `parent` with its bottom-left corner at `at`.
inline FocusStop* makeFocusStop(Glob* parent, XY<int> const& at) {
    GlobCreationInfo info(40, 20);
    info.canvas = parent->canvas();
    auto* stop = new FocusStop(info);
    parent->addChild(stop, Glob::BottomLeft(at));
    stop->update();
    return stop;
}
