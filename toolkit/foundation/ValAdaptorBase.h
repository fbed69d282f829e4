#pragma once

// An adaptor for widgets that show one value of type T: it answers what the value is, hears the
// widgets' requests to change it, and passes the value that is then current back to every widget.

#include "foundation/AdaptorBase.h"
#include "foundation/DataChangeType.h"
#include "glob/Glob.h"
#include "qor/LightweightString.h"

template <class T>
class ValWidget;

template <class T>
class ValAdaptorBase : public AdaptorBase {
public:
    ~ValAdaptorBase() override = default;

    // The current value at the source.
    virtual T getDataValue() = 0;
    // Shows the source's value in every widget.
    virtual void forceWidgetUpdate(eRedrawFlag redraw) {
        setNewWidgetValue(getDataValue(), redraw);
    }
    // A widget asks for a new value; the answer is the adaptor's own.
    virtual int requestSetNewDataValue(T const& value, DataChangeType type) = 0;
    virtual void handleMsgForParent(LightweightString<char> /*message*/) {}
    // Tells every attached widget, in the set's order. Each gets its own copy of the value.
    virtual void setNewWidgetValue(T value, eRedrawFlag redraw) {
        forEachValWidget([&](ValWidget<T>* widget) {
            T shown = value;
            widget->setNewWidgetValue(shown, redraw);
        });
    }

    void setWidgetEnabledState(bool enabled) {
        forEachValWidget([&](ValWidget<T>* widget) { widget->setEnabledState(enabled); });
    }
    // False with no widgets; otherwise only the first widget counts.
    bool getWidgetEnabledState() const {
        if (attachedWidgets().empty())
            return false;
        auto* first = dynamic_cast<ValWidget<T>*>(*attachedWidgets().begin());
        return first != nullptr && first->getEnabledState();
    }

private:
    template <class Fn>
    void forEachValWidget(Fn&& fn) {
        forEachWidget([&](WidgetBase* widget) {
            if (auto* valWidget = dynamic_cast<ValWidget<T>*>(widget))
                fn(valWidget);
        });
    }
};

#include "foundation/ValWidget.h"
