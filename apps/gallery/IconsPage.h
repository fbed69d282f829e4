#pragma once

// The icon set: every icon in the icons folder, its plain file and its 2× file side by side at
// their full sizes, with its name under it.

#include "GalleryPage.h"

#include <string>
#include <vector>

class IconsPage : public GalleryPage {
public:
    explicit IconsPage(GlobCreationInfo const& info);
    wchar_t const* title() const override { return L"Icons"; }
    char const* fileStem() const override { return "icons"; }
    void drawWidgets() override;

private:
    void drawIcon(std::string const& name, Box const& cell);

    std::vector<std::string> names_;
};
