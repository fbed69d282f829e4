#pragma once

// Reads the rich-text subset that labels and messages use (paragraphs, line breaks, bold, italic,
// underline, font colour, links and character entities) into paragraphs of styled runs. It is
// forgiving: an unknown tag is dropped and its text kept, a "<" that starts no tag is text, and
// tags left open end with the text. It reads every character a bounded number of times, however
// the tags nest.

#include "glib/HTMLParagraph.h"
#include "glib/Palette.h"
#include "misc/LightweightVector.h"

#include <array>
#include <string>
#include <vector>

class HTMLParser {
public:
    HTMLParser(LightweightString<wchar_t> const& text, Palette const& palette);

    LightweightVector<HTMLParagraph> parse();

private:
    enum Kind : int { Bold, Italic, Underline, Font, Anchor, KindCount };
    // An open style tag: what it sets, and the style it was opened in.
    struct Open {
        Kind kind;
        HTMLParagraph::Run effect;
        HTMLParagraph::Run before;
    };
    struct Tag;

    // The end of the tag that starts at `at`, or 0 when the "<" there starts none.
    std::size_t readTag(std::size_t at);
    void handle(Tag const& tag);
    void open(Kind kind, Tag const& tag);
    void close(Kind kind);
    void push(Open const& entry);
    HTMLParagraph::Run applied(Kind kind, HTMLParagraph::Run const& effect) const;

    void addChar(wchar_t c);
    void addSpace();
    void lineBreak();
    void startParagraph();
    void endParagraph();
    void ensureOpen();
    // Moves the text gathered in the current style into the paragraph.
    void flushText();

    LightweightString<wchar_t> source_;
    Palette palette_;
    LightweightVector<HTMLParagraph> result_;
    HTMLParagraph paragraph_;
    bool paragraphOpen_ = false;
    // Whitespace is dropped at the start of a line and runs of it count as one space.
    bool atLineStart_ = true;
    bool afterSpace_ = false;
    std::wstring pending_;
    HTMLParagraph::Run style_;
    std::vector<Open> stack_;
    std::array<int, KindCount> openCount_{};
    // Tags opened past the nesting limit: they change nothing, and neither do their ends.
    std::array<int, KindCount> ignoredCount_{};
    // No tag can end from here on: there is no ">" after it.
    std::size_t noTagFrom_;
};
