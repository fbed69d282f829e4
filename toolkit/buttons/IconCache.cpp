#include "buttons/IconCache.h"

#include "glob/ScreenServices.h"
#include "glob/UifStd.h"
#include "os/Files.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

namespace {

// "pin.png" becomes "pin-2x.png"; a name without a dot gets the suffix at its end.
LightweightString<wchar_t> doubleSizeName(LightweightString<wchar_t> const& name) {
    unsigned dot = name.rfind(L'.');
    if (dot == LightweightString<wchar_t>::npos)
        return name + L"-2x";
    return name.substr(0, dot) + L"-2x." + name.substr(dot + 1);
}

} // namespace

bool IconCache::RecolouredImageKey::operator<(RecolouredImageKey const& other) const {
    auto fields = [](RecolouredImageKey const& k) {
        return std::make_tuple(std::cref(k.name), k.colour.isSet(), k.colour.red(),
                               k.colour.green(), k.colour.blue());
    };
    return fields(*this) < fields(other);
}

IconCache& IconCache::instance() {
    return Qor::Singleton<IconCache>::Instance();
}

IconCache::CachedImage IconCache::load(LightweightString<wchar_t> const& name) {
    return load(name, Plain, 0);
}

IconCache::CachedImage IconCache::load(LightweightString<wchar_t> const& name, unsigned int kinds,
                                       unsigned short height) {
    CriticalSection::Lock hold(lock_);
    setScaleFactor(float(UifStd::getScale()));
    if (height == 0 && kinds == Plain)
        return loadPlain(name);

    LightweightString<wchar_t> key = makeCacheKey(name, height, kinds);
    if (auto found = images_.find(key); found != images_.end())
        return found->second;

    CachedImage result;
    if (kinds == Plain) {
        result = shrunk(loadPlain(name), height);
    } else {
        result = load(name, Plain, height);
        if (kinds & Inactive)
            result.image = createInactiveIcon(result.image);
        if ((kinds & Rounded) && result.image)
            result.image = createRoundedIcon(result.image, unsigned(result.image->height() / 4));
    }
    images_[key] = result;
    return result;
}

LightweightString<wchar_t> IconCache::makeCacheKey(LightweightString<wchar_t> const& name,
                                                   unsigned short height, unsigned int kinds) {
    LightweightString<wchar_t> key = name + std::to_wstring(height).c_str();
    if (kinds & Inactive)
        key += L"-inactive";
    if (kinds & Rounded)
        key += L"-rounded";
    return key;
}

void IconCache::setScaleFactor(float scale) {
    CriticalSection::Lock hold(lock_);
    if (scale == scaleFactor_)
        return;
    images_.clear();
    recolouredImages_.clear();
    scaleFactor_ = scale;
}

float IconCache::getScaleFactor() const {
    CriticalSection::Lock hold(lock_);
    return scaleFactor_;
}

double IconCache::getDeviceScale() {
    std::vector<Glib::Monitor> monitors;
    Glib::getMonitors(monitors);
    double scale = 1.0;
    for (Glib::Monitor const& monitor : monitors)
        scale = std::max(scale, monitor.scale);
    return scale;
}

Qor::Ptr<iHostImage> IconCache::createResizedIcon(Qor::Ptr<iHostImage> const& image,
                                                  unsigned short size) {
    return QorImage::createResizedIcon(image, size, size);
}

Qor::Ptr<iHostImage> IconCache::createInactiveIcon(Qor::Ptr<iHostImage> const& image) {
    return image ? QorImage::createFadedIcon(image) : image;
}

Qor::Ptr<iHostImage> IconCache::createRoundedIcon(Qor::Ptr<iHostImage> const& image,
                                                  unsigned int radius) {
    return image ? QorImage::createRoundedIcon(image, radius) : image;
}

Qor::Ptr<iHostImage> IconCache::createRecolouredIcon(LightweightString<wchar_t> const& name,
                                                     Colour const& colour) {
    CriticalSection::Lock hold(lock_);
    CachedImage plain = load(name);
    RecolouredImageKey key{name, colour};
    if (auto found = recolouredImages_.find(key); found != recolouredImages_.end())
        return found->second;
    Qor::Ptr<iHostImage> image =
        plain.image ? QorImage::createRecolouredIcon(plain.image, colour) : plain.image;
    recolouredImages_[key] = image;
    return image;
}

IconCache::CachedImage IconCache::loadPlain(LightweightString<wchar_t> const& name) {
    LightweightString<wchar_t> key = makeCacheKey(name, 0, Plain);
    auto found = images_.find(key);
    if (found == images_.end())
        found = images_.emplace(key, readFile(name)).first;
    return found->second;
}

IconCache::CachedImage IconCache::readFile(LightweightString<wchar_t> const& name) const {
    if (scaleFactor_ > 1.0f) {
        LightweightString<wchar_t> path = getIconPath(doubleSizeName(name));
        if (fileExists(path))
            if (Qor::Ptr<iHostImage> image = ImageServices::loadImage(path, 2.0))
                return CachedImage{image, 2.0f};
    }
    return CachedImage{ImageServices::loadImage(getIconPath(name), 1.0), 1.0f};
}

// A copy no taller than `height` interface pixels; an entry that already fits is shared.
IconCache::CachedImage IconCache::shrunk(CachedImage const& entry, unsigned short height) const {
    if (!entry.image || height == 0)
        return entry;
    int pixels = int(height * entry.scale + 0.5f);
    if (pixels >= entry.image->height())
        return entry;
    return CachedImage{createResizedIcon(entry.image, (unsigned short)pixels), entry.scale};
}
