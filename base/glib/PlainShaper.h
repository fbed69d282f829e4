#pragma once

// Shapes plain text (printable ASCII) in a font's primary face with HarfBuzz directly, skipping
// the paragraph layout that labels of a few characters do not need. What it cannot shape (a
// glyph the face lacks) it declines, and the caller lays the text out in full.

#include <memory>
#include <string>
#include <vector>

typedef struct _PangoFont PangoFont;
typedef struct _PangoFontDescription PangoFontDescription;
typedef struct _cairo_scaled_font cairo_scaled_font_t;

class PlainShaper {
public:
    struct Glyph {
        unsigned long index;
        // Pango units from the start of the text.
        int x;
        int advance;
        int yOffset;
        int cluster;
    };
    struct Result {
        std::vector<Glyph> glyphs;
        // Pango units.
        int width = 0;
    };

    // Null when the description finds no font. Use under TextEngine's lock.
    static std::shared_ptr<PlainShaper const> make(PangoFontDescription const* face);
    ~PlainShaper();
    PlainShaper(PlainShaper const&) = delete;
    PlainShaper& operator=(PlainShaper const&) = delete;

    // Text this shaper takes: printable ASCII only.
    static bool accepts(std::string const& utf8);
    // False when the face lacks a glyph. Use under TextEngine's lock.
    bool shape(std::string const& utf8, Result& out) const;

    cairo_scaled_font_t* scaledFont() const { return scaled_; }
    // Pango units from the top of a line down to the baseline.
    int baseline() const { return baseline_; }
    PangoFontDescription const* description() const { return description_; }

private:
    PlainShaper() = default;

    PangoFont* font_ = nullptr;
    cairo_scaled_font_t* scaled_ = nullptr;
    PangoFontDescription* description_ = nullptr;
    int baseline_ = 0;
};
