#pragma once

// Something that can hold the keyboard focus in a tab order. It may sit in several
// TabOrderManagers at once; each side knows the other, so either may die first.

#include <vector>

class TabOrderManager;

class TabOrderable {
public:
    enum eDirection { Forward = 0, Backward = 1 };

    TabOrderable() = default;
    // A copy is a new object that no manager has yet.
    TabOrderable(TabOrderable const&) {}
    TabOrderable& operator=(TabOrderable const&) { return *this; }
    // Leaves every manager it is in, without being called back.
    virtual ~TabOrderable();

    // Whether the stop can take the focus now (a hidden or inactive widget cannot).
    virtual bool isTabStopActive() = 0;
    // The stop became its manager's current one; `direction` says how the user got here.
    virtual void handleTabStopFocusReceipt(eDirection direction);
    // Another stop became current, or the focus was cleared.
    virtual void handleTabStopFocusLoss();

    // Managers note themselves here once for each stop they keep for this object.
    void registerManager(TabOrderManager* manager);
    void deregisterManager(TabOrderManager* manager);

    // True when some manager has this object as its current stop.
    bool isTabStopFocus() const;
    // Asks each manager to make this the current stop; answers isTabStopFocus().
    bool setTabStopFocus();
    // Clears the current stop of each manager.
    void relinquishTabStopFocus();

private:
    std::vector<TabOrderManager*> managers_;
};
