#include "glib/HostImage.h"

#include <algorithm>
#include <cairo.h>

HostImage::HostImage(int width, int height, double scale)
    : surface_(
          cairo_image_surface_create(CAIRO_FORMAT_ARGB32, std::max(width, 1), std::max(height, 1))),
      scale_(scale) {}

HostImage::HostImage(cairo_surface_t* surface, double scale) : surface_(surface), scale_(scale) {}

HostImage::~HostImage() {
    cairo_surface_destroy(surface_);
}

int HostImage::width() const {
    return cairo_image_surface_get_width(surface_);
}

int HostImage::height() const {
    return cairo_image_surface_get_height(surface_);
}

NormalisedRGB HostImage::pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= width() || y >= height())
        return NormalisedRGB(0, 0, 0, 0);
    cairo_surface_flush(surface_);
    unsigned char const* data = cairo_image_surface_get_data(surface_);
    int stride = cairo_image_surface_get_stride(surface_);
    int row = height() - 1 - y;
    uint32_t px = reinterpret_cast<uint32_t const*>(data + row * stride)[x];
    float a = float((px >> 24) & 0xff) / 255.0f;
    if (a == 0)
        return NormalisedRGB(0, 0, 0, 0);
    auto channel = [&](int shift) { return float((px >> shift) & 0xff) / 255.0f / a; };
    return NormalisedRGB(channel(16), channel(8), channel(0), a);
}

void HostImage::setPixel(int x, int y, NormalisedRGB const& colour) {
    fill(Box(x, y, x + 1, y + 1), colour);
}

void HostImage::fill(Box const& box, NormalisedRGB const& colour) {
    if (box.isEmpty())
        return;
    cairo_t* cr = cairo_create(surface_);
    cairo_set_source_rgba(cr, colour.r, colour.g, colour.b, colour.a);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_rectangle(cr, box.x1, height() - box.y2, box.width(), box.height());
    cairo_fill(cr);
    cairo_destroy(cr);
}

bool HostImage::savePng(char const* path) const {
    cairo_surface_flush(surface_);
    return cairo_surface_write_to_png(surface_, path) == CAIRO_STATUS_SUCCESS;
}
