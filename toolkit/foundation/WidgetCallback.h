#pragma once

// What a widget is given to tell somebody that it was used: a callback, the name of the message
// it sends, and a context that goes along as the message's data. Held by value and copied; with
// no callback in it, the widget makes its own default (a message to its parent).

#include "qor/Callback.h"
#include "qor/LightweightString.h"
#include "qor/NotifyMsg.h"

class WidgetCallback : public iObject {
public:
    using Callback = Qor::Ptr<iCallbackBase<int, NotifyMsg>>;

    WidgetCallback() = default;
    // A name alone, with no callback.
    WidgetCallback(LightweightString<char> const& message);
    WidgetCallback(Callback const& callback, LightweightString<char> const& message);
    WidgetCallback(Callback const& callback, LightweightString<char> const& message,
                   Qor::Ptr<iObject> const& context);

    Callback const& callback() const { return callback_; }
    void setCallback(Callback const& callback) { callback_ = callback; }
    LightweightString<char> const& message() const { return message_; }
    void setMessage(LightweightString<char> const& message) { message_ = message; }
    Qor::Ptr<iObject> const& context() const { return context_; }
    void setContext(Qor::Ptr<iObject> const& context) { context_ = context; }

    bool hasCallback() const { return bool(callback_); }
    // The message to send: the name with the context as data.
    NotifyMsg makeMessage() const;
    // Calls the callback with `msg`; 0 when there is none.
    int execute(NotifyMsg const& msg) const;
    // Calls the callback with makeMessage() and the flags.
    int execute(int flags = 0) const;

private:
    Callback callback_;
    LightweightString<char> message_;
    Qor::Ptr<iObject> context_;
};
