#include "glib/HTMLRenderer.h"

#include "glib/CanvasRenderer.h"
#include "glib/HTMLParser.h"

#include <algorithm>
#include <cairo.h>
#include <climits>
#include <cwctype>
#include <string>
#include <string_view>

namespace {

using Text = LightweightString<wchar_t>;

wchar_t const* const addressSchemes[] = {L"http://", L"https://", L"file://"};

bool isAsciiLetter(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

bool isSpaceOrTab(wchar_t c) {
    return c == L' ' || c == L'\t';
}

// A space that HTML would fold away (at the line's start, or after another) is written as a
// no-break space.
void appendEscaped(std::wstring& out, std::wstring_view line, std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
        wchar_t c = line[i];
        if (c == L'&')
            out += L"&amp;";
        else if (c == L'<')
            out += L"&lt;";
        else if (c == L'>')
            out += L"&gt;";
        else if (c == L'"')
            out += L"&quot;";
        else if (isSpaceOrTab(c))
            out += i == 0 || isSpaceOrTab(line[i - 1]) ? L"&#160;" : L" ";
        else
            out += c;
    }
}

std::size_t findAddress(std::wstring_view line, std::size_t from) {
    std::size_t found = line.size();
    for (wchar_t const* scheme : addressSchemes)
        found = std::min(found, line.find(scheme, from));
    return found;
}

// An address runs to a blank or a quote; punctuation at its end belongs to the sentence.
std::size_t addressEnd(std::wstring_view line, std::size_t from) {
    std::size_t end = from;
    while (end < line.size() && !std::iswspace(wint_t(line[end])) &&
           std::wstring_view(L"<>\"'").find(line[end]) == std::wstring_view::npos)
        ++end;
    while (end > from && std::wstring_view(L".,;:!?)").find(line[end - 1]) != std::wstring::npos)
        --end;
    return end;
}

Text lineToHTML(Text const& line, int mode) {
    if ((mode & HTMLRenderer::EscapeText) == 0)
        return line;
    std::wstring_view view = line.view();
    std::wstring out;
    std::size_t i = 0;
    while (i < view.size()) {
        std::size_t start =
            (mode & HTMLRenderer::LinkAddresses) != 0 ? findAddress(view, i) : view.size();
        appendEscaped(out, view, i, start);
        if (start == view.size())
            break;
        std::size_t end = addressEnd(view, start);
        out += L"<a href=\"";
        appendEscaped(out, view, start, end);
        out += L"\">";
        appendEscaped(out, view, start, end);
        out += L"</a>";
        i = end;
    }
    return Text(std::wstring_view(out));
}

void drawLine(CanvasRenderer& r, HTMLParagraph& paragraph, HTMLParagraph::Line const& line,
              Box const& lineBox, int baseline, Box const& clip, Glib::FontDesc const& font) {
    for (HTMLParagraph::Piece const& piece : paragraph.pieces(line, font)) {
        HTMLParagraph::Run const& run = paragraph.runs()[piece.run];
        Glib::TextDescription text;
        text.text = run.text.substr(unsigned(piece.from), unsigned(piece.to - piece.from));
        text.font = Glib::loadFont(run.font(font));
        text.colour = fromColour(run.colour);
        text.origin = XY<int>(lineBox.x1 + piece.x, baseline);
        text.style = Glib::TextStyles::Plain;
        r.renderPrimitive(text);
        Box linkBox(text.origin.x, lineBox.y1, text.origin.x + piece.width, lineBox.y2);
        if (!run.url.empty())
            paragraph.addLink(HTMLParagraph::Link{linkBox.intersect(clip), run.url});
    }
}

} // namespace

bool HTMLRenderer::isHTML(Text const& text) {
    std::wstring_view view = text.view();
    std::size_t start = 0;
    while (start < view.size() && std::iswspace(wint_t(view[start])))
        ++start;
    if (start == view.size() || view[start] != L'<')
        return false;
    std::size_t lastEnd = view.rfind(L'>');
    if (lastEnd == std::wstring_view::npos)
        return false;
    for (std::size_t at = view.find(L"</", start); at != std::wstring_view::npos && at < lastEnd;
         at = view.find(L"</", at + 2))
        if (isAsciiLetter(view[at + 2]))
            return true;
    return false;
}

