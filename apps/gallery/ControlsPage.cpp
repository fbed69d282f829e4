#include "ControlsPage.h"

#include "buttons/ColRect.h"
#include "buttons/FadingTextLabel.h"
#include "buttons/Gauge.h"
#include "buttons/Slider.h"
#include "buttons/TextLabel.h"
#include "glob/UifStd.h"

#include <cstdio>

namespace {

constexpr int columnWidth = 300;
constexpr int sampleWidth = 240;

int rowHeight() {
    return UifStd::getRowHeight();
}

// The space between one sample and the caption of the next.
int sampleGap() {
    return 2 * UifStd::getRowHeight();
}

} // namespace

ControlsPage::ControlsPage(GlobCreationInfo const& info) : GalleryPage(info) {
    int left = rowHeight();
    int y = top() - rowHeight();
    addSliders(XY<int>(left, y));
    int below = addGauges(XY<int>(left + columnWidth, y));
    addLabels(XY<int>(left + columnWidth, below - sampleGap()));
    addSwatches(XY<int>(left + 2 * columnWidth, y));
}

int ControlsPage::captioned(wchar_t const* line, XY<int> const& at) {
    addLabel(line, at, false);
    return at.y - UifStd::getWidgetGap();
}

Slider* ControlsPage::addSlider(XY<int> const& at, XY<int> const& size, double position) {
    Slider::InitArgs args((unsigned short)size.x, (unsigned short)size.y);
    args.position = position;
    return createChild<Slider>(args, BottomLeft(at.x, at.y - size.y));
}

int ControlsPage::addSliders(XY<int> const& at) {
    addLabel(L"Sliders", at, true);
    int y =
        captioned(L"Horizontal: drag, click, turn the wheel", XY<int>(at.x, at.y - sampleGap()));
    Slider* live = addSlider(XY<int>(at.x, y), XY<int>(sampleWidth, rowHeight()), 0.35);
    TextLabel::InitArgs value(L"", 48, (unsigned short)rowHeight());
    value.fixedSize = true;
    value.alignment = TextAlignRight;
    valueLabel_ = createChild<TextLabel>(value, RightOf(UifStd::getWidgetGap(), live));
    live->setCallback(WidgetCallback(Qor::makeCallback<NotifyMsg>([this](NotifyMsg const& msg) {
                                         if (auto* e =
                                                 dynamic_cast<Slider::Event*>(msg.getData().get()))
                                             showValue(e->value());
                                         return 0;
                                     }),
                                     "moved"));
    valueLabel_->setText(L"0.350", NoRedraw);

    y = captioned(L"Points of interest: chord the mouse to snap",
                  XY<int>(at.x, y - rowHeight() - sampleGap()));
    Slider* snapping = addSlider(XY<int>(at.x, y), XY<int>(sampleWidth, rowHeight()), 0.6);
    snapping->setPointsOfInterest({{0.0}, {0.25}, {0.5}, {0.75}, {1.0}});
    snapping->setThumbColour(Colour(0.18, 0.48, 0.92));

    y = captioned(L"Inactive", XY<int>(at.x, y - rowHeight() - sampleGap()));
    addSlider(XY<int>(at.x, y), XY<int>(sampleWidth, rowHeight()), 0.6)->setActive(false, NoRedraw);

    y = captioned(L"Vertical, active and inactive", XY<int>(at.x, y - rowHeight() - sampleGap()));
    int tall = 6 * rowHeight();
    Slider* up = addSlider(XY<int>(at.x, y), XY<int>(rowHeight(), tall), 0.7);
    up->setOrientation(OrientationVertical);
    Slider* still = addSlider(XY<int>(at.x + 2 * rowHeight(), y), XY<int>(rowHeight(), tall), 0.3);
    still->setOrientation(OrientationVertical);
    still->setActive(false, NoRedraw);
    return y - tall;
}

void ControlsPage::showValue(double value) {
    wchar_t line[32];
    std::swprintf(line, 32, L"%.3f", value);
    valueLabel_->setText(line);
    wchar_t remark[64];
    std::swprintf(remark, 64, L"Slider moved to %.3f", value);
    remark_->setText(remark);
}

