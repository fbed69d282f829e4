#pragma once

// A tab stop with no widget behind it, for driving a TabOrderManager directly. Every focus call
// goes to a shared log as "+name" (received, with "<" when going backwards) or "-name" (lost).

#include "panels/TabOrderable.h"

#include <string>
#include <utility>
#include <vector>

class PlainStop : public TabOrderable {
public:
    PlainStop(std::string name, std::vector<std::string>& log)
        : name_(std::move(name)), log_(log) {}

    bool isTabStopActive() override { return active; }
    void handleTabStopFocusReceipt(eDirection direction) override {
        log_.push_back((direction == Backward ? "+<" : "+") + name_);
    }
    void handleTabStopFocusLoss() override { log_.push_back("-" + name_); }

    bool active = true;

private:
    std::string name_;
    std::vector<std::string>& log_;
};
