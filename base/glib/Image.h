#pragma once

// Images: decoded bitmaps of premultiplied ARGB pixels, as drawn by the renderer, loaded from PNG
// files and transformed for icons (resized, faded, rounded, recoloured).

#include "glib/Colour.h"
#include "qor/LightweightString.h"
#include "qor/Ptr.h"

#include <cstdint>

typedef struct _cairo_surface cairo_surface_t;

class iImage : public iObject {
public:
    virtual int width() const = 0;
    virtual int height() const = 0;
};

class iHostImage : public iImage {
public:
    // How many pixels of the image make one pixel of the interface (2 for a "-2x" file).
    virtual double scale() const = 0;
    // The colour at (x, y), y up from the bottom row, unpremultiplied.
    virtual NormalisedRGB pixel(int x, int y) const = 0;
    virtual cairo_surface_t* surface() const = 0;
};

namespace ImageServices {
// A PNG file; an empty pointer when it is missing or unreadable (with one diagnostic line for a
// file that exists but can't be decoded).
Qor::Ptr<iHostImage> loadImage(LightweightString<wchar_t> const& path, double scale = 1.0);
// A transparent image of that size.
Qor::Ptr<iHostImage> createImage(int width, int height, double scale = 1.0);
} // namespace ImageServices

namespace QorImage {
Qor::Ptr<iHostImage> createResizedIcon(Qor::Ptr<iHostImage> const& image, int width, int height);
// Grey and half transparent, for an inactive control.
Qor::Ptr<iHostImage> createFadedIcon(Qor::Ptr<iHostImage> const& image);
// Corners cut round with the radius in pixels.
Qor::Ptr<iHostImage> createRoundedIcon(Qor::Ptr<iHostImage> const& image, unsigned radius);
// Every pixel in one colour, keeping its alpha.
Qor::Ptr<iHostImage> createRecolouredIcon(Qor::Ptr<iHostImage> const& image, Colour const& colour);
} // namespace QorImage
