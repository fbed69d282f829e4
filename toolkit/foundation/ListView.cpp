#include "foundation/ListViewAdaptorBase.h"
#include "foundation/ListViewWidget.h"

void ListViewWidget::setDataAdaptor(Qor::Ptr<ListViewAdaptorBase> const& adaptor) {
    setAdaptor(Qor::Ptr<AdaptorBase>(adaptor));
}

Qor::Ptr<ListViewAdaptorBase> ListViewWidget::getDataAdaptor() const {
    return Qor::dynamic_ptr_cast<ListViewAdaptorBase>(getAdaptor());
}

unsigned int ListViewWidget::getSize() const {
    Qor::Ptr<ListViewAdaptorBase> adaptor = getDataAdaptor();
    return adaptor ? adaptor->getSize() : 0;
}

LightweightString<wchar_t> ListViewWidget::operator[](unsigned int index) const {
    Qor::Ptr<ListViewAdaptorBase> adaptor = getDataAdaptor();
    return adaptor ? adaptor->getItemText(index) : LightweightString<wchar_t>();
}

int ListViewWidget::requestItemSelect(unsigned int index) {
    Qor::Ptr<ListViewAdaptorBase> adaptor = getDataAdaptor();
    return adaptor ? adaptor->requestItemSelect(index) : 1;
}

int ListViewAdaptorBase::requestItemSelect(unsigned int index) {
    if (getValServer() == nullptr)
        return 0;
    setServerValue(index);
    return 1;
}

template <class Fn>
void ListViewAdaptorBase::forEachListView(Fn fn) {
    forEachWidget([&](WidgetBase* widget) {
        if (auto* view = dynamic_cast<ListViewWidget*>(widget))
            fn(*view);
    });
}

void ListViewAdaptorBase::itemAdded(unsigned int index) {
    forEachListView([index](ListViewWidget& view) { view.addItemText(index); });
}

void ListViewAdaptorBase::itemDeleted(unsigned int index) {
    forEachListView([index](ListViewWidget& view) { view.removeItemText(index); });
}

void ListViewAdaptorBase::itemUpdated(unsigned int index) {
    forEachListView([index](ListViewWidget& view) { view.itemChanged(index); });
}

void ListViewAdaptorBase::valChangedNtfy() {
    unsigned int const selected = getServerValue();
    forEachListView([selected](ListViewWidget& view) { view.setCurrentItem(selected); });
}
