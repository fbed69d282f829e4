#include "panels/TabOrderable.h"
#include "panels/TabOrderManager.h"

#include <algorithm>

TabOrderable::~TabOrderable() {
    while (!managers_.empty()) {
        TabOrderManager* manager = managers_.back();
        std::erase(managers_, manager);
        manager->internalRemoveTabStop(*this, false);
    }
}

void TabOrderable::handleTabStopFocusReceipt(eDirection) {}

void TabOrderable::handleTabStopFocusLoss() {}

void TabOrderable::registerManager(TabOrderManager* manager) {
    managers_.push_back(manager);
}

void TabOrderable::deregisterManager(TabOrderManager* manager) {
    auto it = std::find(managers_.begin(), managers_.end(), manager);
    if (it != managers_.end())
        managers_.erase(it);
}

bool TabOrderable::isTabStopFocus() const {
    return std::any_of(managers_.begin(), managers_.end(),
                       [this](TabOrderManager* m) { return m->isTabStopFocus(*this); });
}

bool TabOrderable::setTabStopFocus() {
    // A manager's callbacks may change the list, so work on a copy.
    std::vector<TabOrderManager*> managers = managers_;
    for (TabOrderManager* manager : managers)
        if (std::find(managers_.begin(), managers_.end(), manager) != managers_.end())
            manager->setTabStopFocus(*this);
    return isTabStopFocus();
}

void TabOrderable::relinquishTabStopFocus() {
    std::vector<TabOrderManager*> managers = managers_;
    for (TabOrderManager* manager : managers)
        if (std::find(managers_.begin(), managers_.end(), manager) != managers_.end())
            manager->setTabStopFocus(TabOrderManager::None);
}
