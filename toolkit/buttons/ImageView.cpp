#include "buttons/ImageView.h"

#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"

ImageView::ImageView(InitArgs const& args) : StandardPanel(args), image_(args.image) {}

void ImageView::setImage(Qor::Ptr<iHostImage> const& image) {
    image_ = image;
    update();
}

void ImageView::drawBackground() {
    StandardPanel::drawBackground();
    if (!image_ || canvas() == nullptr)
        return;
    Glib::ImageDescription picture;
    picture.image = image_;
    picture.box = getUserArea();
    canvas()->renderer().renderPrimitive(picture);
}