int ControlsPage::addGauges(XY<int> const& at) {
    addLabel(L"Gauges", at, true);
    struct Sample {
        double measure;
        wchar_t const* text;
    } const samples[] = {{0.0, L"Waiting"}, {0.3, L"Copying, 30%"}, {0.65, L""}, {1.0, L"Done"}};
    int y = captioned(L"At 0, 0.3, 0.65 and 1", XY<int>(at.x, at.y - sampleGap()));
    for (Sample const& s : samples) {
        Gauge::InitArgs args((unsigned short)sampleWidth, (unsigned short)(rowHeight() - 4));
        args.text = s.text;
        auto* gauge = createChild<Gauge>(args, BottomLeft(at.x, y - args.height));
        gauge->setMeasure(s.measure);
        y -= args.height + UifStd::getWidgetGap() * 2;
    }
    return y;
}

int ControlsPage::addLabels(XY<int> const& at) {
    addLabel(L"Labels", at, true);
    int y =
        captioned(L"Plain, and right-aligned in a fixed width", XY<int>(at.x, at.y - sampleGap()));
    createChild<TextLabel>(TextLabel::InitArgs(L"A plain label"),
                           BottomLeft(at.x, y - rowHeight()));
    y -= rowHeight() + UifStd::getWidgetGap();
    TextLabel::InitArgs right(L"Right-aligned", (unsigned short)sampleWidth,
                              (unsigned short)rowHeight());
    right.fixedSize = true;
    right.alignment = TextAlignRight;
    createChild<TextLabel>(right, BottomLeft(at.x, y - rowHeight()))
        ->setPalette(makeChildPalette(getPalette(), ChildWindowInset));
    y -= rowHeight();

    y = captioned(L"Rich text", XY<int>(at.x, y - sampleGap()));
    createChild<TextLabel>(
        TextLabel::InitArgs(
            L"<p><b>Bold</b>, <i>italic</i> and <font color=\"#c03020\">coloured</font></p>"),
        BottomLeft(at.x, y - rowHeight()));
    y -= rowHeight();

    y = captioned(L"Fading: remarks on the first slider", XY<int>(at.x, y - sampleGap()));
    FadingTextLabel::InitArgs fading(L"Move the first slider", (unsigned short)sampleWidth,
                                     (unsigned short)rowHeight());
    fading.fixedSize = true;
    fading.holdMs = 2500;
    fading.fadeMs = 1500;
    remark_ = createChild<FadingTextLabel>(fading, BottomLeft(at.x, y - rowHeight()));
    return y - rowHeight();
}

int ControlsPage::addSwatches(XY<int> const& at) {
    addLabel(L"Colour swatches", at, true);
    struct Sample {
        Colour colour;
        double alpha;
    } const samples[] = {{Colour(0.85, 0.2, 0.15), 1.0}, {Colour(0.18, 0.48, 0.92), 1.0},
                         {Colour(0.2, 0.65, 0.3), 1.0},  {Colour(0.18, 0.48, 0.92), 0.5},
                         {Colour(0.85, 0.2, 0.15), 0.2}, {Colour(), 1.0}};
    int y = captioned(L"Opaque, translucent and unset", XY<int>(at.x, at.y - sampleGap()));
    int side = 2 * rowHeight() - 4;
    int x = at.x;
    for (Sample const& s : samples) {
        ColourSwatch::InitArgs args(s.colour, (unsigned short)side, (unsigned short)side);
        args.alpha = s.alpha;
        createChild<ColourSwatch>(args, BottomLeft(x, y - side));
        x += side + UifStd::getWidgetGap();
    }
    y = captioned(L"Bound to a colour value; its tip spells it out",
                  XY<int>(at.x, y - side - sampleGap()));
    ColRect::InitArgs bound(ColourData(0.18, 0.48, 0.92, ColourSpace::RGB, 0.75),
                            (unsigned short)(3 * side), (unsigned short)side);
    createChild<ColRect>(bound, BottomLeft(at.x, y - side));
    return y - side;
}
