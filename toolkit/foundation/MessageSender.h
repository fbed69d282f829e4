#pragma once

// The default callback of a widget given only a message name: it posts the message's name as a
// message event to a target, usually the widget's parent, through the base layer.

#include "qor/Callback.h"
#include "qor/NotifyMsg.h"

class EventHandler;

class MessageSender : public iCallbackBase<int, NotifyMsg> {
public:
    explicit MessageSender(EventHandler* target) : target_(target) {}

    // Posts; answers 0.
    int execute(NotifyMsg const& msg) override;

    EventHandler* target() const { return target_; }

private:
    EventHandler* target_;
};
