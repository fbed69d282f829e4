#pragma once

// A widget with a value of type T that lives elsewhere. The widget never changes what it shows on
// its own account: it asks its adaptor for a new value, and shows what the adaptor then tells it.

#include "foundation/ValAdaptorBase.h"
#include "foundation/WidgetBase.h"
#include "glob/Glob.h"

template <class T>
class ValWidget : public WidgetBase {
public:
    ~ValWidget() override = default;

    // Attaches to the adaptor and shows its value at once, without a redraw.
    virtual void setDataAdaptor(Qor::Ptr<ValAdaptorBase<T>> const& adaptor) {
        setAdaptor(Qor::Ptr<AdaptorBase>(adaptor));
        if (adaptor)
            adaptor->forceWidgetUpdate(NoRedraw);
    }
    virtual Qor::Ptr<ValAdaptorBase<T>> getDataAdaptor() const {
        return Qor::dynamic_ptr_cast<ValAdaptorBase<T>>(getAdaptor());
    }
    // The value the widget shows.
    virtual T getWidgetValue() = 0;
    // The only way a widget changes the data. Redraws are held back over the request, so every
    // widget that follows the change repaints once, together. Without an adaptor the answer is 1
    // and nothing is touched.
    virtual int requestSetNewDataValue(T const& value, DataChangeType type) {
        Qor::Ptr<ValAdaptorBase<T>> adaptor = getDataAdaptor();
        if (!adaptor)
            return 1;
        RedrawBatch batch;
        return adaptor->requestSetNewDataValue(value, type);
    }
    // Shows a new value.
    virtual void setNewWidgetValue(T& value, eRedrawFlag redraw) = 0;
    virtual void setEnabledState(bool /*enabled*/) {}
    virtual bool getEnabledState() const { return true; }

    // The adaptor's value, or the zero value without an adaptor.
    T getDataValue() const {
        Qor::Ptr<ValAdaptorBase<T>> adaptor = getDataAdaptor();
        return adaptor ? adaptor->getDataValue() : T{};
    }
    void handleMsgForParent(LightweightString<char> const& message) const {
        if (Qor::Ptr<ValAdaptorBase<T>> adaptor = getDataAdaptor())
            adaptor->handleMsgForParent(message);
    }

private:
    // The widget may be gone when the request returns, so the batch lives on the stack.
    struct RedrawBatch {
        RedrawBatch() { Drawable::disableRedraws(); }
        ~RedrawBatch() { Drawable::enableRedraws(); }
        RedrawBatch(RedrawBatch const&) = delete;
        RedrawBatch& operator=(RedrawBatch const&) = delete;
    };
};
