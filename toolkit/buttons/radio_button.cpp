#include "buttons/radio_button.h"

#include "buttons/radio_set.h"

#include <cstdio>
#include <vector>

radio_button::radio_button(InitArgs const& args) : Button(args) {
    init(args.set);
}

radio_button::radio_button(UIString const& text, char const* message, radio_set* set,
                           unsigned short w, unsigned short h, Canvas* canvas)
    : Button(text, message, w, h, false, canvas) {
    init(set);
}

radio_button::~radio_button() {
    if (set_ != nullptr)
        set_->removeItem(this);
}

void radio_button::init(radio_set* set) {
    setLatching(true, false);
    index_ = set != nullptr ? set->addItem(this) : -1;
    refused_ = set != nullptr && index_ < 0;
    set_ = index_ >= 0 ? set : nullptr;
}

// A user's press tells the owner, unlike a change made by the program.
int radio_button::react(Event const& event) {
    if ((set_ == nullptr && !refused_) || !mouse_left_event(event))
        return Button::react(event);
    if (mouse_down_event(event) && !getIgnoreMouseClicks() && set_ != nullptr)
        set_->set_current(index_, true);
    return 1;
}

void radio_button::setState(button_state state, eRedrawFlag) {
    Button::setState(state, NoRedraw);
}

void radio_button::switchState(button_state state, bool notify) {
    setState(state, NoRedraw);
    update();
    if (!notify)
        return;
    LightweightString<char> const& message = getMessage();
    std::vector<char> name(message.size() + 8);
    std::snprintf(name.data(), name.size(), "%s %s", message.c_str(), state == down ? "on" : "off");
    sendMsg(messageTarget(), name.data());
}

Glob* radio_button::messageTarget() {
    if (Glob* owner = parent())
        return owner;
    Glob* nearest = findNearestGlob(nullptr);
    if (nearest != nullptr && glob_pseudo_distance(this, nearest) < 0)
        return nearest;
    return this;
}
