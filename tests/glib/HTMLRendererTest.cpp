#include "glib/HTMLRenderer.h"

#include "glib/CanvasRenderer.h"
#include "glib/DrawTestWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

namespace {

using Text = LightweightString<wchar_t>;
using Paragraphs = LightweightVector<HTMLRenderer::Paragraph>;

Colour const kTextColour(0.2, 0.2, 0.2);
Colour const kLinkColour(0, 0, 1);
Glib::FontDesc const kFont("DejaVu Sans", 16, 0);

Palette testPalette() {
    Palette palette(Colour(1, 1, 1), kTextColour);
    palette.setSelection(kLinkColour);
    return palette;
}

Paragraphs parsed(Text const& html) {
    return HTMLRenderer::parse(html, testPalette());
}

// Each paragraph in braces; a styled run as [flags:text], with b, i, u, "#rrggbb" for a colour
// other than the text colour and "@url" for a link.
std::wstring describe(Paragraphs const& paragraphs) {
    std::wstring out;
    for (HTMLRenderer::Paragraph const& paragraph : paragraphs) {
        out += L"{";
        for (HTMLRenderer::Paragraph::Run const& run : paragraph.runs()) {
            std::wstring flags;
            flags += run.bold ? L"b" : L"";
            flags += run.italic ? L"i" : L"";
            flags += run.underline ? L"u" : L"";
            if (!(run.colour == kTextColour)) {
                wchar_t hex[16];
                std::swprintf(hex, 16, L"#%06x", run.colour.get_vlib_colour(false));
                flags += hex;
            }
            if (!run.url.empty())
                flags += L"@" + run.url.str();
            out += flags.empty() ? run.text.str() : L"[" + flags + L":" + run.text.str() + L"]";
        }
        out += L"}";
    }
    return out;
}

// The text of each wrapped line, joined by "/".
std::wstring wrappedLines(HTMLRenderer::Paragraph const& paragraph, int width) {
    std::wstring out;
    Text text = paragraph.text();
    for (HTMLRenderer::Paragraph::Line const& line : paragraph.layout(width, kFont)) {
        out += out.empty() ? L"" : L"/";
        out += text.substr(unsigned(line.from), unsigned(line.to - line.from)).str();
    }
    return out;
}

int measured(Text const& text, unsigned style = 0) {
    return Glib::loadFont(Glib::FontDesc(kFont.name, kFont.size, style))->measure(text).x;
}

Text const kLongParagraph(L"<p>The quick brown fox jumps over the lazy dog, and then it runs "
                          L"far away into the forest where nobody can find it again.</p>");

TEST(HTMLRendererIsHTML, NeedsALeadingTagAndAClosingTag) {
    struct Case {
        wchar_t const* text;
        bool html;
    } const cases[] = {
        {L"plain text", false},           {L"<b>x</b>", true}, {L"< 3 and > 2", false},
        {L"text before <b>x</b>", false}, {L"<b>x</b", false},
    };
    for (Case const& c : cases)
        EXPECT_EQ(HTMLRenderer::isHTML(c.text), c.html) << c.text;
}

TEST(HTMLRendererParse, ReadsTheSubsetForgivingly) {
    struct Case {
        wchar_t const* html;
        wchar_t const* runs;
    } const cases[] = {
        {L"", L""},
        {L"<b>bold</b> and <i>it<B>both</B></i>", L"{[b:bold] and [i:it][bi:both]}"},
        {L"<u>under</u><strong>s</strong><em>e</em>", L"{[u:under][b:s][i:e]}"},
        {L"a &lt;b&gt; &amp; &quot;q&quot; &#65;&#x42; &nbsp;", L"{a <b> & \"q\" AB \u00a0}"},
        {L"&bogus; & x &#0; &#xD800; &#9999999;", L"{&bogus; & x \ufffd \ufffd \ufffd}"},
        {L"<font color=\"#ff0000\">r</font><font color=blue>b</font><font color='#0F0'>g</font>"
         L"<font color=\"nonsense\">n</font>",
         L"{[#ff0000:r][#0000ff:b][#00ff00:g]n}"},
        {L"see <a href=\"http://x.org/?a=1&amp;b=2\">here</a>.",
         L"{see [u#0000ff@http://x.org/?a=1&b=2:here].}"},
        {L"<span class='x'>kept</span> <blink>too</blink>", L"{kept too}"},
        {L"<b>open <i>and more", L"{[b:open ][bi:and more]}"},
        {L"<b><i>x</b>y</i>z", L"{[bi:x][i:y]z}"},
        {L"a < b and 3<4, x <b", L"{a < b and 3<4, x <b}"},
        {L"<!-- note -->x", L"{x}"},
        {L"<p>one</p>\n  <p align=center>two</p>", L"{one}{two}"},
        {L"before<p>after", L"{before}{after}"},
        {L"<p></p><p>x</p>", L"{}{x}"},
        {L"a<br>b<BR/>c<br />", L"{a\nb\nc\n}"},
        {L"  a   b \n\t c", L"{a b c}"},
    };
    for (Case const& c : cases)
        EXPECT_EQ(describe(parsed(c.html)), std::wstring(c.runs)) << c.html;
}

TEST(HTMLRendererParse, HugeMalformedInputsFinishQuickly) {
    auto const started = std::chrono::steady_clock::now();
    std::wstring const pieces[] = {L"<b>x", L"<i><b>x</i>", L"<a href=\"x", L"</font>x", L"<x"};
    for (std::wstring const& piece : pieces) {
        std::wstring html;
        for (int i = 0; i < 40000; ++i)
            html += piece;
        Paragraphs result = parsed(Text(std::wstring_view(html)));
        ASSERT_EQ(result.size(), 1u) << piece;
        std::wstring text = result[0].text().str();
        EXPECT_EQ(std::count(text.begin(), text.end(), L'x'), 40000) << piece;
    }
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(10));
}

