#include "foundation/AdaptorBase.h"
#include "foundation/WidgetBase.h"

WidgetBase::~WidgetBase() {
    if (adaptor_)
        adaptor_->detachFrom(this);
}

void WidgetBase::setAdaptor(Qor::Ptr<AdaptorBase> const& adaptor) {
    adaptor_ = adaptor;
    if (adaptor_)
        adaptor_->attachTo(this);
}
