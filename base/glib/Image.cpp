#include "glib/Image.h"

#include "glib/HostImage.h"

#include "os/Diagnostics.h"
#include "qor/UTF8.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <numbers>
#include <sys/stat.h>

namespace {

// Decoders may hand back other formats (RGB24 for an opaque file); everything here is ARGB32.
cairo_surface_t* asArgb32(cairo_surface_t* decoded) {
    if (cairo_image_surface_get_format(decoded) == CAIRO_FORMAT_ARGB32)
        return decoded;
    cairo_surface_t* out =
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width(decoded),
                                   cairo_image_surface_get_height(decoded));
    cairo_t* cr = cairo_create(out);
    cairo_set_source_surface(cr, decoded, 0, 0);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_paint(cr);
    cairo_destroy(cr);
    cairo_surface_destroy(decoded);
    return out;
}

// Rewrites every premultiplied pixel of the surface in place.
template <class Fn>
void forEachPixel(cairo_surface_t* surface, Fn fn) {
    cairo_surface_flush(surface);
    unsigned char* data = cairo_image_surface_get_data(surface);
    int stride = cairo_image_surface_get_stride(surface);
    int w = cairo_image_surface_get_width(surface);
    int h = cairo_image_surface_get_height(surface);
    for (int y = 0; y < h; ++y) {
        auto* row = reinterpret_cast<uint32_t*>(data + y * stride);
        for (int x = 0; x < w; ++x)
            row[x] = fn(row[x]);
    }
    cairo_surface_mark_dirty(surface);
}

// A new image of the size, drawn by `draw` on a fresh transparent surface.
template <class Fn>
Qor::Ptr<iHostImage> drawnImage(int width, int height, double scale, Fn draw) {
    auto image = Qor::makePtr<HostImage>(width, height, scale);
    cairo_t* cr = cairo_create(image->surface());
    draw(cr);
    cairo_destroy(cr);
    return image;
}

bool fileExists(LightweightString<char> const& path) {
    struct stat info;
    return ::stat(path.c_str(), &info) == 0;
}

uint32_t fadedPixel(uint32_t px) {
    double a = (px >> 24) & 0xff;
    if (a == 0)
        return 0;
    double luma = 0.299 * ((px >> 16) & 0xff) + 0.587 * ((px >> 8) & 0xff) + 0.114 * (px & 0xff);
    double faded = std::round(a / 2);
    auto grey = uint32_t(std::lround(std::min(luma * faded / a, faded)));
    return (uint32_t(faded) << 24) | (grey << 16) | (grey << 8) | grey;
}

void roundedRectPath(cairo_t* cr, double w, double h, double radius) {
    double const quarter = std::numbers::pi / 2;
    cairo_new_sub_path(cr);
    cairo_arc(cr, w - radius, radius, radius, -quarter, 0);
    cairo_arc(cr, w - radius, h - radius, radius, 0, quarter);
    cairo_arc(cr, radius, h - radius, radius, quarter, 2 * quarter);
    cairo_arc(cr, radius, radius, radius, 2 * quarter, 3 * quarter);
    cairo_close_path(cr);
}

} // namespace

namespace ImageServices {

Qor::Ptr<iHostImage> loadImage(LightweightString<wchar_t> const& path, double scale) {
    LightweightString<char> file = toUTF8(path);
    if (!fileExists(file))
        return Qor::Ptr<iHostImage>();
    cairo_surface_t* decoded = cairo_image_surface_create_from_png(file.c_str());
    cairo_status_t status = cairo_surface_status(decoded);
    if (status != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(decoded);
        diag_printf("Can't read the image %s: %s", file.c_str(), cairo_status_to_string(status));
        return Qor::Ptr<iHostImage>();
    }
    return Qor::makePtr<HostImage>(asArgb32(decoded), scale);
}

Qor::Ptr<iHostImage> createImage(int width, int height, double scale) {
    if (width <= 0 || height <= 0)
        return Qor::Ptr<iHostImage>();
    return Qor::makePtr<HostImage>(width, height, scale);
}

} // namespace ImageServices

namespace QorImage {

Qor::Ptr<iHostImage> createResizedIcon(Qor::Ptr<iHostImage> const& image, int width, int height) {
    if (!image || width <= 0 || height <= 0 || image->width() <= 0 || image->height() <= 0)
        return Qor::Ptr<iHostImage>();
    return drawnImage(width, height, image->scale(), [&](cairo_t* cr) {
        cairo_scale(cr, double(width) / image->width(), double(height) / image->height());
        cairo_set_source_surface(cr, image->surface(), 0, 0);
        cairo_pattern_t* pattern = cairo_get_source(cr);
        // Good filtering averages the pixels a shrunk one covers; padding keeps the edges solid.
        cairo_pattern_set_filter(pattern, CAIRO_FILTER_GOOD);
        cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
        cairo_paint(cr);
    });
}

Qor::Ptr<iHostImage> createFadedIcon(Qor::Ptr<iHostImage> const& image) {
    if (!image)
        return Qor::Ptr<iHostImage>();
    Qor::Ptr<iHostImage> copy =
        drawnImage(image->width(), image->height(), image->scale(), [&](cairo_t* cr) {
            cairo_set_source_surface(cr, image->surface(), 0, 0);
            cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
            cairo_paint(cr);
        });
    forEachPixel(copy->surface(), fadedPixel);
    return copy;
}

Qor::Ptr<iHostImage> createRoundedIcon(Qor::Ptr<iHostImage> const& image, unsigned radius) {
    if (!image)
        return Qor::Ptr<iHostImage>();
    double w = image->width();
    double h = image->height();
    double r = std::min({double(radius), w / 2, h / 2});
    return drawnImage(image->width(), image->height(), image->scale(), [&](cairo_t* cr) {
        roundedRectPath(cr, w, h, r);
        cairo_clip(cr);
        cairo_set_source_surface(cr, image->surface(), 0, 0);
        cairo_paint(cr);
    });
}

Qor::Ptr<iHostImage> createRecolouredIcon(Qor::Ptr<iHostImage> const& image, Colour const& colour) {
    if (!image)
        return Qor::Ptr<iHostImage>();
    NormalisedRGB c = fromColour(colour);
    return drawnImage(image->width(), image->height(), image->scale(), [&](cairo_t* cr) {
        cairo_set_source_rgb(cr, c.r, c.g, c.b);
        cairo_mask_surface(cr, image->surface(), 0, 0);
    });
}

} // namespace QorImage