TEST(HTMLRendererConvert, PlainTextSurvivesTheTripThroughHTMLAndAddressesBecomeLinks) {
    Text plain(L"if a < b && c > \"d\"\r\n  indented  twice\n\nlast");
    Text html = HTMLRenderer::convertToHTML(plain, HTMLRenderer::PlainText);
    EXPECT_TRUE(HTMLRenderer::isHTML(html));
    EXPECT_EQ(describe(parsed(html)),
              L"{if a < b && c > \"d\"}{\u00a0\u00a0indented \u00a0twice}{}{last}");
    std::vector<Text> lines{L"one", L"<b>two</b>"};
    EXPECT_EQ(describe(parsed(HTMLRenderer::convertToHTML(lines, 0))), L"{one\n[b:two]}");

    plain = L"Read https://example.org/a?b=1&c=2. Or file:///tmp/x, then stop";
    html =
        HTMLRenderer::convertToHTML(plain, HTMLRenderer::PlainText | HTMLRenderer::LinkAddresses);
    EXPECT_EQ(describe(parsed(html)),
              L"{Read [u#0000ff@https://example.org/a?b=1&c=2:https://example.org/a?b=1&c=2]. "
              L"Or [u#0000ff@file:///tmp/x:file:///tmp/x], then stop}");
}

TEST(HTMLRendererLayout, NarrowerWidthsWrapIntoMoreLinesWithoutLosingWords) {
    HTMLRenderer::Paragraph paragraph = parsed(kLongParagraph)[0];
    std::wstring words = paragraph.text().str();
    int previous = 0;
    for (int width : {100000, 400, 200, 120}) {
        std::vector<HTMLRenderer::Paragraph::Line> const& lines = paragraph.layout(width, kFont);
        EXPECT_GT(int(lines.size()), previous) << width;
        previous = int(lines.size());
        for (auto const& line : lines)
            EXPECT_LE(line.width, width);
        std::wstring joined = wrappedLines(paragraph, width);
        std::replace(joined.begin(), joined.end(), L'/', L' ');
        EXPECT_EQ(joined, words) << width;
    }
    EXPECT_EQ(previous, HTMLRenderer::calcNumDisplayLines(parsed(kLongParagraph), 120, kFont));
}

TEST(HTMLRendererLayout, ALongWordIsBrokenToFit) {
    HTMLRenderer::Paragraph paragraph = parsed(L"<p>a mmmmmmmmmmmmmmmmmmmm b</p>")[0];
    int width = measured(L"mmmmm") + 2;
    EXPECT_EQ(wrappedLines(paragraph, width), L"a/mmmmm/mmmmm/mmmmm/mmmmm/b");
    // Even a width smaller than one character puts one on each line.
    EXPECT_EQ(wrappedLines(parsed(L"<p>abc</p>")[0], 1), L"a/b/c");
}

TEST(HTMLRendererLayout, LineBreaksAndEmptyParagraphsCountAsLines) {
    struct Case {
        wchar_t const* html;
        int lines;
    } const cases[] = {
        {L"<p>a<br>b</p>", 2},
        {L"<p>a<br><br>b</p>", 3},
        {L"<p></p><p>x</p>", 2},
        {L"", 0},
    };
    for (Case const& c : cases)
        for (int width : {1000, 30})
            EXPECT_EQ(HTMLRenderer::calcNumDisplayLines(parsed(c.html), width, kFont), c.lines)
                << c.html << " at " << width;
}

TEST(HTMLRendererLayout, MaxWidthIsTheWidestParagraphMeasuredAndFitsItOnOneLine) {
    Paragraphs paragraphs =
        parsed(L"<p>short</p><p><b>Bold</b> and a longer one</p><p>mid one</p>");
    int widest = measured(L"Bold", Glib::FontDesc::Bold) + measured(L" and a longer one");
    EXPECT_EQ(HTMLRenderer::calcMaxWidth(paragraphs, kFont), widest);
    EXPECT_EQ(HTMLRenderer::calcNumDisplayLines(paragraphs, widest, kFont), 3);
    EXPECT_EQ(HTMLRenderer::calcNumDisplayLines(paragraphs, widest - 1, kFont), 4);
    EXPECT_EQ(HTMLRenderer::analyse(paragraphs, widest - 1, kFont).lines, 4);
    EXPECT_EQ(HTMLRenderer::calcMaxWidth(parsed(L"<p>a longer line<br>b</p>"), kFont),
              measured(L"a longer line"));
    for (wchar_t const* text : {L"Wave", L"office fill"}) {
        Paragraphs one = parsed(Text(L"<p>") + text + L"</p>");
        EXPECT_EQ(HTMLRenderer::calcMaxWidth(one, kFont), measured(text)) << text;
        EXPECT_EQ(HTMLRenderer::calcNumDisplayLines(one, measured(text), kFont), 1) << text;
    }
}

