#pragma once

// Check boxes: every appearance ticked and clear, active and inactive, one holding the keyboard
// focus; a set of round boxes that make one choice; a row of radio buttons; and a group of
// controls headed by a check box.

#include "GalleryPage.h"

#include <vector>

class Checkbox;

class CheckboxesPage : public GalleryPage {
public:
    explicit CheckboxesPage(GlobCreationInfo const& info);
    wchar_t const* title() const override { return L"Check boxes"; }
    char const* fileStem() const override { return "checkboxes"; }
    void drawWidgets() override;

private:
    void addAppearances(XY<int> const& at);
    void addChoices(XY<int> const& at);

    Checkbox* focused_ = nullptr;
    bool focusShown_ = false;
};
