#pragma once

// A tab stop with no widget behind it, for driving a TabOrderManager directly. Every focus call
// goes to a shared log as "+name" (received, with "<" when going backwards) or "-name" (lost).

#include "panels/TabOrderable.h"

#include <string>
#include <utility>
#include <vector>

class PlainStop : public TabOrderable {
public:
    PlainStop(std::string name, std::vector<std::string>* log = nullptr)
        : name_(std::move(name)), log_(log) {}

    bool isTabStopActive() override { return active; }
    void handleTabStopFocusReceipt(eDirection direction) override {
        note((direction == Backward ? "+<" : "+") + name_);
    }
    void handleTabStopFocusLoss() override { note("-" + name_); }

    bool active = true;

private:
    void note(std::string const& entry) {
        if (log_ != nullptr)
            log_->push_back(entry);
    }

    std::string name_;
    std::vector<std::string>* log_;
};
