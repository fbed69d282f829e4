#include "buttons/FadingTextLabel.h"

#include "os/Clock.h"

#include <algorithm>

FadingTextLabel::FadingTextLabel(InitArgs const& args)
    : TextLabel(args), holdMs_(args.holdMs), fadeMs_(args.fadeMs) {
    if (!args.text.empty())
        setText(args.text, NoRedraw);
}

void FadingTextLabel::setText(LightweightString<wchar_t> const& text, eRedrawFlag redraw) {
    stopTiming();
    TextLabel::setText(text, redraw);
    if (text.empty())
        return;
    restingColour_ = getTextColour();
    fullColour_ = getEffectiveTextColour();
    shownAt_ = msecsNow();
    timing_ = true;
    setInterest(EventCode::Timer);
}

int FadingTextLabel::react(Event const& event) {
    if (!timing_ || !isTimerEvent(event))
        return TextLabel::react(event);
    tick();
    return 1;
}

void FadingTextLabel::tick() {
    double since = msecsNow() - shownAt_;
    if (since >= holdMs_ + fadeMs_) {
        stopTiming();
        TextLabel::setText(LightweightString<wchar_t>(), Redraw);
        return;
    }
    if (since <= holdMs_)
        return;
    double t = std::min(1.0, (since - holdMs_) / fadeMs_);
    setTextColour(Colour::mix(fullColour_, getPalette().window(WindowShadeBase), t), Redraw);
}

void FadingTextLabel::stopTiming() {
    if (!timing_)
        return;
    timing_ = false;
    clearInterest(EventCode::Timer);
    setTextColour(restingColour_, NoRedraw);
}
