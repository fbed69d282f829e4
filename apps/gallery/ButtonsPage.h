#pragma once

// Buttons: every style in its up, down, inactive and focused states; icons with and without text;
// a latching button; a repeating button whose count climbs while it is held; coloured edges.

#include "GalleryPage.h"
#include "qor/NotifyMsg.h"

#include <vector>

class Button;
class TextLabel;

class ButtonsPage : public GalleryPage {
public:
    explicit ButtonsPage(GlobCreationInfo const& info);

    wchar_t const* title() const override { return L"Buttons"; }
    char const* fileStem() const override { return "buttons"; }
    void shown() override;

private:
    void addStyleRows(XY<int> const& at);
    int addBehaviours(XY<int> const& at);
    void addIcons(XY<int> const& at);
    // A button of the style at the top-left corner `at`.
    Button* addButton(wchar_t const* text, XY<int> const& at, int width);
    int countRepeat(NotifyMsg const& msg);
    int noteLatch(NotifyMsg const& msg);

    Button* focused_ = nullptr;
    TextLabel* repeatCount_ = nullptr;
    TextLabel* latchState_ = nullptr;
    int repeats_ = 0;
};
