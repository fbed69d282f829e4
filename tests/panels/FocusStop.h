#pragma once

// Widgets for driving tab order through the real event delivery: FocusStop is a child that a
// click or the tab order focuses, TabHost a window whose react moves the focus on Tab and
// Shift+Tab, as a panel does.

#include "glob/Glob.h"
#include "glob/GlobManager.h"
#include "panels/TabOrderManager.h"

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
    void handleTabStopFocusLoss() override { ++losses; }
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
    int losses = 0;
};

class TabHost : public Glob, public TabOrderManager {
public:
    explicit TabHost(GlobCreationInfo const& info) : Glob(info), TabOrderManager(false) {}

    char const* idstring() const override { return "TabHost"; }
    int react(Event const& e) override {
        if (e.type == EventCode::KeyPress) {
            unsigned moved = None;
            if (e.keyCode() == KeyCodes::Tab)
                moved = incrementTabStop();
            else if (e.keyCode() == (KeyCodes::Shift | KeyCodes::Tab))
                moved = decrementTabStop();
            if (moved != None)
                return 1;
            ++unusedKeys;
        }
        return Glob::react(e);
    }

    int unusedKeys = 0;
};

// A window at `rootPos`, on the screen.
inline TabHost* makeTabHost(XY<int> const& rootPos, XY<int> const& size) {
    Glob::setupRootPos(rootPos);
    auto* host = new TabHost(GlobCreationInfo((unsigned short)size.x, (unsigned short)size.y));
    GlobManager::instance().realize(host);
    return host;
}

// A child of `parent` with its bottom-left corner at `at`.
inline FocusStop* makeFocusStop(Glob* parent, XY<int> const& at) {
    GlobCreationInfo info(40, 20);
    info.canvas = parent->canvas();
    auto* stop = new FocusStop(info);
    parent->addChild(stop, Glob::BottomLeft(at));
    stop->update();
    return stop;
}
