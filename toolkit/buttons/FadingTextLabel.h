#pragma once

// A label for passing remarks: each text shows at full colour for a while, then fades into the
// background and is gone. Time is read from msecsNow(), so a test clock drives it.
//
//   event              label
//   setText(non-empty) full colour, starts timing (timer interest)
//   timer, holding     nothing
//   timer, fading      text colour mixed towards the background by the time since
//   timer, time up     text empty, colour restored, timer interest dropped
//   setText(empty)     text empty, timing stops

#include "buttons/TextLabel.h"

class FadingTextLabel : public TextLabel {
public:
    struct InitArgs : TextLabel::InitArgs {
        InitArgs() = default;
        explicit InitArgs(LightweightString<wchar_t> const& text_, unsigned short w = 0,
                          unsigned short h = 0)
            : TextLabel::InitArgs(text_, w, h) {}
        // At full colour, then fading; in milliseconds.
        double holdMs = 2000.0;
        double fadeMs = 1000.0;
    };

    explicit FadingTextLabel(InitArgs const& args);

    char const* idstring() const override { return "FadingTextLabel"; }

    void setText(LightweightString<wchar_t> const& text, eRedrawFlag redraw = Redraw) override;
    bool isTiming() const { return timing_; }
    int react(Event const& event) override;

private:
    void tick();
    void stopTiming();

    double holdMs_;
    double fadeMs_;
    double shownAt_ = 0.0;
    // The label's own colour setting, put back when the text is gone.
    Colour restingColour_;
    Colour fullColour_;
    bool timing_ = false;
};
