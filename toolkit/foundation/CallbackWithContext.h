#pragma once

// Puts a fixed context in place of the data of each message before passing it on: the name goes
// through unchanged, the incoming data is dropped.

#include "qor/Callback.h"
#include "qor/NotifyMsg.h"

class CallbackWithContext : public iCallbackBase<int, NotifyMsg> {
public:
    CallbackWithContext(Qor::Ptr<iCallbackBase<int, NotifyMsg>> const& inner,
                        Qor::Ptr<iObject> const& context)
        : inner_(inner), context_(context) {}

    // The inner callback's answer; 0 when there is none.
    int execute(NotifyMsg const& msg) override;

private:
    Qor::Ptr<iCallbackBase<int, NotifyMsg>> inner_;
    Qor::Ptr<iObject> context_;
};
