#pragma once

// One line of text shaped in one font: the layout that draws it, its size, and the pixel x of every
// character's leading edge, which seeking, hit-testing and selections read. Character indexes are
// those of the wide text; the layout itself counts UTF-8 bytes.

#include "glib/PlainShaper.h"
#include "qor/Box.h"
#include "qor/LightweightString.h"

#include <vector>

typedef struct _PangoLayout PangoLayout;
typedef struct _cairo cairo_t;
typedef struct _cairo_scaled_font cairo_scaled_font_t;
typedef struct _PangoFontDescription PangoFontDescription;

class ShapedText {
public:
    struct Options {
        // Draw utility-font codes as the symbols they stand for.
        bool symbols = false;
        bool underline = false;
    };

    // With a plain shaper, plain text is shaped without a layout, which is made only if asked for.
    ShapedText(LightweightString<wchar_t> const& text, PangoFontDescription const* font,
               Options options, std::shared_ptr<PlainShaper const> const& plain = {});
    ~ShapedText();
    ShapedText(ShapedText const&) = delete;
    ShapedText& operator=(ShapedText const&) = delete;

    // For drawing; use it under TextEngine's lock.
    PangoLayout* layout() const;
    int length() const { return static_cast<int>(carets_.size()) - 1; }
    // Pixels.
    int width() const { return width_; }
    // Pango units from the top of the layout down to the baseline.
    int baselineFromTop() const { return baseline_; }
    // The leading edge of character `index`; `length()` gives the end of the text.
    int caretX(int index) const { return carets_[index]; }
    std::vector<int> const& carets() const { return carets_; }
    // Where character `index` starts in the layout's UTF-8 text.
    int byteOffset(int index) const { return bytes_[index]; }
    // The inked pixels, relative to the start of the text on the baseline, y up.
    Box const& ink() const { return ink_; }
    // Draws the glyphs with the text's start at the current point's x and the baseline on y = 0,
    // in a y-down space; use it under TextEngine's lock.
    void show(cairo_t* cr) const;

private:
    // The glyphs of one font, positioned from the start of the text on the baseline.
    struct GlyphRun {
        cairo_scaled_font_t* font;
        std::vector<double> xs;
        std::vector<double> ys;
        std::vector<unsigned long> indexes;
    };

    void layOut(std::string const& utf8, PangoFontDescription const* font, Options options);
    bool shapePlain(std::string const& utf8, PlainShaper const& plain);
    void findPlainCarets(std::vector<PlainShaper::Glyph> const& glyphs);
    void measureLayout();
    void findCarets();
    // Keeps the shaped glyphs so that drawing skips the layout machinery; false when the text
    // needs more than glyphs (an underline, a glyph the fonts lack).
    bool collectGlyphs();

    mutable PangoLayout* layout_ = nullptr;
    // What a layout is made from later, for plain text.
    std::string utf8_;
    std::shared_ptr<PlainShaper const> plain_;
    int width_ = 0;
    int baseline_ = 0;
    std::vector<int> carets_;
    std::vector<int> bytes_;
    Box ink_;
    std::vector<GlyphRun> runs_;
    bool glyphsOnly_ = false;
};
