#pragma once

// A live clock: it registers for the base layer's time events and redraws when the second
// changes, showing the time as a dial and as text.

#include "GalleryPage.h"

#include <ctime>

class ClockPage : public GalleryPage {
public:
    explicit ClockPage(GlobCreationInfo const& info);
    ~ClockPage() override;
    wchar_t const* title() const override { return L"Live clock"; }
    char const* fileStem() const override { return "clock"; }
    int react(Event const& event) override;
    void drawWidgets() override;

private:
    void drawDial(XY<int> const& centre, int radius, std::tm const& now);
    void hand(XY<int> const& centre, double turns, int length, float width, Colour const& colour);

    std::time_t shown_ = 0;
};
