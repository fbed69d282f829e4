#include "panels/rect.h"

#include "glib/PathCalls.h"

#include <algorithm>

rect::rect(InitArgs const& args) : MenuGlob(args) {
    init();
    set_radius(args.radius);
    post_init();
}

rect::rect(GlobCreationInfo const& info) : MenuGlob(info) {
    init();
    post_init();
}

rect::rect(GlobCreationInfo const& info, unsigned short radius) : MenuGlob(info) {
    init();
    set_radius(radius);
    post_init();
}

rect::rect(unsigned short w, unsigned short h, Palette const& palette, bool lightweight,
           Canvas* canvas)
    : MenuGlob(w, h, palette, lightweight, canvas) {
    init();
    post_init();
}

rect::rect(unsigned short w, unsigned short h, bool lightweight, Canvas* canvas)
    : MenuGlob(w, h, lightweight, canvas) {
    init();
    post_init();
}

void rect::init() {
    glib_rescalecanvas(canvas());
}

void rect::post_init() {
    setVisible(true);
}

void rect::set_radius(double radius) {
    radius_ = radius;
    // Only the panel radius rounds the canvas's own corners.
    setCornerMask(radius == 4.0 ? 15 : 0);
}

void rect::path() {
    Glob::path();
}

void rect::facepath() {
    makeCanvasCurrent();
    glib_newpath();
    addpath();
}

void rect::addpath() {
    glib_addsoftrect(0, 0, width(), height(), radius_);
}

void rect::resize(double w, double h) {
    double least = 2 * radius_;
    w = std::max(w, least);
    h = std::max(h, least);
    unsigned short before[2] = {width(), height()};
    Glob::resize(w, h);
    if (width() != before[0] || height() != before[1])
        shapeChanged_ = true;
}
