#pragma once

// A widget that shows a list of items held elsewhere. It reads the items through its adaptor, asks
// the adaptor to select one, and hears from the adaptor what was selected, added, removed or
// changed.

#include "foundation/WidgetBase.h"
#include "qor/LightweightString.h"

class ListViewAdaptorBase;

class ListViewWidget : public WidgetBase {
public:
    void setDataAdaptor(Qor::Ptr<ListViewAdaptorBase> const& adaptor);
    Qor::Ptr<ListViewAdaptorBase> getDataAdaptor() const;
    // The number of items; 0 without an adaptor.
    unsigned int getSize() const;
    // The text of an item; empty without an adaptor.
    LightweightString<wchar_t> operator[](unsigned int index) const;
    // Asks for the item to be selected; without an adaptor the answer is 1.
    int requestItemSelect(unsigned int index);

    virtual void setCurrentItem(unsigned int /*index*/) {}
    virtual void addItemText(unsigned int /*index*/) {}
    virtual void removeItemText(unsigned int /*index*/) {}
    virtual void itemChanged(unsigned int /*index*/) {}
};
