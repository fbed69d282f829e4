#pragma once

// A widget that shows data it does not own: it holds the adaptor that links it to the data, and
// the adaptor knows it as one of its widgets until the widget dies.

#include "qor/Ptr.h"

class AdaptorBase;

class WidgetBase : public virtual iObject {
public:
    WidgetBase() = default;
    WidgetBase(WidgetBase const&) = delete;
    WidgetBase& operator=(WidgetBase const&) = delete;
    // Detaches from the adaptor held now and drops it.
    ~WidgetBase() override;

    // Holds the adaptor and attaches to it. An adaptor held before is not detached from: a widget
    // is given one adaptor in its life.
    void setAdaptor(Qor::Ptr<AdaptorBase> const& adaptor);
    Qor::Ptr<AdaptorBase> const& getAdaptor() const { return adaptor_; }

private:
    Qor::Ptr<AdaptorBase> adaptor_;
};
