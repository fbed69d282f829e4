#include "glib/UpdateDeferrer.h"

#include "glib/Canvas.h"
#include "glib/WindowSurface.h"

namespace Glib {

UpdateDeferrer::UpdateDeferrer(Canvas* canvas) {
    everyWindow_ = canvas == nullptr || canvas->isRoot();
    if (everyWindow_) {
        refresh_off();
        return;
    }
    surface_ = canvas->surface();
    if (surface_ != nullptr)
        surface_->deferUpdates();
}

UpdateDeferrer::~UpdateDeferrer() {
    if (everyWindow_)
        refresh_on();
    else if (surface_ != nullptr)
        surface_->resumeUpdates();
}

} // namespace Glib
