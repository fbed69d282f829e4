#pragma once

// A nesting mute switch: while the disable count is 1 or more the owner ignores what it hears.

class EnableDisable {
public:
    virtual ~EnableDisable() = default;

    void disable() { ++disableCount_; }
    // An enable without a matching disable is ignored, so the count never goes below zero.
    void enable() {
        if (disableCount_ > 0)
            --disableCount_;
    }
    bool isDisabled() const { return disableCount_ >= 1; }
    int disableCount() const { return disableCount_; }

protected:
    int disableCount_ = 0;
};
