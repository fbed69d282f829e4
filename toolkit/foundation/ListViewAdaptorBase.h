#pragma once

// The adaptor of list views: it reads the items from the data, keeps the index of the selected
// item in a value server, and passes the list's changes and the selection on to every attached
// ListViewWidget.

#include "foundation/AdaptorBase.h"
#include "foundation/ListServer.h"
#include "foundation/ValClient.h"
#include "qor/LightweightString.h"

class ListViewWidget;

class ListViewAdaptorBase : public AdaptorBase, public ListClient, public ValClient<unsigned int> {
public:
    ~ListViewAdaptorBase() override = default;

    virtual unsigned int getSize() const = 0;
    virtual LightweightString<wchar_t> getItemText(unsigned int index) const = 0;
    // Sets the selection through the server: 0 without a server, otherwise 1.
    virtual int requestItemSelect(unsigned int index);
    void itemAdded(unsigned int index) override;
    void itemDeleted(unsigned int index) override;
    void itemUpdated(unsigned int index) override;
    // Shows the server's selection in every widget.
    void valChangedNtfy() override;

private:
    template <class Fn>
    void forEachListView(Fn fn);
};
