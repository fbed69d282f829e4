#pragma once

// A widget with a face that may have rounded corners: the plain base of panels, buttons and most
// other controls. Its outline is a rectangle with corners of the radius; a radius of exactly 4
// rounds all four corners of its canvas outline as well.

#include "menus/MenuGlob.h"

class rect : public MenuGlob {
public:
    struct InitArgs : GlobCreationInfo {
        InitArgs() = default;
        InitArgs(unsigned short w, unsigned short h, unsigned short radius_ = 0)
            : GlobCreationInfo(w, h), radius(radius_) {}
        unsigned short radius = 0;
    };

    explicit rect(InitArgs const& args);
    explicit rect(GlobCreationInfo const& info);
    rect(GlobCreationInfo const& info, unsigned short radius);
    rect(unsigned short w, unsigned short h, Palette const& palette, bool lightweight,
         Canvas* canvas);
    rect(unsigned short w, unsigned short h, bool lightweight, Canvas* canvas);

    char const* idstring() const override { return "rect"; }
    void set_radius(double radius);
    double get_radius() const { return radius_; }
    void path() override;
    // The outline as the current path: a new path, then addpath().
    virtual void facepath();
    virtual void addpath();
    // Each side is kept to at least twice the radius.
    void resize(double w, double h) override;
    bool shapeChanged() const { return shapeChanged_; }
    void clearShapeChanged() { shapeChanged_ = false; }

protected:
    void init();
    void post_init();

private:
    double radius_ = 0;
    bool shapeChanged_ = true;
};
