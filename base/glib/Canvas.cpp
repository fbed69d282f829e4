#include "glib/Canvas.h"

#include "glib/CanvasRenderer.h"
#include "glib/Display.h"
#include "glib/PathCalls.h"
#include "glib/WindowSurface.h"

#include <algorithm>
#include <atomic>

namespace {
std::atomic<unsigned long> generation{1};
} // namespace

std::unique_ptr<Canvas> Canvas::createRoot(XY<int> const& screenSize) {
    auto root = std::unique_ptr<Canvas>(new Canvas(nullptr, Box(0, 0, screenSize.x, screenSize.y)));
    root->mapped = 1;
    return root;
}

Canvas::Canvas(Canvas* parent, Box const& rect) : parent_(parent), rect_(rect) {
    if (parent_ != nullptr)
        parent_->children_.push_back(this);
    geometryChanged();
}

Canvas::~Canvas() {
    // The older drawing calls must not be left drawing on a canvas that has gone.
    if (glib_currentcanvas() == this)
        glib_setcanvas(nullptr);
    renderer_.reset();
    for (Canvas* child : children_)
        child->parent_ = nullptr;
    detachFromParent();
    geometryChanged();
}

void Canvas::detachFromParent() {
    if (parent_ == nullptr)
        return;
    // From the back: children usually go in the reverse order of their coming.
    auto& siblings = parent_->children_;
    auto it = std::find(siblings.rbegin(), siblings.rend(), this);
    if (it != siblings.rend())
        siblings.erase(std::prev(it.base()));
    parent_ = nullptr;
}

unsigned long Canvas::geometryGeneration() {
    return generation.load(std::memory_order_relaxed);
}

void Canvas::geometryChanged() {
    generation.fetch_add(1, std::memory_order_relaxed);
}

Canvas* Canvas::getRootParent() {
    Canvas* c = this;
    while (c->parent_ != nullptr && c->parent_->parent_ != nullptr)
        c = c->parent_;
    return c;
}

Canvas* Canvas::getScreen() {
    Canvas* c = this;
    while (c->parent_ != nullptr)
        c = c->parent_;
    return c;
}

void Canvas::setRect(Box const& rect) {
    if (rect == rect_)
        return;
    rect_ = rect;
    geometryChanged();
}

void Canvas::move(XY<int> const& bottomLeft) {
    setRect(Box(bottomLeft.x, bottomLeft.y, bottomLeft.x + rect_.width(),
                bottomLeft.y + rect_.height()));
}

void Canvas::reparent(Canvas* newParent, XY<int> const& bottomLeft) {
    detachFromParent();
    parent_ = newParent;
    if (parent_ != nullptr)
        parent_->children_.push_back(this);
    renderer_.reset();
    move(bottomLeft);
    geometryChanged();
}

XY<int> Canvas::rootPosition() const {
    XY<int> p(0, 0);
    for (Canvas const* c = this; c != nullptr && c->parent_ != nullptr; c = c->parent_)
        p = p + c->rect_.bottomLeft();
    return p;
}

XY<int> Canvas::windowOffset() const {
    XY<int> p(0, 0);
    for (Canvas const* c = this; c != nullptr && !c->isTopLevel() && c->parent_ != nullptr;
         c = c->parent_)
        p = p + c->rect_.bottomLeft();
    return p;
}

Box Canvas::visibleWindowRect() const {
    XY<int> offset = windowOffset();
    Box visible(offset.x, offset.y, offset.x + rect_.width(), offset.y + rect_.height());
    if (hasClip_)
        visible = visible.intersect(clip_.translated(offset.x, offset.y));
    XY<int> parentOffset = offset - rect_.bottomLeft();
    for (Canvas const* c = parent_; c != nullptr && c->parent_ != nullptr; c = c->parent_) {
        Box box(parentOffset.x, parentOffset.y, parentOffset.x + c->rect_.width(),
                parentOffset.y + c->rect_.height());
        visible = visible.intersect(box);
        if (c->isTopLevel())
            break;
        parentOffset = parentOffset - c->rect_.bottomLeft();
    }
    return visible;
}

void Canvas::map() {
    if (mapped)
        return;
    mapped = 1;
    geometryChanged();
    if (surface_ && surface_->window())
        surface_->window()->setMapped(true);
}

