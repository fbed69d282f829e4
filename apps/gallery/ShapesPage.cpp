#include "ShapesPage.h"

#include "glib/HostImage.h"
#include "glib/Region.h"

#include <cmath>

namespace {

// A picture to transform: a disc shading from orange to blue, transparent outside.
Qor::Ptr<iHostImage> makePicture(int size) {
    auto* picture = new HostImage(size, size);
    double r = size / 2.0;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            double dx = x + 0.5 - r, dy = y + 0.5 - r;
            double d = std::sqrt(dx * dx + dy * dy) / r;
            if (d > 1)
                continue;
            float t = float(y) / float(size);
            picture->setPixel(x, y, NormalisedRGB(1.0f - 0.8f * t, 0.5f, 0.2f + 0.7f * t, 1.0f));
        }
    picture->fill(Box(size / 2 - 3, 0, size / 2 + 3, size), NormalisedRGB(1, 1, 1, 1));
    return Qor::Ptr<iHostImage>(picture);
}

} // namespace

ShapesPage::ShapesPage(GlobCreationInfo const& info)
    : GalleryPage(info), picture_(makePicture(96)) {}

void ShapesPage::drawWidgets() {
    drawCorner(24, top() - 30, CurvedRegionRounded, L"Rounded panel corner, 8× magnified");
    drawCorner(24, top() - 250, CurvedRegionChamfered, L"Chamfered corner, 8× magnified");
    drawImages(440, top() - 30);
    drawImageRegion(440, top() - 260);
    Glob::drawWidgets();
}

// The top-left corner of a 12-by-12 curved region, one magnified cell per pixel: the cut pixels
// light, the kept ones dark.
void ShapesPage::drawCorner(int x, int y, eCurvedRegionType type, wchar_t const* name) {
    caption(name, XY<int>(x, y));
    Qor::Ptr<iRegion> region = makeCurvedRegion(XY<int>(40, 40), 15, type);
    Palette const& p = getPalette();
    int const cell = 14;
    for (int row = 0; row < 12; ++row)
        for (int col = 0; col < 12; ++col) {
            bool kept = region->contains(XY<int>(col, 39 - row));
            Glib::RectDescription px;
            int left = x + col * cell, topEdge = y - 20 - row * cell;
            px.box = Box(left, topEdge - cell + 1, left + cell - 1, topEdge);
            px.colour = fromColour(kept ? p.selection() : p.window(WindowShadeLighter));
            renderer().renderPrimitive(px);
        }
}

void ShapesPage::image(Qor::Ptr<iHostImage> const& picture, Box const& box) {
    Glib::ImageDescription d;
    d.image = picture;
    d.box = box;
    renderer().renderPrimitive(d);
}

void ShapesPage::drawImages(int x, int y) {
    caption(L"A picture, resized, faded, rounded and recoloured", XY<int>(x, y));
    image(picture_, Box(x, y - 116, x + 96, y - 20));
    image(QorImage::createResizedIcon(picture_, 48, 48), Box(x + 110, y - 68, x + 158, y - 20));
    image(QorImage::createFadedIcon(picture_), Box(x + 170, y - 116, x + 266, y - 20));
    auto square = Qor::Ptr<iHostImage>(new HostImage(96, 96));
    static_cast<HostImage*>(square.get())->fill(Box(0, 0, 96, 96), NormalisedRGB(0.3f, 0.5f, 0.8f));
    image(QorImage::createRoundedIcon(square, 16), Box(x + 280, y - 116, x + 376, y - 20));
    image(QorImage::createRecolouredIcon(picture_, getPalette().headingText()),
          Box(x + 390, y - 116, x + 486, y - 20));
}

void ShapesPage::drawImageRegion(int x, int y) {
    caption(L"The region of the picture's opaque pixels, outlined", XY<int>(x, y));
    Qor::Ptr<iRegion> region = glib_buildRegionFromImage(picture_);
    Box bounds = region->bounds();
    Glib::RectDescription box;
    for (Box const& b : region->boxes()) {
        box.box = b.translated(x, y - 20 - bounds.height());
        box.colour = fromColour(getPalette().window(WindowShadeDark));
        renderer().renderPrimitive(box);
    }
    wchar_t line[80];
    std::swprintf(line, 80, L"%d boxes make the region", int(region->boxes().size()));
    text(line, XY<int>(x + bounds.width() + 20, y - 60), Glib::FontDesc("", 16, 0),
         getPalette().text());
}
