#pragma once

// The backing store of one top-level window: an ARGB image of the window's size that all its
// canvases draw into, and the damage not yet shown. flush() hands only the damaged rectangles to
// the display, and is held back while updates are deferred.

#include "glib/Colour.h"
#include "qor/Box.h"

#include <memory>
#include <vector>

typedef struct _cairo_surface cairo_surface_t;

class iWindow;

class WindowSurface {
public:
    explicit WindowSurface(XY<int> const& size);
    ~WindowSurface();
    WindowSurface(WindowSurface const&) = delete;
    WindowSurface& operator=(WindowSurface const&) = delete;

    XY<int> size() const { return size_; }
    // A new size starts transparent and wholly damaged.
    void resize(XY<int> const& size);
    cairo_surface_t* surface() const { return surface_; }
    // Bumped whenever the store is replaced, so that drawing contexts on it are remade.
    unsigned long generation() const { return generation_; }

    // Window coordinates, y up; cut to the window.
    void addDamage(Box const& box);
    bool hasDamage() const { return !damage_.empty(); }
    std::vector<Box> const& damage() const { return damage_; }
    std::vector<Box> takeDamage();

    iWindow* window() const { return window_.get(); }
    void setWindow(std::unique_ptr<iWindow> window);

    // Sends the damage to the window unless updates are deferred.
    void flush();
    void deferUpdates() { ++deferred_; }
    void resumeUpdates();
    bool updatesDeferred() const;

    // The colour at a point of the window (y up), unpremultiplied.
    NormalisedRGB pixel(XY<int> const& p) const;
    bool savePng(char const* path) const;

private:
    XY<int> size_;
    cairo_surface_t* surface_ = nullptr;
    unsigned long generation_ = 0;
    std::vector<Box> damage_;
    std::unique_ptr<iWindow> window_;
    int deferred_ = 0;
};

// Suspend and resume showing drawing on the screen, for every window; they nest.
void refresh_off();
void refresh_on();
bool refresh_is_off();
// Sends the damage of every window whose updates are not deferred.
void flushAllWindowSurfaces();
