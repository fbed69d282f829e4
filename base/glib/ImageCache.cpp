#include "glib/ImageCache.h"

#include "os/Files.h"

namespace QorImage {

Cache& Cache::instance() {
    return Qor::Singleton<Cache>::Instance();
}

Qor::Ptr<iHostImage> Cache::get(LightweightString<wchar_t> const& path) {
    return find(path, 1.0);
}

Qor::Ptr<iHostImage> Cache::loadIcon(LightweightString<wchar_t> const& name, double scale) {
    LightweightString<wchar_t> stem = name;
    if (stem.endsWith(L".png", false))
        stem = stem.substr(0, stem.size() - 4);
    if (scale > 1.0)
        if (Qor::Ptr<iHostImage> sharp = find(getIconPath(stem + L"-2x.png"), 2.0))
            return sharp;
    return find(getIconPath(stem + L".png"), 1.0);
}

// The lock is held while a file loads, so two threads asking for the same icon decode it once.
Qor::Ptr<iHostImage> Cache::find(LightweightString<wchar_t> const& path, double scale) {
    CriticalSection::Lock hold(lock_);
    auto key = std::make_pair(path, scale);
    auto found = images_.find(key);
    if (found != images_.end())
        return found->second;
    return images_.emplace(key, ImageServices::loadImage(path, scale)).first->second;
}

} // namespace QorImage
