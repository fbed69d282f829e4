#include "glib/LoadedFont.h"

#include "glib/ShapedText.h"
#include "glib/TextEngine.h"
#include "glib/WordBoundaries.h"

#include <algorithm>
#include <cstdlib>
#include <pango/pango.h>

namespace {

// Enough for the strings of a large table or menu; shaped lines weigh more, so fewer are kept.
// The caches hold up to twice these.
constexpr std::size_t measuredStrings = 2048;
constexpr std::size_t shapedStrings = 256;

int seekIndex(LightweightString<wchar_t> const& text, iFont::eCharSeekMethod method, int index) {
    int end = static_cast<int>(text.size());
    int at = std::clamp(index, 0, end);
    switch (method) {
    case iFont::PreviousChar:
        return std::max(at - 1, 0);
    case iFont::NextChar:
        return std::min(at + 1, end);
    case iFont::NextWord:
        return WordBoundaries::nextWordStart(text, at);
    case iFont::PreviousWord:
        return WordBoundaries::previousWordStart(text, at);
    case iFont::Start:
        return 0;
    case iFont::End:
        return end;
    case iFont::AtIndex:
        break;
    }
    return at;
}

} // namespace

LoadedFont::LoadedFont(Glib::FontDesc const& desc, PangoFontDescription* face, bool symbols)
    : desc_(desc), face_(face), symbols_(symbols), widths_(measuredStrings),
      shapes_(shapedStrings) {
    TextEngine::Metrics metrics = TextEngine::metrics(face_);
    ascent_ = PANGO_PIXELS(metrics.ascent);
    descent_ = PANGO_PIXELS(metrics.ascent + metrics.descent) - ascent_;
}

LoadedFont::~LoadedFont() {
    CriticalSection::Lock hold(TextEngine::lock());
    shapes_.clear();
    pango_font_description_free(face_);
}

XY<int> LoadedFont::measure(LightweightString<wchar_t> const& text) const {
    if (text.empty())
        return XY<int>(0, height());
    CriticalSection::Lock hold(TextEngine::lock());
    if (int const* width = widths_.find(text))
        return XY<int>(*width, height());
    return XY<int>(widths_.insert(text, shape(text)->width()), height());
}

iFont::CharacterLocation LoadedFont::seek(LightweightString<wchar_t> const& text,
                                          eCharSeekMethod method, int index) const {
    int at = seekIndex(text, method, index);
    return CharacterLocation{at, shape(text)->caretX(at)};
}

// The caret nearest to the pixel; halfway between two, the later one.
iFont::CharacterLocation LoadedFont::locate(LightweightString<wchar_t> const& text,
                                            int pixelX) const {
    Shape shaped = shape(text);
    std::vector<int> const& carets = shaped->carets();
    int best = 0;
    for (int i = 1; i < static_cast<int>(carets.size()); ++i)
        if (std::abs(carets[i] - pixelX) <= std::abs(carets[best] - pixelX))
            best = i;
    return CharacterLocation{best, carets[best]};
}

std::shared_ptr<ShapedText const> LoadedFont::shape(LightweightString<wchar_t> const& text) const {
    CriticalSection::Lock hold(TextEngine::lock());
    if (Shape const* shaped = shapes_.find(text))
        return *shaped;
    ShapedText::Options options;
    options.symbols = symbols_;
    options.underline = (desc_.style & Glib::FontDesc::Underline) != 0;
    if (!plainTried_) {
        plainTried_ = true;
        plain_ = PlainShaper::make(face_);
    }
    return shapes_.insert(text, std::make_shared<ShapedText const>(text, face_, options, plain_));
}
