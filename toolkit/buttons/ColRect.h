#pragma once

// A colour swatch bound to a colour value: it shows what its adaptor says, and its tip spells the
// colour out as "R : 0.18, G : 0.48, B : 0.92, A : 1".

#include "buttons/ColourSwatch.h"
#include "foundation/ValWidget.h"

class ColRect : public ColourSwatch, public ValWidget<ColourData> {
public:
    struct InitArgs : ColourSwatch::InitArgs {
        InitArgs() = default;
        InitArgs(ColourData const& value_, unsigned short w, unsigned short h)
            : ColourSwatch::InitArgs(Colour(), w, h), value(value_) {}
        ColourData value;
    };

    explicit ColRect(InitArgs const& args);

    char const* idstring() const override { return "ColRect"; }

    UIString contextString(XY<int> const& rootPos, CanvasClient* client) override;
    TooltipDetails getTooltipDetails(XY<int> const& rootPos, CanvasClient* client) override;

    ColourData getWidgetValue() override { return value_; }
    void setNewWidgetValue(ColourData& value, eRedrawFlag redraw) override;

private:
    void show(ColourData const& value, eRedrawFlag redraw);

    ColourData value_;
};
