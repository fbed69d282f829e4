#pragma once

// One paragraph of rich text: runs of text that share a style, the lines they wrap into at a
// width, and, once drawn, the boxes its links cover so that a point can be turned into a link.
// Layouts are cached inside, so a paragraph belongs to one thread at a time.

#include "glib/Colour.h"
#include "glib/Font.h"
#include "qor/Box.h"
#include "qor/LightweightString.h"

#include <utility>
#include <vector>

class HTMLParagraph {
public:
    struct Run {
        // A line feed in the text ends the line there.
        LightweightString<wchar_t> text;
        Colour colour;
        bool bold = false;
        bool italic = false;
        bool underline = false;
        // Set for the text of a link.
        LightweightString<wchar_t> url;

        bool sameStyle(Run const& o) const;
        // The base font with this run's style bits.
        Glib::FontDesc font(Glib::FontDesc const& base) const;
    };
    // A wrapped line: the characters [from, to) of text(), without the spaces where it wrapped.
    struct Line {
        int from = 0;
        int to = 0;
        int width = 0;
    };
    // The part of a line that lies in one run: the run's characters [from, to), drawn `x` pixels
    // from the line's start.
    struct Piece {
        unsigned run = 0;
        int from = 0;
        int to = 0;
        int x = 0;
        int width = 0;
    };
    // Where a link was drawn, in the coordinates of the canvas it was drawn on.
    struct Link {
        Box box;
        LightweightString<wchar_t> url;
    };

    // Adds the run, joining it to the last one when their styles are the same.
    void append(Run const& run);
    std::vector<Run> const& runs() const { return runs_; }
    bool empty() const { return runs_.empty(); }
    // The characters of all the runs in order; line and piece indexes count in it.
    LightweightString<wchar_t> text() const;

    // The lines at the width in the font; a word wider than the width is broken, and there is
    // always at least one line. Kept for the last few widths.
    std::vector<Line> const& layout(int width, Glib::FontDesc const& font) const;
    std::vector<Piece> pieces(Line const& line, Glib::FontDesc const& font) const;

    std::vector<Link> const& links() const { return links_; }
    void clearLinks() { links_.clear(); }
    void addLink(Link const& link) { links_.push_back(link); }
    // Moves the link boxes, for a caller that draws the paragraph somewhere and reads points in
    // other coordinates.
    void offsetHyperlinks(XY<int> const& offset);
    // The URL of the link whose box holds the point, or empty.
    LightweightString<wchar_t> urlAt(XY<int> const& point) const;

private:
    // The pixel advance of every character in the font, summed: a stretch's width is the
    // difference of two entries.
    struct Metrics {
        Glib::FontDesc font;
        bool valid = false;
        std::vector<int> prefix;
    };

    Metrics const& metrics(Glib::FontDesc const& font) const;
    std::vector<Line> wrap(int width) const;
    // The end of the line that starts at `from` and whose first word, ending at `wordEnd`, is
    // wider than the width: as many characters as fit, and at least one.
    int breakWord(int from, int wordEnd, int width) const;
    void forgetLayout();

    std::vector<Run> runs_;
    // Where each run starts in text(), and the end of the last.
    std::vector<int> runStarts_{0};
    LightweightString<wchar_t> text_;
    std::vector<Link> links_;
    mutable Metrics metrics_;
    mutable std::vector<std::pair<int, std::vector<Line>>> layouts_;
};
