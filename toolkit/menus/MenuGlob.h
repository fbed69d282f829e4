#pragma once

// The class between Glob and every toolkit widget, where a widget gets its context menu. For now
// it only hands what its subclasses leave on to Glob.

#include "glob/Glob.h"

class MenuGlob : public Glob {
public:
    using InitArgs = GlobCreationInfo;

    explicit MenuGlob(GlobCreationInfo const& info) : Glob(info) {}
    MenuGlob(unsigned short w, unsigned short h, Palette const& palette, bool lightweight,
             Canvas* canvas)
        : Glob(w, h, palette, lightweight, canvas) {}
    MenuGlob(unsigned short w, unsigned short h, bool lightweight, Canvas* canvas)
        : Glob(w, h, lightweight, canvas) {}

    char const* idstring() const override { return "MenuGlob"; }
    int react(Event const& event) override { return Glob::react(event); }
};
