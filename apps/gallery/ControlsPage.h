#pragma once

// Small controls: sliders in both orientations, active and inactive, one with points of interest;
// gauges at several measures; plain, aligned and rich labels, a fading label that remarks on the
// slider's moves; colour swatches, translucent and unset ones among them. The lower part of the
// page is kept free for buttons.

#include "GalleryPage.h"

#include <vector>

class FadingTextLabel;
class Slider;
class TextLabel;

class ControlsPage : public GalleryPage {
public:
    explicit ControlsPage(GlobCreationInfo const& info);
    wchar_t const* title() const override { return L"Controls"; }
    char const* fileStem() const override { return "controls"; }

private:
    // Each returns the y of the bottom of what it added.
    int addSliders(XY<int> const& at);
    int addGauges(XY<int> const& at);
    int addLabels(XY<int> const& at);
    int addSwatches(XY<int> const& at);
    Slider* addSlider(XY<int> const& at, XY<int> const& size, double position);
    void showValue(double value);
    // A caption over a sample whose top-left corner is at `at`; answers the sample's top.
    int captioned(wchar_t const* text, XY<int> const& at);

    TextLabel* valueLabel_ = nullptr;
    FadingTextLabel* remark_ = nullptr;
};
