#pragma once

// A decoded image in memory: premultiplied ARGB pixels in a cairo image surface (rows top down
// inside, y up at this interface). The images of ImageServices and QorImage are HostImages; code
// that makes pictures of its own (generated icons, tests) draws on one with fill and setPixel.

#include "glib/Image.h"
#include "qor/Box.h"

class HostImage : public iHostImage {
public:
    // A transparent image of the size (at least one pixel each way).
    HostImage(int width, int height, double scale = 1.0);
    // Takes over an ARGB32 image surface.
    HostImage(cairo_surface_t* surface, double scale);
    ~HostImage() override;
    HostImage(HostImage const&) = delete;
    HostImage& operator=(HostImage const&) = delete;

    int width() const override;
    int height() const override;
    double scale() const override { return scale_; }
    NormalisedRGB pixel(int x, int y) const override;
    cairo_surface_t* surface() const override { return surface_; }

    // Replace the pixels (y up) with the colour, alpha included.
    void setPixel(int x, int y, NormalisedRGB const& colour);
    void fill(Box const& box, NormalisedRGB const& colour);
    bool savePng(char const* path) const;

private:
    cairo_surface_t* surface_;
    double scale_;
};
