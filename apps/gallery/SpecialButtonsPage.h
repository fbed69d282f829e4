#pragma once

// Special buttons: the title-row buttons in both looks and both states, symbol and favourite
// buttons, cycle buttons, a link, a command button and titled buttons.

#include "GalleryPage.h"

#include <vector>

class SpecialButtonsPage : public GalleryPage {
public:
    explicit SpecialButtonsPage(GlobCreationInfo const& info);
    wchar_t const* title() const override { return L"Special buttons"; }
    char const* fileStem() const override { return "special-buttons"; }

private:
    // The y of the bottom of row `index`, counted from the top.
    int rowY(int index) const;
    void addTitleRowButtons();
    void addSymbolButtons();
    void addCycleButtons();
    void addLinkAndCommandButtons();
};
