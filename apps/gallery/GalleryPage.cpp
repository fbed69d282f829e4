#include "GalleryPage.h"

#include "glob/UifStd.h"

void GalleryPage::text(wchar_t const* line, XY<int> const& origin, Glib::FontDesc const& font,
                       Colour const& colour, Glib::TextDescription::Alignment alignment) {
    Glib::TextDescription t;
    t.text = LightweightString<wchar_t>(line);
    t.font = Glib::loadFont(font);
    t.colour = fromColour(colour);
    t.origin = origin;
    t.alignment = alignment;
    renderer().renderPrimitive(t);
}

void GalleryPage::caption(wchar_t const* line, XY<int> const& at) {
    text(line, XY<int>(at.x, at.y + 6), UifStd::getFont(), getPalette().text(TextInactive));
}

void GalleryPage::addLabel(wchar_t const* line, XY<int> const& at, bool heading) {
    labels_.push_back({line, at, heading});
}

void GalleryPage::drawWidgets() {
    for (Label const& l : labels_)
        if (l.heading)
            text(l.text, l.at, UifStd::getSubheadingFont(), getPalette().subheadingText());
        else
            caption(l.text, l.at);
    Glob::drawWidgets();
}
