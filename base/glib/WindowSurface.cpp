#include "glib/WindowSurface.h"

#include "glib/Display.h"
#include "os/CriticalSection.h"

#include <algorithm>
#include <cairo.h>
#include <set>

namespace {

struct Registry {
    std::set<WindowSurface*> surfaces;
    int refreshOff = 0;
};

// Surfaces live and die on the user-interface thread, so the registry needs no lock.
Registry& registry() {
    static Registry* const r = new Registry;
    return *r;
}

cairo_surface_t* makeStore(XY<int> const& size) {
    return cairo_image_surface_create(CAIRO_FORMAT_ARGB32, std::max(size.x, 1),
                                      std::max(size.y, 1));
}

} // namespace

WindowSurface::WindowSurface(XY<int> const& size) : size_(size), surface_(makeStore(size)) {
    registry().surfaces.insert(this);
    addDamage(Box(0, 0, size.x, size.y));
}

WindowSurface::~WindowSurface() {
    registry().surfaces.erase(this);
    window_.reset();
    cairo_surface_destroy(surface_);
}

void WindowSurface::resize(XY<int> const& size) {
    if (size == size_)
        return;
    cairo_surface_destroy(surface_);
    size_ = size;
    surface_ = makeStore(size);
    ++generation_;
    damage_.clear();
    addDamage(Box(0, 0, size.x, size.y));
}

void WindowSurface::addDamage(Box const& box) {
    Box cut = box.intersect(Box(0, 0, size_.x, size_.y));
    if (cut.isEmpty())
        return;
    for (Box& existing : damage_) {
        if (existing.contains(cut))
            return;
        if (cut.contains(existing)) {
            existing = cut;
            return;
        }
    }
    // Many small boxes cost more to send than one covering box; keep the list short.
    if (damage_.size() >= 32) {
        Box all = cut;
        for (Box const& b : damage_)
            all = all.unite(b);
        damage_.assign(1, all);
        return;
    }
    damage_.push_back(cut);
}

std::vector<Box> WindowSurface::takeDamage() {
    std::vector<Box> taken;
    taken.swap(damage_);
    return taken;
}

void WindowSurface::setWindow(std::unique_ptr<iWindow> window) {
    window_ = std::move(window);
}

void WindowSurface::flush() {
    if (updatesDeferred() || damage_.empty() || !window_)
        return;
    cairo_surface_flush(surface_);
    std::vector<Box> damage = takeDamage();
    window_->present(*this, damage);
}

void WindowSurface::resumeUpdates() {
    if (deferred_ > 0 && --deferred_ == 0)
        flush();
}

bool WindowSurface::updatesDeferred() const {
    return deferred_ > 0 || registry().refreshOff > 0;
}

NormalisedRGB WindowSurface::pixel(XY<int> const& p) const {
    if (p.x < 0 || p.y < 0 || p.x >= size_.x || p.y >= size_.y)
        return NormalisedRGB(0, 0, 0, 0);
    cairo_surface_flush(surface_);
    unsigned char const* data = cairo_image_surface_get_data(surface_);
    int stride = cairo_image_surface_get_stride(surface_);
    int row = size_.y - 1 - p.y;
    auto const* px = reinterpret_cast<uint32_t const*>(data + row * stride) + p.x;
    float a = float((*px >> 24) & 0xff) / 255.0f;
    if (a == 0)
        return NormalisedRGB(0, 0, 0, 0);
    auto channel = [&](int shift) { return float((*px >> shift) & 0xff) / 255.0f / a; };
    return NormalisedRGB(channel(16), channel(8), channel(0), a);
}

bool WindowSurface::savePng(char const* path) const {
    cairo_surface_flush(surface_);
    return cairo_surface_write_to_png(surface_, path) == CAIRO_STATUS_SUCCESS;
}

void refresh_off() {
    ++registry().refreshOff;
}

void refresh_on() {
    Registry& r = registry();
    if (r.refreshOff > 0 && --r.refreshOff == 0)
        flushAllWindowSurfaces();
}

bool refresh_is_off() {
    return registry().refreshOff > 0;
}

void flushAllWindowSurfaces() {
    std::vector<WindowSurface*> surfaces(registry().surfaces.begin(), registry().surfaces.end());
    for (WindowSurface* s : surfaces)
        s->flush();
}
