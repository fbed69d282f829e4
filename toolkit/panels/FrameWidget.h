#pragma once

// A frame drawn around whatever lies inside it: three nested bands, the middle one twice as wide,
// in the window colour and a shade of it. It paints only the bands, so what is inside shows
// through. DropIndicator is the same frame in the selection colour, showing where a drop lands.

#include "glob/Glob.h"

class FrameWidget : public Glob {
public:
    using InitArgs = GlobCreationInfo;

    explicit FrameWidget(GlobCreationInfo const& info);

    // The width of all three bands together.
    static int getThickness();

    char const* idstring() const override { return "FrameWidget"; }
    void drawBackground() override;

protected:
    void drawFrames(Colour const& base);
};

class DropIndicator : public FrameWidget {
public:
    explicit DropIndicator(GlobCreationInfo const& info);

    char const* idstring() const override { return "DropIndicator"; }
    void drawBackground() override;
};
