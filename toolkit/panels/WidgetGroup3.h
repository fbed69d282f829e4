#pragma once

// A titled group whose title stands above its frame rather than inside it: the frame encloses
// only the controls, which start a gap below its top edge.

#include "panels/WidgetGroupEx.h"

class WidgetGroup3 : public WidgetGroupEx {
public:
    using InitArgs = WidgetGroup::InitArgs;

    explicit WidgetGroup3(WidgetGroup::InitArgs const& args);

    char const* idstring() const override { return "WidgetGroup3"; }
    using WidgetGroupEx::getOriginXY;
    XY<int> getOriginXY(eCoordinateOrigin origin) const override;
    void drawBackground() override;
    void drawBorder() override {}

protected:
    // The frame's box: the whole group below the title row.
    Box frameBox() const;
};
