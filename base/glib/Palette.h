#pragma once

// The set of colours of a widget: seven colours and a contrast. Window shades 0..6 derive from the
// window colour and the contrast (3 is the window colour itself, 0..2 lighter edges, 4..6 darker):
// shade n is scale(window, 1 + contrast * (3 - n)). The other appearances derive from the slots as
// their accessors say.

#include "glib/Colour.h"

enum eWindowShade : int {
    WindowShadeLightest = 0,
    WindowShadeLighter = 1,
    WindowShadeLight = 2,
    WindowShadeBase = 3,
    WindowShadeDark = 4,
    WindowShadeDarker = 5,
    WindowShadeDarkest = 6,
};
enum eTextAppearance : int { TextNormal = 0, TextInactive = 1, TextFaint = 2 };
enum eSelectionAppearance : int { SelectionNormal = 0, SelectionFaint = 1 };
enum eChildWindowType : int { ChildWindowPlain = 0, ChildWindowInset = 1, ChildWindowDeep = 2 };

class Palette {
public:
    // Usable default colours: a light grey window and near-black text.
    Palette();
    // The default colours on this window, with text that reads on it (near-white on a dark one).
    explicit Palette(Colour const& window);
    Palette(Colour const& window, Colour const& text);

    Colour window(eWindowShade shade = WindowShadeBase) const;
    Colour window(int shade) const { return window(eWindowShade(shade)); }
    // 0 normal; 1 inactive (halfway to the window colour); 2 faint (most of the way there).
    Colour text(eTextAppearance appearance = TextNormal) const;
    Colour text(int appearance) const { return text(eTextAppearance(appearance)); }
    // 0 the selection colour; 1 halfway to the window colour.
    Colour selection(eSelectionAppearance appearance = SelectionNormal) const;
    Colour selection(int appearance) const { return selection(eSelectionAppearance(appearance)); }
    Colour headingText() const { return headingText_; }
    Colour subheadingText() const { return subheadingText_; }
    // Text that reads on the selection colour.
    Colour selectedText() const;
    Colour button() const { return button_; }
    Colour warning() const { return warning_; }
    Colour shadow() const;
    // The fill of a child window of the type (1 is the check-box fill): the window colour `type`
    // contrast steps lighter on a light window, darker on a dark one.
    Colour childWindow(eChildWindowType type) const;
    Colour childWindow(int type) const { return childWindow(eChildWindowType(type)); }
    // Towards white for a factor above 1, towards black below, by |factor - 1|, so it also works
    // on dark palettes.
    Colour scale(Colour const& colour, double factor) const;
    float contrast() const { return contrast_; }

    void setWindow(Colour const& c) { window_ = c; }
    void setText(Colour const& c) { text_ = c; }
    void setSelection(Colour const& c) { selection_ = c; }
    void setHeadingText(Colour const& c) { headingText_ = c; }
    void setSubheadingText(Colour const& c) { subheadingText_ = c; }
    void setButton(Colour const& c) { button_ = c; }
    void setWarning(Colour const& c) { warning_ = c; }
    void setContrast(float contrast) { contrast_ = contrast; }

    bool operator==(Palette const& o) const;
    bool operator!=(Palette const& o) const { return !(*this == o); }

private:
    Colour window_;
    Colour text_;
    Colour selection_;
    Colour headingText_;
    Colour subheadingText_;
    Colour button_;
    Colour warning_;
    float contrast_;
};

// The palette with a new window colour (the shades follow it).
Palette makeWindowPalette(Palette const& palette, Colour const& window);
// The palette with a new text colour.
Palette makeTextPalette(Palette const& palette, Colour const& text);
// The palette of a child window of the type: its window colour is the parent's child fill.
Palette makeChildPalette(Palette const& palette, eChildWindowType type);