// Rendering, on a white window.

NormalisedRGB const kWhite(1, 1, 1);

bool isInk(NormalisedRGB const& p) {
    return p.r + p.g + p.b < 2.7f;
}

// Blue ink, also where it is antialiased to a lighter blue.
bool isBlue(NormalisedRGB const& p) {
    return p.b > 0.7f && p.b - std::max(p.r, p.g) > 0.25f;
}

class HTMLWindow : public DrawTest::TestWindow {
public:
    HTMLWindow() : TestWindow(XY<int>(320, 160)) {
        DrawTest::fill(renderer(), Box(0, 0, 320, 160), kWhite);
    }
    Box inkIn(Box const& area = Box()) const { return pixelsWhere(isInk, nullptr, area); }
};

int const kLineHeight = 20;

TEST(HTMLRendererRender, WrapsAsCountedAndDrawsNothingOutsideTheBox) {
    HTMLWindow window;
    Paragraphs paragraphs = parsed(kLongParagraph);
    Box box(40, 20, 200, 150);
    int lines = HTMLRenderer::calcNumDisplayLines(paragraphs, box.width(), kFont);
    ASSERT_LE(lines * kLineHeight, box.height());
    HTMLRenderer::render(window.renderer(), paragraphs, box, kLineHeight, kFont);
    Box ink = window.inkIn();
    EXPECT_TRUE(box.contains(ink));
    // The last line's ink lies in the band of line `lines`, counted from the top.
    EXPECT_LT(ink.y1, box.y2 - (lines - 1) * kLineHeight);
    EXPECT_GE(ink.y1, box.y2 - lines * kLineHeight);

    HTMLWindow clipped;
    Box small(40, 60, 120, 100);
    HTMLRenderer::render(clipped.renderer(), paragraphs, small, kLineHeight + 7, kFont);
    Box clippedInk = clipped.inkIn();
    EXPECT_FALSE(clippedInk.isEmpty());
    EXPECT_TRUE(small.contains(clippedInk));
}

TEST(HTMLRendererRender, LinksAreFoundWhereTheyWereDrawn) {
    HTMLWindow window;
    Paragraphs paragraphs =
        parsed(L"<p>Visit <a href=\"http://a\">first</a> or <a href='http://b'>second</a></p>");
    Box box(10, 10, 310, 150);
    HTMLRenderer::render(window.renderer(), paragraphs, box, kLineHeight, kFont);
    int firstX = box.x1 + measured(L"Visit ");
    int secondX = firstX + measured(L"first", Glib::FontDesc::Underline) + measured(L" or ");
    int y = box.y2 - kLineHeight / 2;
    EXPECT_EQ(HTMLRenderer::getURLAtPosition(paragraphs, XY<int>(firstX + 3, y)), L"http://a");
    EXPECT_EQ(HTMLRenderer::getURLAtPosition(paragraphs, XY<int>(secondX + 3, y)), L"http://b");
    EXPECT_TRUE(HTMLRenderer::getURLAtPosition(paragraphs, XY<int>(box.x1 + 2, y)).empty());
    // Links are drawn in their colour, underlined below the baseline.
    Box blue = window.pixelsWhere(isBlue);
    EXPECT_GE(blue.x1, firstX - 1);
    EXPECT_LT(blue.y1, window.inkIn(Box(0, 0, firstX - 2, 160)).y1);

    HTMLRenderer::offsetHyperlinks(paragraphs, XY<int>(100, -50));
    EXPECT_EQ(HTMLRenderer::getURLAtPosition(paragraphs, XY<int>(firstX + 103, y - 50)),
              L"http://a");
    EXPECT_TRUE(HTMLRenderer::getURLAtPosition(paragraphs, XY<int>(firstX + 3, y)).empty());
}

TEST(HTMLRendererRender, LinksAreClickableOnlyInsideTheBox) {
    HTMLWindow window;
    Paragraphs paragraphs = parsed(L"<p>one</p><p>two</p><p><a href=\"http://cut\">link</a></p>"
                                   L"<p><a href=\"http://hidden\">link</a></p>");
    // The third line is half inside the box, the fourth below it.
    Box box(10, 100, 310, 150);
    HTMLRenderer::render(window.renderer(), paragraphs, box, kLineHeight, kFont);
    EXPECT_EQ(HTMLRenderer::getURLAtPosition(paragraphs, XY<int>(15, 105)), L"http://cut");
    EXPECT_TRUE(HTMLRenderer::getURLAtPosition(paragraphs, XY<int>(15, 95)).empty());
    EXPECT_TRUE(paragraphs[3].links().empty());
}

} // namespace
