#pragma once

// A busy indicator: two arcs of half a turn that spin, one inside the other, while something
// goes on. It ticks on the widget timer only while it is visible, so a hidden one costs nothing.

#include "panels/StandardPanel.h"

class ActionIndicator : public StandardPanel {
public:
    using InitArgs = StandardPanel::InitArgs;

    explicit ActionIndicator(InitArgs const& args);
    ~ActionIndicator() override;

    // Milliseconds for one turn of the outer arc.
    static constexpr double turnPeriodMs = 1000.0;

    char const* idstring() const override { return "ActionIndicator"; }
    void setVisible(bool visible) override;
    void handleTimerEvent() override;
    void drawBackground() override;
    using StandardPanel::draw;
    // The arcs at this moment within the box; `lively` draws them in the selection colour, else
    // in a faint text colour.
    void draw(CanvasRenderer& r, Box const& box, bool lively);
};
