// panelkit-render-icons: a build step that rasterizes one SVG icon to PNG files, one per size.
//
//     panelkit-render-icons SOURCE.svg SIZE OUTPUT.png [SIZE OUTPUT.png ...]
//
// The document's viewBox is fitted to a square of SIZE pixels on a transparent background. Any
// failure prints one line naming the file and exits non-zero, so the build stops on a broken icon.

#include <cairo.h>
#include <librsvg/rsvg.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// Sizes beyond this are typing mistakes, not icons.
constexpr int maximumSize = 1024;

int fail(std::string const& message) {
    std::fprintf(stderr, "panelkit-render-icons: %s\n", message.c_str());
    return 1;
}

int parseSize(char const* text) {
    char* end = nullptr;
    long size = std::strtol(text, &end, 10);
    if (end == text || *end != '\0' || size <= 0 || size > maximumSize)
        return 0;
    return int(size);
}

bool renderPng(RsvgHandle* svg, int size, char const* output, std::string& error) {
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size, size);
    cairo_t* cr = cairo_create(surface);
    RsvgRectangle viewport{0, 0, double(size), double(size)};
    GError* gerror = nullptr;
    bool drawn = rsvg_handle_render_document(svg, cr, &viewport, &gerror);
    if (!drawn) {
        error = gerror ? gerror->message : "cannot render";
        g_clear_error(&gerror);
    }
    cairo_destroy(cr);
    cairo_status_t status =
        drawn ? cairo_surface_write_to_png(surface, output) : CAIRO_STATUS_SUCCESS;
    if (status != CAIRO_STATUS_SUCCESS)
        error = cairo_status_to_string(status);
    cairo_surface_destroy(surface);
    return drawn && status == CAIRO_STATUS_SUCCESS;
}

int usage() {
    std::fprintf(stderr,
                 "usage: panelkit-render-icons SOURCE.svg SIZE OUTPUT.png [SIZE OUTPUT.png ...]\n");
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4 || argc % 2 != 0)
        return usage();
    char const* source = argv[1];
    GError* gerror = nullptr;
    RsvgHandle* svg = rsvg_handle_new_from_file(source, &gerror);
    if (!svg) {
        std::string message =
            std::string(source) + ": " + (gerror ? gerror->message : "unreadable");
        g_clear_error(&gerror);
        return fail(message);
    }
    int result = 0;
    for (int i = 2; i + 1 < argc && result == 0; i += 2) {
        int size = parseSize(argv[i]);
        std::string error;
        if (size == 0)
            result = fail(std::string("not a size: ") + argv[i]);
        else if (!renderPng(svg, size, argv[i + 1], error))
            result = fail(std::string(argv[i + 1]) + ": " + error);
    }
    g_object_unref(svg);
    return result;
}