void Canvas::unmap() {
    if (!mapped)
        return;
    mapped = 0;
    geometryChanged();
    if (surface_ && surface_->window())
        surface_->window()->setMapped(false);
}

bool Canvas::isMappedToRoot() const {
    for (Canvas const* c = this; c != nullptr; c = c->parent_)
        if (!c->mapped)
            return false;
    return true;
}

void Canvas::raise() {
    if (parent_ == nullptr)
        return;
    auto& siblings = parent_->children_;
    auto it = std::find(siblings.begin(), siblings.end(), this);
    if (it != siblings.end() && it + 1 != siblings.end()) {
        siblings.erase(it);
        siblings.push_back(this);
        geometryChanged();
    }
    if (surface_ && surface_->window())
        surface_->window()->raise();
}

bool Canvas::isTopmost() const {
    return parent_ == nullptr || parent_->children_.back() == this;
}

bool Canvas::isContained(XY<int> const& p) const {
    if (p.x < 0 || p.y < 0 || p.x >= rect_.width() || p.y >= rect_.height())
        return false;
    return !shape_ || shape_->contains(p);
}

Canvas* Canvas::pick(XY<int> const& p) {
    if (!mapped || !isContained(p))
        return nullptr;
    for (auto it = children_.rbegin(); it != children_.rend(); ++it) {
        Canvas* child = *it;
        if (Canvas* hit = child->pick(p - child->rect_.bottomLeft()))
            return hit;
    }
    return this;
}

void Canvas::setOpacity(double opacity) {
    opacity_ = std::clamp(opacity, 0.0, 1.0);
    if (surface_ && surface_->window())
        surface_->window()->setOpacity(opacity_);
}

void Canvas::shape(Qor::Ptr<iRegion> const& region) {
    shape_ = region;
    geometryChanged();
    if (surface_ && surface_->window())
        surface_->window()->setShape(region);
}

bool Canvas::getClipRect(Box& clip) const {
    if (hasClip_)
        clip = clip_;
    return hasClip_;
}

void Canvas::setClipRect(Box const& clip) {
    hasClip_ = true;
    clip_ = clip;
    geometryChanged();
}

void Canvas::clearClipRect() {
    hasClip_ = false;
    geometryChanged();
}

CanvasRenderer& Canvas::renderer() {
    if (!renderer_)
        renderer_ =
            std::make_unique<CanvasRenderer>(this, Box(0, 0, rect_.width(), rect_.height()));
    return *renderer_;
}

Qor::Ptr<iRootWindow> Canvas::getWindow() {
    WindowSurface* s = surface();
    return s != nullptr && s->window() != nullptr ? s->window()->rootWindow()
                                                  : Qor::Ptr<iRootWindow>();
}

WindowSurface* Canvas::surface() {
    if (isRoot())
        return nullptr;
    return getRootParent()->surface_.get();
}

void Canvas::setSurface(std::unique_ptr<WindowSurface> surface) {
    surface_ = std::move(surface);
    geometryChanged();
}

void canvas_walk_children(Canvas* canvas, void (*fn)(Canvas*, void*), void* arg) {
    if (canvas == nullptr)
        return;
    std::vector<Canvas*> children = canvas->children();
    for (Canvas* child : children)
        fn(child, arg);
}

bool canvas_is_topmost(Canvas* canvas) {
    return canvas != nullptr && canvas->isTopmost();
}

bool canvas_is_mapped_to_root(Canvas* canvas) {
    return canvas != nullptr && canvas->isMappedToRoot();
}

void canvas_pop_to_top(Canvas* canvas, bool alsoWindow) {
    if (canvas == nullptr)
        return;
    canvas->raise();
    if (alsoWindow && !canvas->isTopLevel() && !canvas->isRoot())
        canvas->getRootParent()->raise();
}

void canvasKeepTopmost(Canvas* canvas, bool keep) {
    if (canvas == nullptr || canvas->isRoot())
        return;
    WindowSurface* s = canvas->getRootParent()->surface();
    if (s != nullptr && s->window() != nullptr)
        s->window()->setKeepAbove(keep);
}

void canvupd_mark_all(Canvas* canvas) {
    if (canvas == nullptr || canvas->isRoot())
        return;
    if (WindowSurface* s = canvas->surface())
        s->addDamage(canvas->visibleWindowRect());
}
