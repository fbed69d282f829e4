#pragma once

// A patch of one colour inside a thin edge. A translucent colour is shown over a chequer, so its
// opacity can be seen; an unset colour shows as a struck-out empty patch.

#include "panels/rect.h"

class ColourSwatch : public rect {
public:
    struct InitArgs : rect::InitArgs {
        InitArgs() = default;
        InitArgs(Colour const& colour_, unsigned short w, unsigned short h)
            : rect::InitArgs(w, h), colour(colour_) {}
        Colour colour;
        // 0 transparent to 1 opaque.
        double alpha = 1.0;
    };

    explicit ColourSwatch(InitArgs const& args);

    char const* idstring() const override { return "ColourSwatch"; }

    void setColour(Colour const& colour, double alpha = 1.0, eRedrawFlag redraw = Redraw);
    Colour const& getColour() const { return colour_; }
    double getAlpha() const { return alpha_; }

    void drawBackground() override;

private:
    void drawChequer(Box const& inside);
    void drawStrikeOut(Box const& inside);

    Colour colour_;
    double alpha_;
};
