#include "glib/HTMLParagraph.h"

#include "glib/LoadedFont.h"
#include "glib/ShapedText.h"

#include <algorithm>

namespace {

// Menus and tables ask for the unwrapped width and for the width they draw at, in turn.
constexpr std::size_t keptLayouts = 4;

bool isSpace(wchar_t c) {
    return c == L' ';
}

bool endsWord(wchar_t c) {
    return c == L' ' || c == L'\n';
}

// The leading edge of every character of the text, and the end.
std::vector<int> caretsOf(iFont const& font, LightweightString<wchar_t> const& text) {
    if (auto const* loaded = dynamic_cast<LoadedFont const*>(&font))
        return loaded->shape(text)->carets();
    std::vector<int> carets;
    for (unsigned i = 0; i <= text.size(); ++i)
        carets.push_back(font.seek(text, iFont::AtIndex, int(i)).x);
    return carets;
}

// Appends the running sums of the run's character advances. The stretches between line feeds
// take their measured widths, so that a line that is a whole run, or a whole stretch of one, is
// exactly as wide as the font measures it; within a stretch the carets place the characters.
void addAdvances(iFont const& font, LightweightString<wchar_t> const& text,
                 std::vector<int>& prefix) {
    std::vector<int> carets = caretsOf(font, text);
    unsigned stretch = 0;
    int stretchX = prefix.back();
    for (unsigned i = 1; i <= text.size(); ++i) {
        if (text[i - 1] == L'\n') {
            prefix.push_back(stretchX = prefix.back());
            stretch = i;
        } else if (i == text.size() || text[i] == L'\n') {
            prefix.push_back(stretchX + font.measure(text.substr(stretch, i - stretch)).x);
        } else {
            prefix.push_back(stretchX + carets[i] - carets[stretch]);
        }
    }
}

} // namespace

bool HTMLParagraph::Run::sameStyle(Run const& o) const {
    return colour == o.colour && bold == o.bold && italic == o.italic && underline == o.underline &&
           url == o.url;
}

Glib::FontDesc HTMLParagraph::Run::font(Glib::FontDesc const& base) const {
    Glib::FontDesc desc = base;
    desc.style |= (bold ? Glib::FontDesc::Bold : 0u) | (italic ? Glib::FontDesc::Italic : 0u) |
                  (underline ? Glib::FontDesc::Underline : 0u);
    return desc;
}

void HTMLParagraph::append(Run const& run) {
    if (run.text.empty())
        return;
    forgetLayout();
    text_.append(run.text);
    if (!runs_.empty() && runs_.back().sameStyle(run)) {
        runs_.back().text.append(run.text);
        runStarts_.back() = int(text_.size());
        return;
    }
    runs_.push_back(run);
    runStarts_.push_back(int(text_.size()));
}

LightweightString<wchar_t> HTMLParagraph::text() const {
    return text_;
}

std::vector<HTMLParagraph::Line> const& HTMLParagraph::layout(int width,
                                                              Glib::FontDesc const& font) const {
    metrics(font);
    auto cached = std::find_if(layouts_.begin(), layouts_.end(),
                               [width](auto const& entry) { return entry.first == width; });
    if (cached != layouts_.end())
        return cached->second;
    if (layouts_.size() >= keptLayouts)
        layouts_.erase(layouts_.begin());
    layouts_.emplace_back(width, wrap(width));
    return layouts_.back().second;
}

std::vector<HTMLParagraph::Piece> HTMLParagraph::pieces(Line const& line,
                                                        Glib::FontDesc const& font) const {
    std::vector<int> const& prefix = metrics(font).prefix;
    std::vector<Piece> result;
    for (unsigned r = 0; r < runs_.size(); ++r) {
        int from = std::max(line.from, runStarts_[r]);
        int to = std::min(line.to, runStarts_[r + 1]);
        if (from < to)
            result.push_back(Piece{r, from - runStarts_[r], to - runStarts_[r],
                                   prefix[from] - prefix[line.from], prefix[to] - prefix[from]});
    }
    return result;
}

void HTMLParagraph::offsetHyperlinks(XY<int> const& offset) {
    for (Link& link : links_)
        link.box = link.box.translated(offset.x, offset.y);
}

LightweightString<wchar_t> HTMLParagraph::urlAt(XY<int> const& point) const {
    for (Link const& link : links_)
        if (link.box.contains(point))
            return link.url;
    return {};
}

HTMLParagraph::Metrics const& HTMLParagraph::metrics(Glib::FontDesc const& font) const {
    if (metrics_.valid && metrics_.font == font)
        return metrics_;
    layouts_.clear();
    metrics_.font = font;
    metrics_.prefix.assign(1, 0);
    for (Run const& run : runs_)
        addAdvances(*Glib::loadFont(run.font(font)), run.text, metrics_.prefix);
    metrics_.valid = true;
    return metrics_;
}

// Greedy filling: words go on the line while it stays within the width; the spaces where a line
// wraps belong to neither line. A line feed ends the line, and one at the very end adds no
// empty line.
std::vector<HTMLParagraph::Line> HTMLParagraph::wrap(int width) const {
    std::vector<int> const& prefix = metrics_.prefix;
    wchar_t const* s = text_.c_str();
    int const n = int(text_.size());
    std::vector<Line> lines;
    int from = 0;
    while (true) {
        while (from < n && isSpace(s[from]))
            ++from;
        int end = from;
        int i = from;
        while (i < n && s[i] != L'\n') {
            int wordStart = i;
            while (wordStart < n && isSpace(s[wordStart]))
                ++wordStart;
            int wordEnd = wordStart;
            while (wordEnd < n && !endsWord(s[wordEnd]))
                ++wordEnd;
            if (wordEnd > wordStart && prefix[wordEnd] - prefix[from] > width) {
                if (end == from)
                    end = i = breakWord(from, wordEnd, width);
                break;
            }
            end = wordEnd > wordStart ? wordEnd : end;
            i = wordEnd;
        }
        lines.push_back(Line{from, end, prefix[end] - prefix[from]});
        from = i < n && s[i] == L'\n' ? i + 1 : end;
        if (from >= n || (from == end && std::all_of(s + from, s + n, isSpace)))
            break;
    }
    return lines;
}

int HTMLParagraph::breakWord(int from, int wordEnd, int width) const {
    std::vector<int> const& prefix = metrics_.prefix;
    int end = from + 1;
    while (end < wordEnd && prefix[end + 1] - prefix[from] <= width)
        ++end;
    return end;
}

void HTMLParagraph::forgetLayout() {
    metrics_.valid = false;
    layouts_.clear();
}
