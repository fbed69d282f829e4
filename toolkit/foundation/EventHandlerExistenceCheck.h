#pragma once

// Tells whether an EventHandler still exists, by the IdStamp taken from it at construction, and
// never touches it once it has gone. Given a callback that acts on the handler, it guards that
// callback: the callback runs only while the handler exists.

#include "glob/EventHandler.h"
#include "qor/Callback.h"

template <class Msg>
class EventHandlerExistenceCheck : public iCallbackBase<int, Msg> {
public:
    explicit EventHandlerExistenceCheck(EventHandler* handler,
                                        Qor::Ptr<iCallbackBase<int, Msg>> const& guarded = {})
        : handler_(handler), stamp_(handler ? handler->getIdStamp() : IdStamp::null()),
          guarded_(guarded) {}

    // Non-zero while the handler exists, after running the guarded callback; 0 once it has gone.
    int execute(Msg const& msg) override {
        if (!EventHandler::valid(handler_, stamp_))
            return 0;
        if (guarded_)
            guarded_->execute(msg);
        return 1;
    }

private:
    EventHandler* handler_;
    IdStamp stamp_;
    Qor::Ptr<iCallbackBase<int, Msg>> guarded_;
};