LightweightVector<HTMLRenderer::Paragraph> HTMLRenderer::parse(Text const& text,
                                                               Palette const& palette) {
    return HTMLParser(text, palette).parse();
}

Text HTMLRenderer::convertToHTML(Text const& plain, int mode) {
    std::vector<Text> lines;
    std::wstring_view view = plain.view();
    for (std::size_t from = 0; from <= view.size();) {
        std::size_t end = std::min(view.find(L'\n', from), view.size());
        std::size_t cut = end > from && view[end - 1] == L'\r' ? end - 1 : end;
        lines.push_back(Text(view.substr(from, cut - from)));
        from = end + 1;
    }
    return convertToHTML(lines, mode);
}

Text HTMLRenderer::convertToHTML(std::vector<Text> const& lines, int mode) {
    if (lines.empty())
        return {};
    Text html;
    bool paragraphs = (mode & LinePerParagraph) != 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (paragraphs || i == 0)
            html.append(L"<p>");
        else
            html.append(L"<br>");
        html.append(lineToHTML(lines[i], mode));
        if (paragraphs || i + 1 == lines.size())
            html.append(L"</p>");
    }
    return html;
}

int HTMLRenderer::calcMaxWidth(LightweightVector<Paragraph> const& paragraphs,
                               Glib::FontDesc const& font) {
    return analyse(paragraphs, INT_MAX, font).width;
}

int HTMLRenderer::calcNumDisplayLines(LightweightVector<Paragraph> const& paragraphs, int width,
                                      Glib::FontDesc const& font) {
    return analyse(paragraphs, width, font).lines;
}

HTMLRenderer::Analysis HTMLRenderer::analyse(LightweightVector<Paragraph> const& paragraphs,
                                             int width, Glib::FontDesc const& font) {
    Analysis result;
    for (Paragraph const& paragraph : paragraphs) {
        std::vector<Paragraph::Line> const& lines = paragraph.layout(width, font);
        result.lines += int(lines.size());
        for (Paragraph::Line const& line : lines)
            result.width = std::max(result.width, line.width);
    }
    return result;
}

void HTMLRenderer::render(CanvasRenderer& r, LightweightVector<Paragraph>& paragraphs,
                          Box const& box, int lineHeight, Glib::FontDesc const& font) {
    for (Paragraph& paragraph : paragraphs)
        paragraph.clearLinks();
    cairo_t* cr = r.context();
    if (cr == nullptr || box.isEmpty())
        return;
    Qor::Ptr<iFont> plain = Glib::loadFont(font);
    int height = lineHeight > 0 ? lineHeight : plain->height();
    int baselineOffset = getFontYOffset(height, plain);
    cairo_save(cr);
    cairo_rectangle(cr, box.x1, box.y1, box.width(), box.height());
    cairo_clip(cr);
    int top = box.y2;
    for (Paragraph& paragraph : paragraphs) {
        for (Paragraph::Line const& line : paragraph.layout(box.width(), font)) {
            if (top <= box.y1)
                break;
            Box lineBox(box.x1, top - height, box.x2, top);
            drawLine(r, paragraph, line, lineBox, lineBox.y1 + baselineOffset, box, font);
            top -= height;
        }
    }
    cairo_restore(cr);
}

Text HTMLRenderer::getURLAtPosition(LightweightVector<Paragraph> const& paragraphs,
                                    XY<int> const& point) {
    for (Paragraph const& paragraph : paragraphs) {
        Text url = paragraph.urlAt(point);
        if (!url.empty())
            return url;
    }
    return {};
}

void HTMLRenderer::offsetHyperlinks(LightweightVector<Paragraph>& paragraphs,
                                    XY<int> const& offset) {
    for (Paragraph& paragraph : paragraphs)
        paragraph.offsetHyperlinks(offset);
}
