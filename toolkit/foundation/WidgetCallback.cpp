#include "foundation/WidgetCallback.h"

WidgetCallback::WidgetCallback(LightweightString<char> const& message) : message_(message) {}

WidgetCallback::WidgetCallback(Callback const& callback, LightweightString<char> const& message)
    : callback_(callback), message_(message) {}

WidgetCallback::WidgetCallback(Callback const& callback, LightweightString<char> const& message,
                               Qor::Ptr<iObject> const& context)
    : callback_(callback), message_(message), context_(context) {}

NotifyMsg WidgetCallback::makeMessage() const {
    return NotifyMsg(message_, context_);
}

int WidgetCallback::execute(NotifyMsg const& msg) const {
    // A copy: the callback may replace this widget's callback, or delete the widget, as it runs.
    Callback callback = callback_;
    return callback ? callback->execute(msg) : 0;
}

int WidgetCallback::execute(int flags) const {
    NotifyMsg msg = makeMessage();
    msg.setFlags(flags);
    return execute(msg);
}
