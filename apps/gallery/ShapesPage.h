#pragma once

// Shapes and images: the corner pattern of a panel's curved outline and the region it makes, a
// generated picture with the copies icons are made of (resized, faded, rounded, recoloured), and
// the region of a picture's opaque pixels.

#include "GalleryPage.h"

#include "glib/Image.h"

class ShapesPage : public GalleryPage {
public:
    explicit ShapesPage(GlobCreationInfo const& info);
    wchar_t const* title() const override { return L"Shapes and images"; }
    char const* fileStem() const override { return "shapes"; }
    void drawWidgets() override;

private:
    void drawCorner(int x, int y, eCurvedRegionType type, wchar_t const* name);
    void drawImages(int x, int y);
    void drawImageRegion(int x, int y);
    void image(Qor::Ptr<iHostImage> const& picture, Box const& box);

    Qor::Ptr<iHostImage> picture_;
};
