#pragma once

// A draggable divider between two panes. It moves nothing itself: it tells its owner of each
// press, drag and release, with the pointer's positions, and the owner moves it and resizes the
// panes. A vertical splitter stands between a left and a right pane.
//
//   left press           Event kind Pressed
//   move with left held   Event kind Moved (the pointer stays with the splitter until release)
//   left release         Event kind Released
//   hover, other buttons  nothing; inactive: nothing at all
//
// Each goes to the owner's callback as a NotifyMsg named "SplitterMsg" whose data is the
// Splitter::Event; without a callback, to the parent as a data message of that name.

#include "foundation/WidgetCallback.h"
#include "panels/StandardPanel.h"

class Splitter : public StandardPanel {
public:
    static char const* const splitterMsg;

    class Event : public iObject {
    public:
        enum eKind : int { Moved = 0, Pressed = 1, Released = 2 };

        Event(eKind kind_, ::Event const& event);

        eKind kind;
        // As the mouse event has them: on the splitter's canvas, and on the root.
        XY<int> pos;
        XY<int> startPos;
        XY<int> rootPos;
        XY<int> startRootPos;
    };

    struct InitArgs : StandardPanel::InitArgs {
        InitArgs() = default;
        // Sized for the orientation: `length` long, calcThickness() thick.
        InitArgs(WidgetCallback::Callback const& callback_, Orientation orientation_,
                 unsigned short length);
        WidgetCallback::Callback callback;
        Orientation orientation = OrientationVertical;
    };

    explicit Splitter(InitArgs const& args);

    static int calcThickness();
    static XY<int> calcDimensions(Orientation orientation, unsigned short length);

    char const* idstring() const override { return "Splitter"; }
    Orientation getOrientation() const { return orientation_; }
    Colour getBaseColour() const;
    int handleMouseEvent(::Event const& event) override;
    MouseCursorID contextCursor(XY<int> const& rootPos) override;
    void drawBackground() override;

protected:
    void drawNobblesVertical();
    void drawNobblesHorizontal();

private:
    void drawNobble(XY<int> const& centre);

    WidgetCallback::Callback callback_;
    Orientation orientation_;
};
