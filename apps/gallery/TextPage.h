#pragma once

// Text: the interface font in several sizes and styles, other families, alignment, selection,
// shortening to a width, and the symbol glyphs that widgets draw their arrows and ticks with.

#include "GalleryPage.h"

class TextPage : public GalleryPage {
public:
    using GalleryPage::GalleryPage;
    wchar_t const* title() const override { return L"Text"; }
    char const* fileStem() const override { return "text"; }
    void drawWidgets() override;

private:
    void drawSizes(int x, int y);
    void drawFamilies(int x, int y);
    void drawAlignment(int x, int y);
    void drawSelectionAndShortening(int x, int y);
    void drawSymbols(int x, int y);
};
