#include "IconsPage.h"

#include "glib/ImageCache.h"
#include "glob/UifStd.h"
#include "os/Files.h"
#include "qor/UTF8.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

constexpr int columns = 6;
constexpr int cellWidth = 156;
constexpr int cellHeight = 88;
constexpr int cellGap = 8;
char const sharpSuffix[] = "-2x";

// The names of the icons in the folder: the stems of its PNG files, without the sharp copies.
std::vector<std::string> iconNames(std::string const& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (auto const& entry : std::filesystem::directory_iterator(folder, error)) {
        if (entry.path().extension() != ".png")
            continue;
        std::string stem = entry.path().stem().string();
        if (!stem.ends_with(sharpSuffix))
            names.push_back(stem);
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

IconsPage::IconsPage(GlobCreationInfo const& info)
    : GalleryPage(info), names_(iconNames(toUTF8(getIconsDirectory()).str())) {}

void IconsPage::drawWidgets() {
    int left = 24, y = top() - 30;
    caption(L"Each icon's plain file and its 2× file, pixel for pixel", XY<int>(left, y));
    for (unsigned i = 0; i < names_.size(); ++i) {
        int x = left + int(i % columns) * (cellWidth + cellGap);
        int cellTop = y - 20 - int(i / columns) * (cellHeight + cellGap);
        drawIcon(names_[i], Box(x, cellTop - cellHeight, x + cellWidth, cellTop));
    }
    if (names_.empty())
        text(L"No icons in the icons folder", XY<int>(left, y - 40), UifStd::getFont(),
             getPalette().text());
    Glob::drawWidgets();
}

// The plain file and the 2× one side by side, each pixel for pixel (a 2× icon that a widget loads
// for a scale of 2 is drawn at half that size), centred on one line, the name below.
void IconsPage::drawIcon(std::string const& name, Box const& cell) {
    Glib::RectDescription back;
    back.box = cell;
    back.colour = fromColour(getPalette().window(WindowShadeLighter));
    renderer().renderPrimitive(back);

    LightweightString<wchar_t> wide = fromUTF8(name.c_str());
    QorImage::Cache& cache = QorImage::Cache::instance();
    int middle = (cell.x1 + cell.x2) / 2, base = cell.y1 + 34;
    Glib::ImageDescription plain;
    plain.image = cache.get(getIconPath(wide + L".png"));
    plain.box = Box(middle - 30, base + 8, middle - 14, base + 24);
    renderer().renderPrimitive(plain);
    Glib::ImageDescription sharp;
    sharp.image = cache.get(getIconPath(wide + L"-2x.png"));
    sharp.box = Box(middle + 2, base, middle + 34, base + 32);
    renderer().renderPrimitive(sharp);

    text(wide.c_str(), XY<int>(middle, cell.y1 + 12), UifStd::getFont(), getPalette().text(),
         Glib::TextDescription::Centre);
}
