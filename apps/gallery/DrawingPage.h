#pragma once

// Drawing: filled boxes and gradients, lines, ellipses and arcs, and the helpers that widgets
// build their faces from (bevels, frames, focus rectangles, rounded boxes and outlines).

#include "GalleryPage.h"

class DrawingPage : public GalleryPage {
public:
    using GalleryPage::GalleryPage;
    wchar_t const* title() const override { return L"Drawing"; }
    char const* fileStem() const override { return "drawing"; }
    void drawWidgets() override;

private:
    void drawPrimitives(int x, int y);
    void drawHelpers(int x, int y);
    void drawRounded(int x, int y);
};
