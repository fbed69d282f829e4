#include "buttons/GenIcon.h"

#include "buttons/IconCache.h"
#include "glib/Canvas.h"
#include "glib/CanvasRenderer.h"
#include "glib/PathCalls.h"
#include "glob/GlobManager.h"
#include "misc/Config.h"

#include <algorithm>
#include <cstring>

char const* const GenIcon::toolboxRepopulateMsg = "toolbox_repopulate";

namespace {
char const* const sizeKey = "SIZE";
} // namespace

GenIcon::GenIcon(InitArgs const& args) : StandardPanel(args), icons_(args.icons), size_(args.size) {
    setImage(icons_.name(0));
}

void GenIcon::pick() {
    pickedPos_ = currentPos();
    popToTop(false);
}

void GenIcon::drop(Glob::eDropReason reason) {
    if (reason == DropCancel)
        reshapeAndDraw(pickedPos_);
    else if (containedInsideToolbox())
        requestToolboxRepopulate();
}

void GenIcon::dump(configb& config) const {
    StandardPanel::dump(config);
    config.set(sizeKey, int(size_));
}

void GenIcon::load(configb const& config) {
    StandardPanel::load(config);
    int size = 0;
    if (!config.in(sizeKey, size) || size < 0 || size > 0xffff)
        return;
    size_ = (unsigned short)size;
    setImage(imageName_);
}

void GenIcon::drawBackground() {
    StandardPanel::drawBackground();
    if (!image_ || canvas() == nullptr)
        return;
    Glib::ImageDescription picture;
    picture.image = image_;
    picture.box = face();
    canvas()->renderer().renderPrimitive(picture);
}

void GenIcon::reshapeCanvas() {
    Qor::Ptr<iRegion> region = getRegionForImage();
    if (region && isTopLevel())
        glib_reshapecanvas(canvas(), region);
    else
        StandardPanel::reshapeCanvas();
}

void GenIcon::reInit(IconSet const& icons) {
    icons_ = icons;
    setImage(icons_.name(0));
}

void GenIcon::setImage(LightweightString<wchar_t> const& name) {
    imageName_ = name;
    image_ = name.empty() ? Qor::Ptr<iHostImage>()
                          : IconCache::instance().load(name, IconCache::Plain, size_).image;
    initForImage();
}

void GenIcon::initForImage() {
    if (!image_)
        return;
    double scale = image_->scale() > 0 ? image_->scale() : 1.0;
    resize(std::max(1.0, image_->width() / scale), std::max(1.0, image_->height() / scale));
    if (canvas() != nullptr && isTopLevel())
        reshapeCanvas();
    update();
}

Qor::Ptr<iRegion> GenIcon::getRegionForImage() const {
    if (!image_)
        return {};
    double scale = image_->scale() > 0 ? image_->scale() : 1.0;
    if (scale == 1.0)
        return glib_buildRegionFromImage(image_);
    int w = std::max(1, int(image_->width() / scale + 0.5));
    int h = std::max(1, int(image_->height() / scale + 0.5));
    return glib_buildRegionFromImage(QorImage::createResizedIcon(image_, w, h));
}

XY<int> GenIcon::getMaximisedPos(XY<int> const& pos, bool constrain) const {
    if (!constrain)
        return pos;
    Box area = GlobManager::instance().getMaximisedPosForGlob(const_cast<GenIcon*>(this));
    int x = std::clamp(pos.x, area.x1, std::max(area.x1, area.x2 - int(width())));
    int y = std::clamp(pos.y, area.y1, std::max(area.y1, area.y2 - int(height())));
    return XY<int>(x, y);
}

bool GenIcon::containedInsideToolbox() const {
    return findToolbox() != nullptr;
}

void GenIcon::requestToolboxRepopulate() {
    if (Glob* toolbox = findToolbox())
        sendMsg(toolbox, toolboxRepopulateMsg);
}

Glob* GenIcon::findToolbox() const {
    for (Glob* g = parent(); g != nullptr; g = g->parent())
        if (std::strcmp(g->idstring(), "toolbox") == 0)
            return g;
    return nullptr;
}

XY<int> GenIcon::currentPos() const {
    return isTopLevel() ? XY<int>(getX(), getY()) : getParentRelativePosition();
}
