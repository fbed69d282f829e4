#pragma once

// The shared link between widgets and the data they show. It keeps the set of attached widgets,
// each once at most, in order of address; the concrete adaptor knows where the data lives.

#include "qor/Ptr.h"

#include <set>
#include <vector>

class WidgetBase;

class AdaptorBase : public virtual iObject {
public:
    AdaptorBase() = default;
    AdaptorBase(AdaptorBase const&) = delete;
    AdaptorBase& operator=(AdaptorBase const&) = delete;

    void attachTo(WidgetBase* widget) { widgets_.insert(widget); }
    void detachFrom(WidgetBase* widget) { widgets_.erase(widget); }
    bool isAttached(WidgetBase* widget) const { return widgets_.count(widget) != 0; }
    std::set<WidgetBase*> const& attachedWidgets() const { return widgets_; }

protected:
    // Calls fn(widget) for each widget attached, in the set's order. A widget that fn (or what it
    // sets off) deletes or detaches is passed over, and the adaptor outlives the walk even if the
    // last widget holding it dies.
    template <class Fn>
    void forEachWidget(Fn&& fn) {
        Qor::Ptr<AdaptorBase> keepAlive = heldSelf();
        std::vector<WidgetBase*> const widgets(widgets_.begin(), widgets_.end());
        for (WidgetBase* widget : widgets)
            if (isAttached(widget))
                fn(widget);
    }

private:
    // A reference on this adaptor, when something already holds one; an adaptor that lives
    // outside any Qor::Ptr is not put under one.
    Qor::Ptr<AdaptorBase> heldSelf() {
        return getRefCount() > 0 ? Qor::Ptr<AdaptorBase>(this) : Qor::Ptr<AdaptorBase>();
    }

    std::set<WidgetBase*> widgets_;
};
