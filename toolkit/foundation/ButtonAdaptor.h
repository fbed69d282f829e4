#pragma once

// An adaptor for a button that stands for an action rather than a value: it hears the button's
// clicks and the messages that reach it, and has no value of its own to show.

#include "foundation/ValAdaptorBase.h"

template <class T>
class ButtonAdaptor : public ValAdaptorBase<T> {
public:
    // A left press on the button.
    virtual void widgetLeftClicked() {}
    // A message that reached the button; 1 when the adaptor used it up.
    virtual int messageReceived(LightweightString<char> /*name*/) { return 0; }

    T getDataValue() override { return T(); }
    int requestSetNewDataValue(T const& /*value*/, DataChangeType /*type*/) override { return 0; }
};
