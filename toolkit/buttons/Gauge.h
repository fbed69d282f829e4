#pragma once

// A bar that shows how far something has got, from 0 to 1, with a text over it. Its owner may set
// the measure as often as it likes and call display(), which repaints only when what would be
// drawn differs from what is on the screen.

#include "panels/rect.h"

class Gauge : public rect {
public:
    struct InitArgs : rect::InitArgs {
        InitArgs() = default;
        InitArgs(unsigned short w, unsigned short h) : rect::InitArgs(w, h) {}
        // Unset colours take the palette's selection colour and inset fill.
        Colour fillColour;
        Colour emptyColour;
        LightweightString<wchar_t> text;
    };

    explicit Gauge(InitArgs const& args);

    char const* idstring() const override { return "Gauge"; }

    // A measure outside 0 to 1 is ignored. Nothing is repainted until display().
    void setMeasure(double measure);
    double getMeasure() const { return measure_; }
    void setText(LightweightString<wchar_t> const& text) { text_ = text; }
    LightweightString<wchar_t> const& getText() const { return text_; }
    void setColours(Colour const& fill, Colour const& empty, eRedrawFlag redraw = Redraw);
    // Repaints when the text or the filled length has changed since the last painting.
    void display();
    // Whether the length last painted is the one of this measure.
    bool isShowingValue(double measure) const;

    void drawBackground() override;

private:
    int lengthFor(double measure) const;
    void drawText(Box const& filled);

    Colour fillColour_;
    Colour emptyColour_;
    double measure_ = 0.0;
    LightweightString<wchar_t> text_;
    // What the last painting showed; -1 before the first.
    LightweightString<wchar_t> shownText_;
    int shownLength_ = -1;
};
