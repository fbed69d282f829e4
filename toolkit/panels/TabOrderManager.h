#pragma once

// An ordered set of focusable objects, among which Tab and Shift+Tab move the keyboard focus.
// Each stop has a tab order (unique within the manager) and an enabled flag; stops are kept in
// the order they were added, and indices refer to that order. 0xffffffff means none, as an index
// and as an order.

#include "panels/TabOrderable.h"
#include "qor/Ptr.h"

#include <vector>

class TabOrderableHost;

class TabOrderManager {
public:
    static constexpr unsigned None = 0xffffffff;
    // As the order given to addTabStop: after all the others.
    static constexpr unsigned AfterAll = 0xfffffffe;
    // The highest order a stop may have.
    static constexpr unsigned MaxTabOrder = 0xffffeffe;

    // One stop: the object, its tab order and whether Tab may land on it.
    class ClientInfo : public iObject {
    public:
        ClientInfo(TabOrderable* object, unsigned order) : tabOrder_(order), object_(object) {}

        unsigned tabOrder() const { return tabOrder_; }
        void tabOrder(unsigned order) { tabOrder_ = order; }
        bool isEnabled() const { return enabled_; }
        void isEnabled(bool enabled) { enabled_ = enabled; }
        TabOrderable* object() const { return object_; }

    private:
        unsigned tabOrder_;
        TabOrderable* object_;
        bool enabled_ = true;
    };

    // Without `allowDuplicates` an object can be added only once.
    explicit TabOrderManager(bool allowDuplicates);
    TabOrderManager(TabOrderManager const&) = delete;
    TabOrderManager& operator=(TabOrderManager const&) = delete;
    virtual ~TabOrderManager();

    // Adds a stop at `order` (AfterAll for after the others); a stop already at that order, and
    // the run of stops right behind it, move up by one. False for a refused duplicate or an order
    // above MaxTabOrder.
    bool addTabStop(TabOrderable& object, unsigned order);
    // Adds the host's parts, each at `order`: so with a fixed order each part goes ahead of the
    // ones before it, and AfterAll keeps the host's order. Stops at a null part or a failure.
    bool addTabStopsFrom(TabOrderableHost& host, unsigned order);
    bool addTabStopsFrom(TabOrderableHost* host, unsigned order);
    // Removes every stop of the object, or the one stop; false when there was none.
    bool removeTabStop(TabOrderable const& object);
    bool removeTabStop(unsigned index);

    unsigned numTabStops() const { return (unsigned)stops_.size(); }
    // Null, or None, for an index out of range.
    TabOrderable* getTabStopObject(unsigned index) const;
    unsigned getTabStopTabOrder(unsigned index) const;
    // Moves a stop to another order, making way as addTabStop does.
    bool setTabOrder(TabOrderable const& object, unsigned order);
    bool setTabOrder(unsigned index, unsigned order);
    // Makes the stop current; fails, keeping the old one, if it is disabled or not active. None
    // as the index clears the current stop.
    bool setTabStopFocus(TabOrderable const& object);
    bool setTabStopFocus(unsigned index);
    // Every stop of the object, or the one stop; false when there was none.
    bool setTabStopEnabled(TabOrderable const& object, bool enabled);
    bool setTabStopEnabled(unsigned index, bool enabled);
    // `found` (may be null) tells whether there was such a stop.
    bool getTabStopEnabled(TabOrderable const& object, bool* found) const;
    bool getTabStopEnabled(unsigned index, bool* found) const;
    unsigned getCurrentTabStopIndex() const { return currentIndex_; }
    unsigned getCurrentTabOrder() const { return currentTabOrder_; }
    bool isTabStopFocus(TabOrderable const& object) const;

    // Tab and Shift+Tab: the next (previous) usable stop after the current order, wrapping round
    // at the end. Answer the current index then in force, None when no stop could take it.
    unsigned incrementTabStop();
    unsigned decrementTabStop();
    // Gives the focus to the current stop again, or to the first one when there is none.
    unsigned refocusCurrentTabStop();
    // The index of the usable stop nearest above (below) `order`, or at it when `inclusive`;
    // the first such stop wins a tie. None when there is no such stop.
    unsigned findNextHighestTabOrder(unsigned order, bool inclusive);
    unsigned findNextLowestTabOrder(unsigned order, bool inclusive);

protected:
    // TabOrderable calls this from its destructor, with `notifyObject` false.
    friend class TabOrderable;
    bool internalRemoveTabStop(TabOrderable const& object, bool notifyObject);
    bool internalSetTabStopFocus(unsigned index, TabOrderable::eDirection direction);
    // Frees `order` by moving the stop that has it, and the run behind it, up by one.
    bool makeWayForTabOrder(unsigned order);

private:
    unsigned findStop(TabOrderable const& object) const;
    unsigned findStopWithOrder(unsigned order) const;
    bool isUsable(unsigned index);
    void removeAt(unsigned index, bool notifyObject);
    void storeTabOrder(unsigned index, unsigned order);
    void recalcExtremes();

    std::vector<Qor::Ptr<ClientInfo>> stops_;
    bool allowDuplicates_;
    unsigned currentTabOrder_ = None;
    unsigned currentIndex_ = None;
    unsigned lowestTabOrder_ = None;
    unsigned lowestIndex_ = None;
    unsigned highestTabOrder_ = None;
    unsigned highestIndex_ = None;
};
