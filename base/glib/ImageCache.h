#pragma once

// The images of the process, each file decoded once: every widget that draws an icon shares the
// one copy. A file that is missing or unreadable is remembered as such and not looked for again.
// Safe to use from any thread.

#include "glib/Image.h"
#include "os/CriticalSection.h"
#include "qor/Singleton.h"

#include <map>
#include <utility>

namespace QorImage {

class Cache {
public:
    static Cache& instance();

    // The image in the file, at scale 1; empty when the file is missing or unreadable.
    Qor::Ptr<iHostImage> get(LightweightString<wchar_t> const& path);
    // An icon from the icons folder by name, with or without ".png": at a scale above 1 its
    // "-2x" file when there is one (an image of scale 2), otherwise the plain file (scale 1).
    Qor::Ptr<iHostImage> loadIcon(LightweightString<wchar_t> const& name, double scale);

private:
    friend struct Loki::CreateUsingNew<Cache>;
    Cache() = default;

    Qor::Ptr<iHostImage> find(LightweightString<wchar_t> const& path, double scale);

    CriticalSection lock_;
    std::map<std::pair<LightweightString<wchar_t>, double>, Qor::Ptr<iHostImage>> images_;
};

} // namespace QorImage
