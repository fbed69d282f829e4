#pragma once

// Rich text for labels, messages, menu rows and table cells: a small subset of HTML (paragraphs,
// line breaks, bold, italic, underline, font colours and links) parsed into paragraphs, measured,
// word-wrapped and drawn, with the links found again under a point once drawn.

#include "glib/HTMLParagraph.h"
#include "glib/Palette.h"
#include "misc/LightweightVector.h"

#include <vector>

class CanvasRenderer;

class HTMLRenderer {
public:
    using Paragraph = HTMLParagraph;

    // Flags of the conversion of plain text.
    enum ConversionMode : int {
        // Markup characters stand for themselves, and runs of spaces are kept.
        EscapeText = 1,
        // Each line is a paragraph; otherwise the lines are one paragraph with line breaks.
        LinePerParagraph = 2,
        // Web and file addresses become links.
        LinkAddresses = 4,
        PlainText = EscapeText | LinePerParagraph,
    };

    struct Analysis {
        int lines = 0;
        // The widest line.
        int width = 0;
    };

    // True for a text that starts with "<", after any blanks, and holds a closing tag.
    static bool isHTML(LightweightString<wchar_t> const& text);
    // Text is in the palette's text colour, links in its selection colour and underlined.
    static LightweightVector<Paragraph> parse(LightweightString<wchar_t> const& text,
                                              Palette const& palette);

    // The plain text, split at line feeds, as HTML.
    static LightweightString<wchar_t> convertToHTML(LightweightString<wchar_t> const& plain,
                                                    int mode);
    static LightweightString<wchar_t>
    convertToHTML(std::vector<LightweightString<wchar_t>> const& lines, int mode);

    // Measuring and drawing use `font` for plain runs and its family and size, with the style
    // bits added, for bold, italic and underlined ones.

    // The widest paragraph, or its widest line when it has line breaks, unwrapped.
    static int calcMaxWidth(LightweightVector<Paragraph> const& paragraphs,
                            Glib::FontDesc const& font = Glib::getDefaultFont());
    // The number of lines when wrapped at the width.
    static int calcNumDisplayLines(LightweightVector<Paragraph> const& paragraphs, int width,
                                   Glib::FontDesc const& font = Glib::getDefaultFont());
    static Analysis analyse(LightweightVector<Paragraph> const& paragraphs, int width,
                            Glib::FontDesc const& font = Glib::getDefaultFont());

    // Draws the paragraphs wrapped at the box's width, line after line from the top of the box
    // down, `lineHeight` apart (the font's height when 0), clipped to the box. Records where
    // each link was drawn, in the renderer's canvas coordinates; copies of the list share the
    // paragraphs, so a copy can be passed.
    static void render(CanvasRenderer& r, LightweightVector<Paragraph>& paragraphs, Box const& box,
                       int lineHeight, Glib::FontDesc const& font = Glib::getDefaultFont());
    // The URL of the link drawn under the point (canvas coordinates of the last render), or
    // empty.
    static LightweightString<wchar_t>
    getURLAtPosition(LightweightVector<Paragraph> const& paragraphs, XY<int> const& point);
    // Moves every recorded link box.
    static void offsetHyperlinks(LightweightVector<Paragraph>& paragraphs, XY<int> const& offset);
};
