#pragma once

// A widget that records what reaches it, for delivery tests: every event, every containment
// change, every focus call. It uses up the event kinds it is told to and paints itself in one
// colour.

#include "glob/Glob.h"
#include "glob/GlobManager.h"

#include <functional>
#include <string>
#include <vector>

class RecordingGlob : public Glob {
public:
    using InitArgs = GlobCreationInfo;

    explicit RecordingGlob(GlobCreationInfo const& info, Colour colour = Colour(0.5, 0.5, 0.5))
        : Glob(info), colour_(colour) {}

    char const* idstring() const override { return "RecordingGlob"; }
    int react(Event const& e) override {
        events.push_back(e);
        if (onEvent)
            onEvent(e);
        return (e.type & EventCode::ClassBits & consumes) != 0 ? 1 : Glob::react(e);
    }
    void handleMouseContainment(bool inside) override {
        containment.push_back(inside);
        Glob::handleMouseContainment(inside);
    }
    void handleKbdFocus() override { focusCalls.push_back(get_kbd_focus() == this); }
    void drawBackground() override { fillRect(face(), colour_); }

    // Event classes used up (0x100 mouse, 0x200 keys, 0x1000 timer, 0x4000 message).
    int consumes = 0;
    std::vector<Event> events;
    std::vector<bool> containment;
    std::vector<bool> focusCalls;
    std::function<void(Event const&)> onEvent;

    int count(int type) const {
        int n = 0;
        for (Event const& e : events)
            n += e.type == type ? 1 : 0;
        return n;
    }
    std::vector<std::string> messages() const {
        std::vector<std::string> out;
        for (Event const& e : events)
            if (e.type == EventCode::Message)
                out.push_back(e.msg.c_str());
        return out;
    }

private:
    Colour colour_;
};

// A top-level window at `rootPos` of the size, shown on the screen.
inline RecordingGlob* makeWindow(XY<int> const& rootPos, XY<int> const& size,
                                 Colour colour = Colour(0.9, 0.9, 0.9)) {
    Glob::setupRootPos(rootPos);
    auto* window =
        new RecordingGlob(GlobCreationInfo((unsigned short)size.x, (unsigned short)size.y), colour);
    GlobManager::instance().realize(window);
    return window;
}

// A child of `parent` with its bottom-left corner at `at` in the parent.
inline RecordingGlob* makeChild(Glob* parent, XY<int> const& at, XY<int> const& size,
                                Colour colour = Colour(0.2, 0.4, 0.8)) {
    GlobCreationInfo info((unsigned short)size.x, (unsigned short)size.y);
    info.canvas = parent->canvas();
    auto* child = new RecordingGlob(info, colour);
    parent->addChild(child, Glob::BottomLeft(at));
    child->update();
    return child;
}
