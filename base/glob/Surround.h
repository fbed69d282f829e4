#pragma once

// A soft frame around a top-level panel: a window of its own that lies just below the panel and
// a few pixels beyond it on the chosen sides, shaded from the colour at the panel's edge to
// nothing at its own. Its middle is cut away, so the panel shows and takes the clicks there. It
// follows the panel when the panel moves, hides and shows with it, and dies with it.

#include "glob/Glob.h"
#include "qor/Guard.h"
#include "qor/NotifyMsg.h"

struct SurroundParams {
    SurroundParams() = default;
    SurroundParams(Colour const& colour_, unsigned long size_, float fraction_, unsigned int sides_)
        : colour(colour_), size(size_), fraction(fraction_), sides(sides_) {}

    Colour colour = Colour(0, 0, 0);
    // Width of the frame in pixels.
    unsigned long size = 8;
    // Opacity at the panel's edge, fading to none at the frame's outer edge.
    float fraction = 0.35f;
    // The sides that have a frame: 1 top, 2 bottom, 4 left, 8 right.
    unsigned int sides = 15;
};

class Surround : public Glob {
public:
    // A frame for `owner` (whose size is w by h).
    Surround(unsigned short w, unsigned short h, Glob* owner, SurroundParams const& params);
    ~Surround() override;

    char const* idstring() const override { return "Surround"; }
    bool canBeDestroyed(int) const override { return false; }
    void draw() override;
    // Cuts the window to the frame, leaving the middle to the panel.
    void reshapeCanvas() override;
    // Keeps the frame at the same place around `owner` as the owner moves.
    void stickTo(Glob* owner);
    // Places the frame around its owner again (after a move or a resize).
    void follow();

    SurroundParams const& params() const { return params_; }
    Glob* owner() const;

private:
    // How far the frame reaches beyond the owner on each side.
    int reach(unsigned side) const;
    int handleOwnerMoved(NotifyMsg const& msg);

    SurroundParams params_;
    Glob* owner_;
    IdStamp ownerStamp_;
    Qor::Ptr<Qor::Guard> moved_;
};
