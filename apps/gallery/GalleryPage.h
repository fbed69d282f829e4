#pragma once

// One page of the gallery: a widget that fills the window below the page tabs and shows one
// family of what the toolkit can do. Pages draw with a few shared helpers for labels.

#include "glib/CanvasRenderer.h"
#include "glob/Glob.h"

#include <vector>

class GalleryPage : public Glob {
public:
    using InitArgs = GlobCreationInfo;

    explicit GalleryPage(GlobCreationInfo const& info) : Glob(info) {}

    virtual wchar_t const* title() const = 0;
    // The name of the page's picture file.
    virtual char const* fileStem() const = 0;
    // The page has just been brought to the front.
    virtual void shown() {}

protected:
    // A line of text with its baseline at `origin`.
    void text(wchar_t const* line, XY<int> const& origin, Glib::FontDesc const& font,
              Colour const& colour,
              Glib::TextDescription::Alignment alignment = Glib::TextDescription::Left);
    // A caption in the interface font, above the top-left corner of a sample at `at`.
    void caption(wchar_t const* line, XY<int> const& at);
    // A caption, or a heading in the subheading font, drawn with the page from now on.
    void addLabel(wchar_t const* line, XY<int> const& at, bool heading = false);
    // The labels, then the widgets.
    void drawWidgets() override;
    CanvasRenderer& renderer() { return canvas()->renderer(); }
    int top() const { return height() - 20; }

private:
    struct Label {
        wchar_t const* text;
        XY<int> at;
        bool heading;
    };
    std::vector<Label> labels_;
};
