#include "panels/TabOrderManager.h"
#include "glob/Glob.h"
#include "panels/TabOrderableHost.h"

#include <algorithm>

namespace {

// Holds redraws back while the focus moves, so that the old and the new stop repaint once.
struct RedrawBatch {
    RedrawBatch() { Drawable::disableRedraws(); }
    ~RedrawBatch() { Drawable::enableRedraws(); }
    RedrawBatch(RedrawBatch const&) = delete;
    RedrawBatch& operator=(RedrawBatch const&) = delete;
};

} // namespace

TabOrderManager::TabOrderManager(bool allowDuplicates) : allowDuplicates_(allowDuplicates) {}

TabOrderManager::~TabOrderManager() {
    for (Qor::Ptr<ClientInfo> const& stop : stops_)
        stop->object()->deregisterManager(this);
}

bool TabOrderManager::addTabStop(TabOrderable& object, unsigned order) {
    if (!allowDuplicates_ && findStop(object) != None)
        return false;
    if (order == AfterAll)
        order = stops_.empty() ? 0 : highestTabOrder_ + 1;
    if (order > MaxTabOrder || !makeWayForTabOrder(order))
        return false;
    stops_.push_back(Qor::makePtr<ClientInfo>(&object, order));
    object.registerManager(this);
    unsigned index = numTabStops() - 1;
    if (lowestTabOrder_ == None || order < lowestTabOrder_) {
        lowestTabOrder_ = order;
        lowestIndex_ = index;
    }
    if (highestTabOrder_ == None || order > highestTabOrder_) {
        highestTabOrder_ = order;
        highestIndex_ = index;
    }
    return true;
}

bool TabOrderManager::addTabStopsFrom(TabOrderableHost& host, unsigned order) {
    std::vector<TabOrderable*> parts;
    host.getTabOrderables(parts);
    for (TabOrderable* part : parts)
        if (part == nullptr || !addTabStop(*part, order))
            return false;
    return true;
}

bool TabOrderManager::addTabStopsFrom(TabOrderableHost* host, unsigned order) {
    return host != nullptr && addTabStopsFrom(*host, order);
}

bool TabOrderManager::removeTabStop(TabOrderable const& object) {
    return internalRemoveTabStop(object, true);
}

bool TabOrderManager::removeTabStop(unsigned index) {
    if (index >= numTabStops())
        return false;
    removeAt(index, true);
    recalcExtremes();
    return true;
}

TabOrderable* TabOrderManager::getTabStopObject(unsigned index) const {
    return index < numTabStops() ? stops_[index]->object() : nullptr;
}

unsigned TabOrderManager::getTabStopTabOrder(unsigned index) const {
    return index < numTabStops() ? stops_[index]->tabOrder() : None;
}

bool TabOrderManager::setTabOrder(TabOrderable const& object, unsigned order) {
    return setTabOrder(findStop(object), order);
}

bool TabOrderManager::setTabOrder(unsigned index, unsigned order) {
    if (index >= numTabStops() || order > MaxTabOrder)
        return false;
    if (stops_[index]->tabOrder() == order)
        return true;
    if (!makeWayForTabOrder(order))
        return false;
    storeTabOrder(index, order);
    recalcExtremes();
    return true;
}

bool TabOrderManager::setTabStopFocus(TabOrderable const& object) {
    unsigned index = findStop(object);
    return index != None && setTabStopFocus(index);
}

bool TabOrderManager::setTabStopFocus(unsigned index) {
    return internalSetTabStopFocus(index, TabOrderable::Forward);
}

bool TabOrderManager::setTabStopEnabled(TabOrderable const& object, bool enabled) {
    bool found = false;
    for (Qor::Ptr<ClientInfo> const& stop : stops_)
        if (stop->object() == &object) {
            stop->isEnabled(enabled);
            found = true;
        }
    return found;
}

bool TabOrderManager::setTabStopEnabled(unsigned index, bool enabled) {
    if (index >= numTabStops())
        return false;
    stops_[index]->isEnabled(enabled);
    return true;
}

bool TabOrderManager::getTabStopEnabled(TabOrderable const& object, bool* found) const {
    return getTabStopEnabled(findStop(object), found);
}

bool TabOrderManager::getTabStopEnabled(unsigned index, bool* found) const {
    bool present = index < numTabStops();
    if (found != nullptr)
        *found = present;
    return present && stops_[index]->isEnabled();
}

bool TabOrderManager::isTabStopFocus(TabOrderable const& object) const {
    return currentIndex_ < numTabStops() && stops_[currentIndex_]->object() == &object;
}

unsigned TabOrderManager::incrementTabStop() {
    unsigned next = None;
    if (currentTabOrder_ != None)
        next = findNextHighestTabOrder(currentTabOrder_, false);
    if (next == None)
        next = findNextHighestTabOrder(0, true);
    internalSetTabStopFocus(next, TabOrderable::Forward);
    return currentIndex_;
}

unsigned TabOrderManager::decrementTabStop() {
    unsigned previous = None;
    if (currentTabOrder_ != None)
        previous = findNextLowestTabOrder(currentTabOrder_, false);
    if (previous == None)
        previous = findNextLowestTabOrder(None, true);
    internalSetTabStopFocus(previous, TabOrderable::Backward);
    return currentIndex_;
}

