#pragma once

// A thumb that slides along a channel to pick a number in a range, horizontal or vertical. It
// shows the value of its adaptor when it has one, tells its parent or callback what the user does,
// and snaps to a point of interest on a chord of the mouse.
//
// Interaction (an inactive slider ignores the mouse, but lets go of a thumb it holds):
//   event                    slider                        parent/callback       adaptor
//   left press on the thumb  picks it up                   -                     -
//   move, thumb held         thumb follows the pointer     change                kind 0 first,
//                                                                                then 1
//   release, thumb held      drops the thumb               released              2 if it moved
//   chord (two buttons)      jumps to the nearest point    change, released      3
//                            of interest, drops the thumb
//   left press off the thumb jumps to the pointer          change, released      3
//   wheel                    one step up or down           change, released      3
// A parent without a callback gets the messages "slider <value>" and "slider_released <value>".

#include "foundation/ValWidget.h"
#include "foundation/WidgetCallback.h"
#include "glob/Glob.h"

#include <vector>

class Slider : public Glob, public ValWidget<double> {
public:
    // What the callback gets as the data of its message.
    enum eEventType : int { Changed = 1, Released = 2 };

    class Event : public iObject {
    public:
        Event(double value, eEventType kind) : value_(value), kind_(kind) {}
        double value() const { return value_; }
        eEventType kind() const { return kind_; }

    private:
        double value_;
        eEventType kind_;
    };

    // A value that a chord of the mouse jumps to; drawn as a tick beside the channel.
    struct PointOfInterest {
        double value = 0.0;
    };

    struct InitArgs : GlobCreationInfo {
        InitArgs() = default;
        InitArgs(unsigned short w, unsigned short h) : GlobCreationInfo(w, h) {}
        double minimum = 0.0;
        double maximum = 1.0;
        double position = 0.0;
        // 0: a five-hundredth of the range.
        double increment = 0.0;
        ::Orientation orientation = OrientationHorizontal;
        bool roundedPixelValues = true;
        // Without a callback, the parent gets messages.
        WidgetCallback callback;
    };

    explicit Slider(InitArgs const& args);

    char const* idstring() const override { return "Slider"; }

    double getPosition() const { return position_; }
    double getMinimum() const { return minimum_; }
    double getMaximum() const { return maximum_; }
    // Keeps the position inside the new range, silently.
    void setRange(double minimum, double maximum, eRedrawFlag redraw = Redraw);
    void setIncrement(double increment) { increment_ = increment; }
    // The nudge step in effect.
    double getStep() const;
    void setOrientation(::Orientation orientation);
    ::Orientation getOrientation() const { return orientation_; }
    void setThumbColour(Colour const& colour);
    Colour const& getThumbColour() const { return thumbColour_; }
    void setRoundedPixelValues(bool rounded) { roundedPixelValues_ = rounded; }
    void setCallback(WidgetCallback const& callback) { callback_ = callback; }
    void setPointsOfInterest(std::vector<PointOfInterest> const& points);
    std::vector<PointOfInterest> const& getPointsOfInterest() const { return pointsOfInterest_; }
    // The point of interest nearest the position; the position itself when there is none.
    double getPointOfInterest() const;

    // Pixel of the thumb's centre for a value, along the slider, and back.
    double v2x(double value) const;
    // With rounded pixel values, the roundest value (to three places) that the pixel covers.
    double x2v(double x) const;
    double getStartPixel() const { return startPixel_; }
    double getEndPixel() const { return endPixel_; }
    int getThumbHalfWidth() const { return thumbHalfWidth_; }
    bool isThumbHeld() const { return thumbHeld_; }

    // Stores the value without a word to anybody; 0 when it was already there, else 1.
    int setPosition(double value);
    // Clamps, stores, tells the parent (change, released) and repaints; 0 when nothing changed.
    int changePosition(double value);
    // One step up or down, through the parent and the adaptor.
    void nudge(bool up);

    int react(::Event const& event) override;
    void resize(double w, double h) override;
    void drawBackground() override;

    double getWidgetValue() override { return position_; }
    void setNewWidgetValue(double& value, eRedrawFlag redraw) override;

protected:
    void init();
    void recalculateStartAndEnd();
    // 1 says released, anything else changed.
    void informParent(int kind);
    void pickUpThumb(::Event const& event);
    // From the pointer and the grab offset; 1 when the position changed.
    int setSliderFromPixelPos(::Event const& event);
    virtual void drawChannel();
    virtual void drawThumb();

private:
    // The coordinate along the slider's run.
    int along(XY<int> const& p) const;
    int length() const;
    bool isOnThumb(XY<int> const& p) const;
    double clampValue(double value) const;
    // Tells the parent of a finished change, repaints and tells the adaptor; false when the
    // slider went away meanwhile.
    bool completeChange();
    bool informParentSafely(int kind);
    int reactToMove(::Event const& event);
    int reactToRelease();
    int reactToChord();
    int reactToPressOffThumb(::Event const& event);
    Box channelBox() const;
    Box thumbBox() const;

    double startPixel_ = 0.0;
    double endPixel_ = 0.0;
    double minimum_ = 0.0;
    double maximum_ = 1.0;
    double position_ = 0.0;
    double increment_ = 0.0;
    std::vector<PointOfInterest> pointsOfInterest_;
    Colour thumbColour_ = Colour(1.0, 0.0, 0.0);
    int thumbHalfWidth_ = 0;
    int grabOffset_ = 0;
    int changeKind_ = NewText;
    bool thumbHeld_ = false;
    bool roundedPixelValues_ = true;
    ::Orientation orientation_ = OrientationHorizontal;
    WidgetCallback callback_;
};
