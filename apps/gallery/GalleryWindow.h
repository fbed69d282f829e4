#pragma once

// The gallery's window: a strip of page tabs along the top and the current page below it. A click
// on a tab, or Left and Right, changes the page; the window manager's close ("poot") ends it.

#include "GalleryPage.h"

#include <vector>

class GalleryWindow : public Glob {
public:
    GalleryWindow(XY<int> const& size);

    char const* idstring() const override { return "GalleryWindow"; }
    int react(Event const& event) override;
    void drawBackground() override;

    // Makes the page of that kind and puts it in the page list.
    template <class Page>
    Page* addPage() {
        typename Page::InitArgs args(width(), (unsigned short)(height() - tabHeight()));
        Page* page = createChild<Page>(args, BottomLeft(0, 0));
        pages_.push_back(page);
        showPage(unsigned(pages_.size()) - 1);
        return page;
    }
    void showPage(unsigned index);
    unsigned pageCount() const { return unsigned(pages_.size()); }
    GalleryPage* page(unsigned index) const { return pages_[index]; }
    unsigned currentPage() const { return current_; }

private:
    int tabHeight() const;
    Box tabBox(unsigned index) const;
    void drawTabs();

    std::vector<GalleryPage*> pages_;
    unsigned current_ = 0;
};