unsigned TabOrderManager::refocusCurrentTabStop() {
    if (currentIndex_ == None)
        return incrementTabStop();
    setTabStopFocus(currentIndex_);
    return currentIndex_;
}

unsigned TabOrderManager::findNextHighestTabOrder(unsigned order, bool inclusive) {
    unsigned best = None;
    unsigned bestDistance = None;
    for (unsigned i = 0; i < numTabStops(); ++i) {
        unsigned candidate = stops_[i]->tabOrder();
        bool beyond = inclusive ? candidate >= order : candidate > order;
        if (!beyond || !isUsable(i))
            continue;
        if (best == None || candidate - order < bestDistance) {
            best = i;
            bestDistance = candidate - order;
        }
    }
    return best;
}

unsigned TabOrderManager::findNextLowestTabOrder(unsigned order, bool inclusive) {
    unsigned best = None;
    unsigned bestDistance = None;
    for (unsigned i = 0; i < numTabStops(); ++i) {
        unsigned candidate = stops_[i]->tabOrder();
        bool beyond = inclusive ? candidate <= order : candidate < order;
        if (!beyond || !isUsable(i))
            continue;
        if (best == None || order - candidate < bestDistance) {
            best = i;
            bestDistance = order - candidate;
        }
    }
    return best;
}

bool TabOrderManager::internalRemoveTabStop(TabOrderable const& object, bool notifyObject) {
    bool removed = false;
    for (unsigned index = findStop(object); index != None; index = findStop(object)) {
        removeAt(index, notifyObject);
        removed = true;
    }
    if (removed)
        recalcExtremes();
    return removed;
}

bool TabOrderManager::internalSetTabStopFocus(unsigned index, TabOrderable::eDirection direction) {
    RedrawBatch batch;
    Qor::Ptr<ClientInfo> old = currentIndex_ < numTabStops() ? stops_[currentIndex_] : nullptr;
    if (index == None) {
        currentTabOrder_ = None;
        currentIndex_ = None;
        if (old)
            old->object()->handleTabStopFocusLoss();
        return true;
    }
    if (!isUsable(index))
        return false;
    Qor::Ptr<ClientInfo> stop = stops_[index];
    currentTabOrder_ = stop->tabOrder();
    currentIndex_ = index;
    stop->object()->handleTabStopFocusReceipt(direction);
    // The new stop's handler may have removed the old one, or deleted its object.
    bool oldStillHere = std::find(stops_.begin(), stops_.end(), old) != stops_.end();
    if (old && old != stop && oldStillHere)
        old->object()->handleTabStopFocusLoss();
    return true;
}

bool TabOrderManager::makeWayForTabOrder(unsigned order) {
    if (stops_.empty() || order < lowestTabOrder_ || order > highestTabOrder_)
        return true;
    // The run of stops at order, order + 1, ... with no gap moves up by one, from its top down.
    std::vector<unsigned> run;
    for (unsigned index = findStopWithOrder(order); index != None;
         index = findStopWithOrder(order + (unsigned)run.size()))
        run.push_back(index);
    if (run.empty())
        return true;
    if (order + run.size() > MaxTabOrder)
        return false;
    for (auto it = run.rbegin(); it != run.rend(); ++it)
        storeTabOrder(*it, stops_[*it]->tabOrder() + 1);
    return true;
}

unsigned TabOrderManager::findStop(TabOrderable const& object) const {
    for (unsigned i = 0; i < numTabStops(); ++i)
        if (stops_[i]->object() == &object)
            return i;
    return None;
}

unsigned TabOrderManager::findStopWithOrder(unsigned order) const {
    for (unsigned i = 0; i < numTabStops(); ++i)
        if (stops_[i]->tabOrder() == order)
            return i;
    return None;
}

bool TabOrderManager::isUsable(unsigned index) {
    return index < numTabStops() && stops_[index]->isEnabled() &&
           stops_[index]->object()->isTabStopActive();
}

void TabOrderManager::removeAt(unsigned index, bool notifyObject) {
    if (notifyObject)
        stops_[index]->object()->deregisterManager(this);
    if (index == currentIndex_)
        currentIndex_ = None;
    else if (currentIndex_ != None && index < currentIndex_)
        --currentIndex_;
    stops_.erase(stops_.begin() + index);
}

// The current order follows the current stop, so that Tab goes on from where it now stands.
void TabOrderManager::storeTabOrder(unsigned index, unsigned order) {
    stops_[index]->tabOrder(order);
    if (index == currentIndex_)
        currentTabOrder_ = order;
    if (highestTabOrder_ == None || order > highestTabOrder_) {
        highestTabOrder_ = order;
        highestIndex_ = index;
    }
}

void TabOrderManager::recalcExtremes() {
    lowestTabOrder_ = lowestIndex_ = highestTabOrder_ = highestIndex_ = None;
    for (unsigned i = 0; i < numTabStops(); ++i) {
        unsigned order = stops_[i]->tabOrder();
        if (lowestTabOrder_ == None || order < lowestTabOrder_) {
            lowestTabOrder_ = order;
            lowestIndex_ = i;
        }
        if (highestTabOrder_ == None || order > highestTabOrder_) {
            highestTabOrder_ = order;
            highestIndex_ = i;
        }
    }
}
