#pragma once

// Fonts: a description (family, size, style) and the loaded font that measures text and finds
// characters in it. A font's size is its height in pixels, ascent plus descent, so that layout can
// count on it. Loaded fonts are shared and cached: loading the same description twice gives the
// same font, and measuring a string it has measured before costs a lookup.

#include "glib/RootWindow.h"
#include "qor/LightweightString.h"
#include "qor/Ptr.h"
#include "qor/XY.h"

namespace Glib {

class FontDesc {
public:
    enum Style : unsigned { Bold = 1, Italic = 2, Underline = 4 };

    FontDesc() = default;
    FontDesc(LightweightString<char> const& name_, unsigned short size_, unsigned style_ = 0)
        : name(name_), size(size_), style(style_) {}

    unsigned short getSize() const { return size; }
    // An empty description stands for the theme's font.
    bool isEmpty() const { return name.empty() && size == 0; }

    bool operator==(FontDesc const& o) const {
        return size == o.size && style == o.style && name == o.name;
    }
    bool operator!=(FontDesc const& o) const { return !(*this == o); }
    bool operator<(FontDesc const& o) const;

    // An empty family means the default face.
    LightweightString<char> name;
    unsigned short size = 0;
    unsigned style = 0;
};

} // namespace Glib

class iFont : public iObject {
public:
    // A character index and the pixel x at which that character starts.
    struct CharacterLocation {
        int index = 0;
        int x = 0;
        bool operator==(CharacterLocation const& o) const { return index == o.index && x == o.x; }
    };
    enum eCharSeekMethod {
        PreviousChar = 0,
        NextChar = 1,
        NextWord = 2,
        PreviousWord = 3,
        Start = 4,
        End = 5,
        AtIndex = 6,
    };

    // Width of the text and the font's line height.
    virtual XY<int> measure(LightweightString<wchar_t> const& text) const = 0;
    // From the character at `index`, the location the method leads to; seeks stop at the ends.
    // Words are runs of letters, digits and underscores.
    virtual CharacterLocation seek(LightweightString<wchar_t> const& text, eCharSeekMethod method,
                                   int index) const = 0;
    // The character whose cell holds the pixel x (the nearer edge wins), clamped to the text.
    virtual CharacterLocation locate(LightweightString<wchar_t> const& text, int pixelX) const = 0;
    virtual int ascent() const = 0;
    virtual int descent() const = 0;
    int height() const { return ascent() + descent(); }
    virtual Glib::FontDesc const& description() const = 0;
};

namespace Glib {

Qor::Ptr<iFont> loadFont(FontDesc const& desc, Qor::Ptr<iRootWindow> const& window = {});
Qor::Ptr<iFont> loadFont(LightweightString<char> const& name, unsigned short size, unsigned style);

// The interface font, with the given style bits.
FontDesc getDefaultFont(unsigned style = 0);
LightweightString<char> getDefaultFontName(unsigned style = 0);
// The default height, which is also the size of a panel's small buttons.
unsigned short getDefaultFontSize();

namespace TextStyles {
enum TextStyle { Plain = 0, Normal = 1, Contrast = 2 };
}
// What a text description takes for a widget's text-style number.
int mapTextStyle(TextStyles::TextStyle style);

enum eTextShorteningMethod { ShortenEnd = 0, ShortenMiddle = 1 };
// The text cut to fit the width, with ".." where it was cut; the text itself when it fits, and
// empty when not even ".." fits.
LightweightString<wchar_t> fitTextToWidth(Qor::Ptr<iFont> const& font,
                                          LightweightString<wchar_t> const& text, int width,
                                          eTextShorteningMethod method = ShortenEnd);

} // namespace Glib

// The baseline y that centres one line of the font in a box of that height (y up).
int getFontYOffset(int height, Qor::Ptr<iFont> const& font);

// The text cut (without a mark) to the longest start that fits the width; with `wholeWords`, cut
// at a word boundary when there is one.
LightweightString<wchar_t> clipStringToFit(LightweightString<wchar_t> const& text, int width,
                                           bool wholeWords, Qor::Ptr<iFont> const& font);

// The symbol font for arrows, ticks and stars. Its characters are the codes the widgets draw with
// ('H' down arrow, 'I' up arrow, '>' right, '<' left, 'M' tick, 'm' filled star, 'n' empty star),
// shown through a normal font that has those symbols.
LightweightString<char> getQorUtilityFontName();
unsigned short getQorUtilityFontSize(float scale = 1.0f);

namespace QorTTF {
enum eGlyph : wchar_t {
    DownArrow = L'H',
    UpArrow = L'I',
    RightArrow = L'>',
    LeftArrow = L'<',
    Tick = L'M',
    FilledStar = L'm',
    EmptyStar = L'n',
};
// The one-character text that shows the glyph in the utility font.
LightweightString<wchar_t> getString(eGlyph glyph);
// The symbol that a utility-font character is drawn as (the character itself when it has none).
wchar_t symbolFor(wchar_t utilityChar);
} // namespace QorTTF
