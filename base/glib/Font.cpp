#include "glib/Font.h"

#include "glib/Canvas.h"
#include "glib/Display.h"
#include "glib/FontCache.h"
#include "glib/WordBoundaries.h"

#include <algorithm>
#include <cmath>
#include <cwctype>

namespace {

// fonts-dejavu-core is a dependency of the toolkit, and the face has every symbol the utility
// font draws.
char const* const defaultFace = "DejaVu Sans";
char const* const utilityFace = "Panelkit Symbols";
// The default height at scale 1.
constexpr unsigned short defaultHeight = 16;
wchar_t const* const shorteningMark = L"..";

unsigned short scaled(unsigned short size, double scale) {
    return static_cast<unsigned short>(std::max(1L, std::lround(size * scale)));
}

int caretX(iFont const& font, LightweightString<wchar_t> const& text, int index) {
    return font.seek(text, iFont::AtIndex, index).x;
}

// The largest n in 0..limit for which fits(n) holds, fits being true at 0 and falling once.
template <class Fits>
int largestFitting(int limit, Fits fits) {
    int low = 0;
    int high = limit;
    while (low < high) {
        int middle = (low + high + 1) / 2;
        if (fits(middle))
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

// The first `keep` characters and the mark, leaving out spaces before the mark.
LightweightString<wchar_t> cutEnd(LightweightString<wchar_t> const& text, int keep) {
    while (keep > 0 && std::iswspace(static_cast<wint_t>(text[keep - 1])))
        --keep;
    return text.substr(0, keep) + shorteningMark;
}

// `keep` characters in all, the larger half from the start, with the mark between.
LightweightString<wchar_t> cutMiddle(LightweightString<wchar_t> const& text, int keep) {
    int head = (keep + 1) / 2;
    int tail = keep - head;
    return text.substr(0, head) + shorteningMark + text.substr(text.size() - tail);
}

// The caret positions estimate the width of a cut text; kerning across the cut can make the real
// one a little wider, so characters are given up until it fits.
template <class Cut>
LightweightString<wchar_t> shortened(iFont const& font, LightweightString<wchar_t> const& text,
                                     int width, int keep, Cut cut) {
    LightweightString<wchar_t> result = cut(text, keep);
    while (keep > 0 && font.measure(result).x > width)
        result = cut(text, --keep);
    return result;
}

} // namespace

bool Glib::FontDesc::operator<(FontDesc const& o) const {
    if (size != o.size)
        return size < o.size;
    if (style != o.style)
        return style < o.style;
    return name < o.name;
}

Qor::Ptr<iFont> Glib::loadFont(FontDesc const& desc, Qor::Ptr<iRootWindow> const&) {
    return FontCache::instance().load(desc);
}

Qor::Ptr<iFont> Glib::loadFont(LightweightString<char> const& name, unsigned short size,
                               unsigned style) {
    return loadFont(FontDesc(name, size, style));
}

Glib::FontDesc Glib::getDefaultFont(unsigned style) {
    return FontDesc(getDefaultFontName(style), getDefaultFontSize(), style);
}

LightweightString<char> Glib::getDefaultFontName(unsigned) {
    return defaultFace;
}

unsigned short Glib::getDefaultFontSize() {
    return scaled(defaultHeight, hasDisplay() ? display().scale() : 1.0);
}

int Glib::mapTextStyle(TextStyles::TextStyle style) {
    switch (style) {
    case TextStyles::Plain:
    case TextStyles::Normal:
    case TextStyles::Contrast:
        return style;
    }
    return TextStyles::Normal;
}

// When even the mark does not fit, the result is empty, so that it never overflows the width.
LightweightString<wchar_t> Glib::fitTextToWidth(Qor::Ptr<iFont> const& font,
                                                LightweightString<wchar_t> const& text, int width,
                                                eTextShorteningMethod method) {
    if (!font || font->measure(text).x <= width)
        return text;
    int markWidth = font->measure(shorteningMark).x;
    if (markWidth > width)
        return {};
    int length = static_cast<int>(text.size());
    int end = caretX(*font, text, length);
    if (method == ShortenMiddle) {
        int keep = largestFitting(length - 1, [&](int k) {
            int head = (k + 1) / 2;
            return caretX(*font, text, head) + markWidth + end -
                       caretX(*font, text, length - (k - head)) <=
                   width;
        });
        return shortened(*font, text, width, keep, cutMiddle);
    }
    int keep = largestFitting(length - 1,
                              [&](int k) { return caretX(*font, text, k) + markWidth <= width; });
    return shortened(*font, text, width, keep, cutEnd);
}

int getFontYOffset(int height, Qor::Ptr<iFont> const& font) {
    Qor::Ptr<iFont> f = font ? font : Glib::loadFont(Glib::getDefaultFont());
    int spare = height - f->height();
    return f->descent() + static_cast<int>(std::floor(spare / 2.0));
}

LightweightString<wchar_t> clipStringToFit(LightweightString<wchar_t> const& text, int width,
                                           bool wholeWords, Qor::Ptr<iFont> const& font) {
    if (!font || font->measure(text).x <= width)
        return text;
    int keep = largestFitting(static_cast<int>(text.size()) - 1,
                              [&](int k) { return caretX(*font, text, k) <= width; });
    while (keep > 0 && font->measure(text.substr(0, keep)).x > width)
        --keep;
    if (wholeWords) {
        int cut = keep;
        while (cut > 0 && WordBoundaries::splitsWord(text, cut))
            --cut;
        while (cut > 0 && std::iswspace(static_cast<wint_t>(text[cut - 1])))
            --cut;
        if (cut > 0)
            keep = cut;
    }
    return text.substr(0, keep);
}

LightweightString<char> getQorUtilityFontName() {
    return utilityFace;
}

unsigned short getQorUtilityFontSize(float scale) {
    return scaled(defaultHeight, scale);
}

LightweightString<wchar_t> QorTTF::getString(eGlyph glyph) {
    return LightweightString<wchar_t>(1, glyph);
}

wchar_t QorTTF::symbolFor(wchar_t utilityChar) {
    switch (utilityChar) {
    case DownArrow:
        return L'\u25BC';
    case UpArrow:
        return L'\u25B2';
    case RightArrow:
        return L'\u25B6';
    case LeftArrow:
        return L'\u25C0';
    case Tick:
        return L'\u2713';
    case FilledStar:
        return L'\u2605';
    case EmptyStar:
        return L'\u2606';
    }
    return utilityChar;
}

Qor::Ptr<iFont> Canvas::createFont(Glib::FontDesc const& desc) {
    return Glib::loadFont(desc, getWindow());
}
