#include "glob/Surround.h"

#include "glib/CanvasRenderer.h"
#include "glib/WindowSurface.h"
#include "glob/GlobManager.h"
#include "qor/Callback.h"
#include "qor/WrappedData.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace {
enum Side : unsigned { Top = 1, Bottom = 2, Left = 4, Right = 8 };
} // namespace

Surround::Surround(unsigned short w, unsigned short h, Glob* owner, SurroundParams const& params)
    : Glob(GlobCreationInfo(w, h)), params_(params), owner_(nullptr), ownerStamp_(IdStamp::null()) {
    setWindowKind(WindowKind::Popup);
    canvas()->setUseAlphaChannel(true);
    stickTo(owner);
}

Surround::~Surround() = default;

Glob* Surround::owner() const {
    return EventHandler::valid(owner_, ownerStamp_) ? owner_ : nullptr;
}

int Surround::reach(unsigned side) const {
    return (params_.sides & side) != 0 ? int(params_.size) : 0;
}

void Surround::stickTo(Glob* owner) {
    owner_ = owner;
    ownerStamp_ = owner != nullptr ? owner->getIdStamp() : IdStamp::null();
    moved_ = GlobManager::instance().registerForNotification(
        GlobManager::WidgetMoved, Qor::makeCallback(this, &Surround::handleOwnerMoved));
    follow();
}

int Surround::handleOwnerMoved(NotifyMsg const& msg) {
    auto moved = Qor::dynamic_ptr_cast<WrappedData<Glob*>>(msg.getData());
    if (moved && moved->getData() == owner_ && owner() != nullptr)
        follow();
    return 0;
}

void Surround::follow() {
    Glob* o = owner();
    if (o == nullptr)
        return;
    int w = o->width() + reach(Left) + reach(Right);
    int h = o->height() + reach(Top) + reach(Bottom);
    if (w != width() || h != height())
        resize(w, h);
    XY<int> at(o->getX() - reach(Left), o->getY() - reach(Bottom));
    Box r = canvas()->rect();
    if (r.bottomLeft() != at) {
        canvas()->move(at);
        if (WindowSurface* s = canvas()->surface(); s != nullptr && s->window() != nullptr)
            s->window()->setBounds(canvas()->rect());
    }
    reshapeCanvas();
}

void Surround::reshapeCanvas() {
    Glib::RegionBuilder frame;
    frame.appendRect(0, 0, width(), height());
    Glib::RegionBuilder middle;
    middle.appendRect(reach(Left), reach(Bottom), width() - reach(Right), height() - reach(Top));
    canvas()->shape(region_subtract(frame.create(), middle.create()));
}

// Rings of one pixel, from the owner's edge outward, each fainter than the last.
void Surround::draw() {
    if (!canDraw())
        return;
    CanvasRenderer& r = canvas()->renderer();
    if (cairo_t* cr = r.context()) {
        // The frame is drawn over nothing: clear what an earlier drawing left.
        cairo_save(cr);
        cairo_set_operator(cr, CAIRO_OPERATOR_CLEAR);
        cairo_paint(cr);
        cairo_restore(cr);
        r.addModifiedArea(face());
    }
    int size = int(params_.size);
    NormalisedRGB colour = fromColour(params_.colour);
    Box inner(reach(Left), reach(Bottom), width() - reach(Right), height() - reach(Top));
    for (int i = 0; i < size; ++i) {
        float fade = 1.0f - float(i) / float(size);
        colour.a = params_.fraction * fade * fade;
        Glib::RectDescription band;
        band.colour = colour;
        // Each ring runs along the sides that have a frame, as far out as i.
        int left = inner.x1 - (reach(Left) ? i + 1 : 0),
            right = inner.x2 + (reach(Right) ? i + 1 : 0);
        int bottom = inner.y1 - (reach(Bottom) ? i + 1 : 0),
            top = inner.y2 + (reach(Top) ? i + 1 : 0);
        if (reach(Top)) {
            band.box = Box(left, top - 1, right, top);
            r.renderPrimitive(band);
        }
        if (reach(Bottom)) {
            band.box = Box(left, bottom, right, bottom + 1);
            r.renderPrimitive(band);
        }
        if (reach(Left)) {
            band.box =
                Box(left, bottom + (reach(Bottom) ? 1 : 0), left + 1, top - (reach(Top) ? 1 : 0));
            r.renderPrimitive(band);
        }
        if (reach(Right)) {
            band.box =
                Box(right - 1, bottom + (reach(Bottom) ? 1 : 0), right, top - (reach(Top) ? 1 : 0));
            r.renderPrimitive(band);
        }
    }
}
