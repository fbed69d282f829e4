#include "glob/Glob.h"

#include "glib/CanvasRenderer.h"
#include "glib/DrawingHelpers.h"
#include "glib/PathCalls.h"
#include "glib/WindowSurface.h"
#include "glob/EventLoop.h"
#include "glob/GlobManager.h"
#include "glob/Surround.h"
#include "glob/UIAppearanceSettings.h"
#include "glob/UifStd.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

std::atomic<long> cookies{0};

unsigned short toSize(double v) {
    if (!(v > 0))
        return 0;
    return (unsigned short)std::min(std::lround(v),
                                    long(std::numeric_limits<unsigned short>::max()));
}

struct RedrawState {
    int disabled = 0;
    std::vector<Drawable*> pending;
};

RedrawState& redraws() {
    static RedrawState* const state = new RedrawState;
    return *state;
}

constexpr double tickPeriodMs = 20.0;

WidgetPosition byOrigin(eCoordinateOrigin origin, int x, int y,
                        eWidgetAlignment alignment = AlignLeading,
                        WidgetPosition::Kind kind = WidgetPosition::ByOrigin) {
    WidgetPosition p;
    p.kind = kind;
    p.origin = origin;
    p.offset = XY<int>(x, y);
    p.alignment = alignment;
    return p;
}
WidgetPosition relative(eWidgetRelativity relativity, int gap, Glob* sibling,
                        eWidgetAlignment alignment) {
    WidgetPosition p;
    p.kind = WidgetPosition::Relative;
    p.relativity = relativity;
    p.gap = gap;
    p.sibling = sibling;
    p.alignment = alignment;
    return p;
}
} // namespace

// CanvasClient

CanvasClient::TooltipDetails CanvasClient::getTooltipDetails(XY<int> const& rootPos,
                                                             CanvasClient*) {
    TooltipDetails details;
    if (texts_)
        details.text = texts_->tooltip;
    details.position = rootPos;
    return details;
}

MouseCursorID CanvasClient::contextCursor(XY<int> const&) {
    return defaultCursor_;
}

void CanvasClient::handleMouseContainment(bool inside) {
    mouseInside_ = inside;
}

UIString CanvasClient::contextString(XY<int> const&, CanvasClient*) {
    return texts_ ? texts_->help : UIString();
}

void CanvasClient::setContextString(UIString const& help, UIString const& tooltip) {
    texts_ = std::make_unique<HelpTexts>(HelpTexts{help, tooltip});
}

// Drawable

Drawable::~Drawable() {
    clearPendingRedraws();
}

void Drawable::update() {
    RedrawState& state = redraws();
    if (state.disabled > 0) {
        if (std::find(state.pending.begin(), state.pending.end(), this) == state.pending.end())
            state.pending.push_back(this);
        return;
    }
    updateNow();
}

void Drawable::disableRedraws() {
    ++redraws().disabled;
}

void Drawable::enableRedraws() {
    RedrawState& state = redraws();
    if (state.disabled == 0 || --state.disabled > 0)
        return;
    // Each request may add others (a parent asking its children); serve until none is left.
    while (!state.pending.empty()) {
        Drawable* next = state.pending.front();
        state.pending.erase(state.pending.begin());
        next->updateNow();
    }
}

bool Drawable::redrawsDisabled() {
    return redraws().disabled > 0;
}

void Drawable::clearPendingRedraws() {
    auto& pending = redraws().pending;
    pending.erase(std::remove(pending.begin(), pending.end(), this), pending.end());
}

// Glob: construction and destruction

Glob::Glob(GlobCreationInfo const& info) {
    init(info);
}

Glob::Glob(configb const& config, unsigned short w, unsigned short h) {
    init(GlobCreationInfo(w, h));
    load(config);
}

Glob::Glob(unsigned short w, unsigned short h, Palette const& palette, bool lightweight,
           Canvas* canvas) {
    GlobCreationInfo info(w, h);
    info.palette = palette;
    info.lightweight = lightweight;
    info.canvas = canvas;
    init(info);
}

Glob::Glob(unsigned short w, unsigned short h, bool lightweight, Canvas* canvas)
    : Glob(w, h, Palette(), lightweight, canvas) {}

void Glob::init(GlobCreationInfo const& info) {
    width_ = oldWidth_ = info.width;
    height_ = oldHeight_ = info.height;
    palette_ = sharedPalette(info.palette);
    lightweight_ = info.lightweight;
    cookie_ = ++cookies;
    GlobManager::instance().registerGlob(this);
    if (info.canvas != nullptr) {
        canvas_ = std::make_unique<Canvas>(info.canvas, Box(0, 0, width_, height_));
        canvas_->setClient(this);
        canvas_->map();
        if (Glob* p = canvas_to_glob(info.canvas))
            p->children_.push_back(WidgetDetails{this, BottomLeft(0, 0), WidgetSurround{}});
    } else {
        XY<int> at = GlobManager::instance().nextRootPos();
        canvas_ = std::make_unique<Canvas>(glib_rootcanvas(),
                                           Box(at.x, at.y, at.x + width_, at.y + height_));
        canvas_->setClient(this);
    }
}

Glob::~Glob() {
    removeSurround();
    destroyChildren();
    if (Glob* p = parent()) {
        // Siblings placed beside this widget stay where they are, unless they are going too.
        if (!p->destroyingChildren_)
            keepSiblingsInPlace(p);
        auto it = p->findChild(this);
        if (it != p->children_.end())
            p->children_.erase(it);
    }
    GlobManager::instance().unregisterGlob(this);
    clearPendingRedraws();
    if (canvas_)
        canvas_->setClient(nullptr);
    canvas_.reset();
}

void Glob::keepSiblingsInPlace(Glob* p) {
    for (WidgetDetails& d : p->children_)
        if (d.isRelative() &&
            (d.position.sibling == this ||
             (d.position.sibling == nullptr && p->previousChildOf(d.widget) == this))) {
            XY<int> at = d.widget->getParentRelativePosition();
            d.position = BottomLeft(at);
        }
}

void Glob::destroyChildren() {
    destroyingChildren_ = true;
    while (!children_.empty()) {
        Glob* child = children_.back().widget;
        delete child;
    }
    // Widgets made on this canvas by hand, never listed as children.
    if (!canvas_)
        return;
    std::vector<Canvas*> left = canvas_->children();
    for (Canvas* c : left)
        if (Glob* g = canvas_to_glob(c); g != nullptr && is_good_glob_ptr(g))
            delete g;
}

// Events

std::shared_ptr<Palette const> Glob::sharedPalette(Palette const& palette) {
    // Widgets are made on the interface thread; a run of children shares its parent's colours.
    static std::shared_ptr<Palette const> last;
    if (!last || !(*last == palette))
        last = std::make_shared<Palette const>(palette);
    return last;
}

int Glob::fsFilterThis(Event const&, void*) {
    return 0;
}

int Glob::handleEvent(Event const& event) {
    if (event.forward == 0 && !forwards_.empty()) {
        int used = 0;
        forwardToHandlers(event, used);
        if (used)
            return used;
    }
    return react(event);
}

void Glob::forwardToHandlers(Event const& event, int& used) {
    std::vector<ForwardedInterest> forwards = forwards_;
    IdStamp self = getIdStamp();
    for (ForwardedInterest const& f : forwards) {
        if (!EventCode::maskSelects(f.mask, event.type) || !EventHandler::valid(f.handler, f.stamp))
            continue;
        Event copy = event;
        copy.forward = 1;
        copy.handler = f.handler;
        used = react(copy);
        if (!used && EventHandler::valid(this, self) && EventHandler::valid(f.handler, f.stamp)) {
            copy.forward = 0;
            used = f.handler->handleEvent(copy);
        }
        if (used || !EventHandler::valid(this, self))
            return;
    }
}

bool Glob::intercept(Event const&) {
    return false;
}

char const* Glob::idstring() const {
    return "Glob";
}

int Glob::react(Event const& event) {
    if (moving_) {
        if (mouse_move_event(event)) {
            reshapeAndDraw(event.rootPos - moveAnchor_);
            return 1;
        }
        if (mouse_up_event(event)) {
            stopMoving();
            return 1;
        }
    }
    if (mouse_left_event(event) && mouse_down_event(event) && movable_ && isTopLevel()) {
        startMoving(event.rootPos, true);
        return 1;
    }
    return 0;
}

void Glob::startMoving(XY<int> const& rootPos, bool) {
    moving_ = true;
    moveAnchor_ = rootPos - canvas_->rootPosition();
}

void Glob::stopMoving() {
    moving_ = false;
}

// Drawing

void Glob::drawUnbuffered(Qor::Ptr<iRegion>) {
    draw();
}

bool Glob::isOpaqueAt(XY<int> const& p) const {
    return canvas_ && canvas_->isContained(p);
}

void Glob::draw() {
    if (!canDraw())
        return;
    drawBackground();
    drawWidgets();
    drawBorder();
}

bool Glob::canDraw() const {
    return canvas_ && canvas_->isMappedToRoot() && canvas_->surface() != nullptr &&
           !Drawable::redrawsDisabled();
}

void Glob::updateNow() {
    if (!canDraw())
        return;
    draw();
    // Younger siblings that overlap this widget are painted again above it.
    if (Glob* p = parent()) {
        Box mine = canvas_->rect();
        bool younger = false;
        for (Canvas* c : p->canvas_->children()) {
            if (c == canvas_.get()) {
                younger = true;
                continue;
            }
            if (younger && c->mapped && c->rect().intersects(mine))
                if (Glob* g = canvas_to_glob(c))
                    g->draw();
        }
    }
    canvas_->renderer().flush();
}

void Glob::drawBackground() {
    fillRect(face(), getCol());
}

void Glob::drawWidgets() {
    std::vector<Canvas*> children = canvas_->children();
    for (Canvas* c : children)
        if (c->mapped)
            if (Glob* g = canvas_to_glob(c))
                g->draw();
}

void Glob::fillRect(Box const& box, Colour const& colour) {
    if (!canvas_)
        return;
    Glib::RectDescription rect;
    rect.box = box;
    rect.colour = fromColour(colour);
    canvas_->renderer().renderPrimitive(rect);
}

void Glob::makeCanvasCurrent() {
    glib_setcanvas(canvas_.get());
}

void Glob::path() {
    makeCanvasCurrent();
    glib_newpath();
    if (cornerMask_ == 0)
        glib_addrect(0, 0, width_, height_);
    else
        glib_addsoftrect(0, 0, width_, height_, 4.0 * UifStd::getScale());
}

// Geometry and size

Box Glob::face() const {
    return Box(0, 0, width_, height_);
}

Box Glob::getUserArea() const {
    return face();
}

void Glob::setSizeFields(unsigned short w, unsigned short h) {
    oldWidth_ = width_;
    oldHeight_ = height_;
    width_ = w;
    height_ = h;
}

void Glob::resize(double w, double h) {
    unsigned short nw = toSize(w), nh = toSize(h);
    setSizeFields(nw, nh);
    Box r = canvas_->rect();
    if (isTopLevel()) {
        // A window keeps its top edge where it is, as windows do on a screen.
        canvas_->setRect(Box(r.x1, r.y2 - nh, r.x1 + nw, r.y2));
        if (WindowSurface* s = canvas_->surface()) {
            s->resize(XY<int>(nw, nh));
            if (s->window())
                s->window()->setBounds(canvas_->rect());
        }
    } else {
        canvas_->setRect(Box(r.x1, r.y1, r.x1 + nw, r.y1 + nh));
    }
    reshapeCanvas();
    positionChildWidgets();
    if (Surround* s = getSurround())
        s->follow();
}

void Glob::reshape() {
    positionChildWidgets();
    reshape_myself();
}

void Glob::reshape_myself() {
    reshapeCanvas();
}

void Glob::forceReshape() {
    reshape();
}

void Glob::reshapeCanvas() {}

void Glob::translateCanvas(int dx, int dy) {
    canvas_->translate(dx, dy);
    if (!isTopLevel())
        return;
    if (WindowSurface* s = canvas_->surface(); s != nullptr && s->window())
        s->window()->setBounds(canvas_->rect());
    GlobManager::instance().notifyMoved(this);
}

void Glob::translateCanvTree(int dx, int dy) {
    translateCanvas(dx, dy);
}

int Glob::getX() const {
    return canvas_->rootPosition().x;
}

int Glob::getY() const {
    return canvas_->rootPosition().y;
}

XY<int> Glob::screenXYToGlobXY(XY<int> const& rootPos) const {
    return rootPos - canvas_->rootPosition();
}

XY<int> Glob::getParentRelativePosition() const {
    return canvas_->rect().bottomLeft();
}

bool Glob::isType(char const* name) const {
    return name != nullptr && std::strcmp(idstring(), name) == 0;
}

bool Glob::isTopLevel() const {
    return canvas_ && canvas_->isTopLevel();
}

Glob* Glob::parent() const {
    if (!canvas_ || canvas_->getParent() == nullptr || canvas_->isTopLevel())
        return nullptr;
    return canvas_to_glob(canvas_->getParent());
}

void Glob::reparentTo(Glob* newParent) {
    if (newParent == nullptr || newParent == parent() || !reparentable_)
        return;
    if (Glob* old = parent()) {
        auto it = old->findChild(this);
        if (it != old->children_.end())
            old->children_.erase(it);
    }
    canvas_->reparent(newParent->canvas(), XY<int>(0, 0));
    newParent->children_.push_back(WidgetDetails{this, BottomLeft(0, 0), WidgetSurround{}});
}

void Glob::setLogicalParent(Glob* logicalParent) {
    logicalParent_ = logicalParent;
    logicalParentStamp_ = logicalParent ? logicalParent->getIdStamp() : IdStamp::null();
}

Glob* Glob::getLogicalParent() const {
    return EventHandler::valid(logicalParent_, logicalParentStamp_) ? logicalParent_ : nullptr;
}

Glob* Glob::findNearestGlob(bool (*predicate)(Glob*)) const {
    Glob* nearest = nullptr;
    double best = std::numeric_limits<double>::max();
    Glob* self = const_cast<Glob*>(this);
    for (Glob* g = walk_all_root_globs(nullptr); g != nullptr; g = walk_all_root_globs(g)) {
        if (g == self || (predicate != nullptr && !predicate(g)))
            continue;
        double d = glob_pseudo_distance(self, g);
        if (d < best) {
            best = d;
            nearest = g;
        }
    }
    return nearest;
}

void Glob::reshapeAndDraw(XY<int> const& pos) {
    Box r = canvas_->rect();
    translateCanvas(pos.x - r.x1, pos.y - r.y1);
    if (Glob* p = parent()) {
        if (auto it = p->findChild(this); it != p->children_.end())
            it->position = BottomLeft(pos);
        p->update();
    } else {
        update();
    }
}

void Glob::notifyResized(XY<int> const& delta) {
    if (Glob* p = parent())
        p->handleChildResize(this, delta);
}

void Glob::handleChildResize(Glob const*, XY<int> const&) {
    positionChildWidgets();
}

void Glob::calcAbsoluteWidgetPositions() {
    positionChildWidgets();
}

void Glob::setupRootPos(XY<int> const& rootPos) {
    GlobManager::instance().setNextRootPos(rootPos);
}

void Glob::setupRootPos(Canvas*, XY<int> const& rootPos) {
    setupRootPos(rootPos);
}

void Glob::glob_tidy() {
    constrainWithinScreen();
    update();
}

void Glob::constrainWithinScreen() {
    if (!isTopLevel())
        return;
    Box r = canvas_->rect();
    XY<int> safe = GlobManager::instance().getSafePosForGlob(glib_rootcanvas(), r.bottomLeft(),
                                                             XY<int>(r.width(), r.height()));
    if (safe != r.bottomLeft())
        translateCanvas(safe.x - r.x1, safe.y - r.y1);
}

void Glob::positionConstrain(double x, double y, double* cx, double* cy) const {
    if (cx != nullptr)
        *cx = x;
    if (cy != nullptr)
        *cy = y;
}

XY<double> Glob::realPositionConstrain(XY<double> const& p, Event const&) const {
    return p;
}

XY<int> Glob::sizeConstrain(XY<int> const& size, unsigned int) const {
    return XY<int>(std::max(size.x, minSize_.x), std::max(size.y, minSize_.y));
}

// State

void Glob::setInterest(int interest) {
    interests_ |= interest;
    if ((interest & EventCode::Timer) != 0)
        EventLoop::instance().addTicker(this, EventCode::Timer, tickPeriodMs);
}

void Glob::clearInterest(int interest) {
    interests_ &= ~interest;
    if ((interest & EventCode::Timer) != 0)
        EventLoop::instance().removeTicker(this, EventCode::Timer);
}

void Glob::popToTop(bool alsoWindow) {
    canvas_pop_to_top(canvas_.get(), alsoWindow);
}

void Glob::mapCanvas() {
    if (Surround* s = getSurround(); s != nullptr && canvas_->surface() != nullptr) {
        GlobManager::instance().realize(s);
        canvas_->raise();
    }
    canvas_->map();
}

void Glob::unmapCanvas() {
    canvas_->unmap();
    if (Surround* s = getSurround())
        s->unmapCanvas();
}

Surround* Glob::getSurround() const {
    return EventHandler::valid(surround_, surroundStamp_) ? surround_ : nullptr;
}

void Glob::addShadow() {
    addSurround(SurroundParams(Colour(0, 0, 0), 2 * UifStd::getWidgetGap(), 0.35f, 15));
}

void Glob::addSurround(Colour const& colour, unsigned long size, float fraction,
                       unsigned int sides) {
    addSurround(SurroundParams(colour, size, fraction, sides));
}

void Glob::addSurround(SurroundParams const& params) {
    if (!isTopLevel())
        return;
    removeSurround();
    surround_ = new Surround(width_, height_, this, params);
    surroundStamp_ = surround_->getIdStamp();
    if (canvas_->mapped && canvas_->surface() != nullptr) {
        GlobManager::instance().realize(surround_);
        canvas_->raise();
        if (WindowSurface* s = canvas_->surface(); s->window() != nullptr)
            s->window()->raise();
    }
}

void Glob::removeSurround() {
    Surround* s = getSurround();
    surround_ = nullptr;
    surroundStamp_ = IdStamp::null();
    delete s;
}

void Glob::setActive(bool active, eRedrawFlag redraw) {
    active_ = active;
    if (redraw == Redraw)
        update();
}

void Glob::setVisible(bool visible) {
    visible_ = visible;
    if (visible) {
        mapCanvas();
        update();
        return;
    }
    unmapCanvas();
    if (Glob* p = parent())
        p->update();
}

void Glob::setOpacity(double opacity) {
    canvas_->setOpacity(opacity);
    canvupd_mark_all(canvas_.get());
}

void Glob::setCol(Colour const& colour, bool redraw) {
    palette_ = sharedPalette(makeWindowPalette(*palette_, colour));
    if (redraw)
        update();
}

void Glob::setSizeState(eSizeState state) {
    sizeState_ = state;
    setSizeFlag(state);
}

void Glob::handleUIChange(unsigned int mask) {
    std::vector<Glob*> children;
    getChildren(children);
    for (Glob* child : children)
        if (is_good_glob_ptr(child))
            child->handleUIChange(mask);
}

void Glob::claimKbdFocus() {
    set_kbd_focus(this);
}

void Glob::relinquishKbdFocus(Glob* to) {
    if (get_kbd_focus() == this)
        set_kbd_focus(to);
}

void Glob::load(configb const&) {}

void Glob::dump(configb&) const {}

UIAppearanceSettings const& Glob::theme() const {
    return *UifStd::getTheme();
}

void Glob::setTitleText(LightweightString<wchar_t> const& title) {
    if (!isTopLevel())
        return;
    if (WindowSurface* s = canvas_->surface(); s != nullptr && s->window())
        s->window()->setTitle(title);
}

// Children

// From the back: the child looked for is most often the one added or removed last.
std::vector<WidgetDetails>::iterator Glob::findChild(Glob const* child) {
    auto it = std::find_if(children_.rbegin(), children_.rend(),
                           [&](WidgetDetails const& d) { return d.widget == child; });
    return it == children_.rend() ? children_.end() : std::prev(it.base());
}

Glob* Glob::previousChildOf(Glob const* child) const {
    Glob* previous = nullptr;
    for (WidgetDetails const& d : children_) {
        if (d.widget == child)
            return previous;
        previous = d.widget;
    }
    return nullptr;
}

void Glob::addChild(Glob* child, WidgetPosition const& position, WidgetSurround surround) {
    if (child == nullptr || child == this)
        return;
    bool known = child->parent() == this;
    if (!known)
        child->canvas_->reparent(canvas_.get(), XY<int>(0, 0));
    auto it = known ? findChild(child) : children_.end();
    if (it == children_.end()) {
        children_.push_back(WidgetDetails{child, position, surround});
        it = children_.end() - 1;
    } else {
        it->position = position;
        it->surround = surround;
    }
    if (it->position.kind == WidgetPosition::Relative && it->position.sibling == nullptr)
        it->position.sibling = previousChildOf(child);
    WidgetDetails details = *it;
    positionChildWidget(details);
    child->canvas_->map();
    handleWidgetAdded(details);
}

void Glob::addWidget(Glob* child, int x, int y, eCoordinateOrigin origin, WidgetSurround surround,
                     Glob*) {
    addChild(child, byOrigin(origin, x, y), surround);
}

void Glob::addWidgetRelative(Glob* child, Glob* sibling, int gap, eWidgetRelativity relativity,
                             WidgetSurround surround, eWidgetAlignment alignment) {
    addChild(child, relative(relativity, gap, sibling, alignment), surround);
}

WidgetDetails* Glob::getWidget(Glob* child) {
    auto it = findChild(child);
    return it == children_.end() ? nullptr : &*it;
}

Glob* Glob::getWidget(unsigned short index) const {
    return index < children_.size() ? children_[index].widget : nullptr;
}

XY<int> Glob::getWidgetPos(Glob* child) const {
    return child != nullptr && child->parent() == this ? child->getParentRelativePosition()
                                                       : XY<int>();
}

void Glob::setWidgetDetails(Glob* child, WidgetPosition const& position) {
    auto it = findChild(child);
    if (it == children_.end())
        return;
    it->position = position;
    positionChildWidget(*it);
}

void Glob::setWidgetOrigin(Glob* child, eCoordinateOrigin origin, XY<int> const& offset) {
    setWidgetDetails(child, byOrigin(origin, offset.x, offset.y));
}

void Glob::setWidgetRelativity(Glob* child, Glob* sibling, eWidgetRelativity relativity, int gap,
                               eWidgetAlignment alignment) {
    setWidgetDetails(child,
                     relative(relativity, gap,
                              sibling != nullptr ? sibling : previousChildOf(child), alignment));
}

XY<int> Glob::placeByOrigin(WidgetDetails const& details, XY<int> const& size) const {
    WidgetPosition const& p = details.position;
    XY<int> anchor = getOriginXY(p.origin);
    bool fromRight = p.origin == OriginBottomRight || p.origin == OriginTopRight ||
                     p.origin == OriginUserBottomRight || p.origin == OriginUserTopRight;
    bool fromTop = p.origin == OriginTopLeft || p.origin == OriginTopRight ||
                   p.origin == OriginUserTopLeft || p.origin == OriginUserTopRight;
    int x = fromRight ? anchor.x - p.offset.x - size.x : anchor.x + p.offset.x;
    int y = fromTop ? anchor.y - p.offset.y - size.y : anchor.y + p.offset.y;
    return XY<int>(x, y);
}

XY<int> placeBeside(Box const& s, XY<int> const& size, eWidgetRelativity relativity,
                    eWidgetAlignment alignment, int gap) {
    auto along = [&](int start, int length, int own) {
        if (alignment == AlignCentre)
            return start + (length - own) / 2;
        return alignment == AlignTrailing ? start + length - own : start;
    };
    // Leading is the top edge beside a sibling, so the vertical alignment runs the other way.
    auto alongVertical = [&](int own) {
        if (alignment == AlignCentre)
            return s.y1 + (s.height() - own) / 2;
        return alignment == AlignTrailing ? s.y1 : s.y2 - own;
    };
    switch (relativity) {
    case RelativeLeft:
        return XY<int>(s.x1 - gap - size.x, alongVertical(size.y));
    case RelativeRight:
        return XY<int>(s.x2 + gap, alongVertical(size.y));
    case RelativeAbove:
        return XY<int>(along(s.x1, s.width(), size.x), s.y2 + gap);
    case RelativeBelow:
        return XY<int>(along(s.x1, s.width(), size.x), s.y1 - gap - size.y);
    case RelativeNone:
        break;
    }
    return s.bottomLeft();
}

XY<int> Glob::placeRelative(WidgetDetails const& details, XY<int> const& size) const {
    WidgetPosition const& p = details.position;
    Glob* sibling = p.sibling != nullptr ? p.sibling : previousChildOf(details.widget);
    if (sibling == nullptr || sibling->parent() != this)
        return XY<int>(0, 0);
    return placeBeside(sibling->canvas()->rect(), size, p.relativity, p.alignment, p.gap);
}

XY<int> Glob::placeCentred(WidgetDetails const& details, XY<int> const& size) const {
    WidgetPosition const& p = details.position;
    Box f = face();
    int y = f.y1 + (f.height() - size.y) / 2 + p.offset.y;
    if (p.kind == WidgetPosition::LeftCentred)
        return XY<int>(f.x1 + p.offset.x, y);
    if (p.kind == WidgetPosition::RightCentred)
        return XY<int>(f.x2 - p.offset.x - size.x, y);
    return XY<int>(f.x1 + (f.width() - size.x) / 2 + p.offset.x, y);
}

Box Glob::getAbsRect(WidgetDetails const& details) const {
    if (details.widget == nullptr)
        return Box();
    XY<int> size(details.widget->width(), details.widget->height());
    XY<int> at;
    switch (details.position.kind) {
    case WidgetPosition::ByOrigin:
        at = placeByOrigin(details, size);
        break;
    case WidgetPosition::Relative:
        at = placeRelative(details, size);
        break;
    default:
        at = placeCentred(details, size);
        break;
    }
    return Box(at.x, at.y, at.x + size.x, at.y + size.y);
}

void Glob::positionChildWidget(WidgetDetails const& details) {
    if (details.widget == nullptr || details.widget->parent() != this)
        return;
    details.widget->canvas()->move(getAbsRect(details).bottomLeft());
}

void Glob::positionChildWidgets() {
    std::vector<WidgetDetails> children = children_;
    for (WidgetDetails const& d : children)
        positionChildWidget(d);
}

void Glob::reshapeWidgetAt(Glob* child, double x, double y, Glob*) {
    setWidgetPos(child, XY<int>(int(std::lround(x)), int(std::lround(y))));
}

void Glob::setWidgetPos(Glob* child, XY<int> const& pos) {
    auto it = findChild(child);
    if (it == children_.end())
        return;
    it->position = BottomLeft(pos);
    child->canvas()->move(pos);
}

void Glob::getChildren(std::vector<Glob*>& out) const {
    out.clear();
    for (WidgetDetails const& d : children_)
        out.push_back(d.widget);
}

std::vector<WidgetDetails> Glob::takeChildren() {
    std::vector<WidgetDetails> taken;
    taken.swap(children_);
    return taken;
}

void Glob::appendChild(WidgetDetails const& details) {
    if (details.widget != nullptr && findChild(details.widget) == children_.end())
        children_.push_back(details);
}

void Glob::removeWidget(Glob*& child, bool destroy) {
    Glob* taken = child;
    child = nullptr;
    if (taken == nullptr || taken->parent() != this)
        return;
    if (destroy) {
        delete taken;
        return;
    }
    auto it = findChild(taken);
    if (it != children_.end())
        children_.erase(it);
    taken->canvas_->unmap();
}

XY<int> Glob::getOriginXY(eCoordinateOrigin origin) const {
    Box f = face();
    Box u = getUserArea();
    switch (origin) {
    case OriginBottomLeft:
        return f.bottomLeft();
    case OriginTopLeft:
        return XY<int>(f.x1, f.y2);
    case OriginBottomRight:
        return XY<int>(f.x2, f.y1);
    case OriginTopRight:
        return f.topRight();
    case OriginUserBottomLeft:
        return u.bottomLeft();
    case OriginUserTopLeft:
        return XY<int>(u.x1, u.y2);
    case OriginUserBottomRight:
        return XY<int>(u.x2, u.y1);
    case OriginUserTopRight:
        return u.topRight();
    }
    return XY<int>(0, 0);
}

// Visiting

Glob* Glob::visitChildren(Glob* last) {
    if (last == nullptr)
        return children_.empty() ? nullptr : children_.front().widget;
    auto it = findChild(last);
    return (it == children_.end() || it + 1 == children_.end()) ? nullptr : (it + 1)->widget;
}

Glob* Glob::visitSiblings(Glob* last) {
    Glob* p = parent();
    if (p == nullptr)
        return nullptr;
    Glob* next = p->visitChildren(last);
    return next == this ? p->visitChildren(next) : next;
}

Glob* Glob::visitOlderSiblings(Glob* last) {
    Glob* p = parent();
    if (p == nullptr)
        return nullptr;
    Glob* next = p->visitChildren(last);
    return next == this ? nullptr : next;
}

Glob* Glob::visitYoungerSiblings(Glob* last) {
    Glob* p = parent();
    if (p == nullptr)
        return nullptr;
    return p->visitChildren(last != nullptr ? last : this);
}

Glob* Glob::visitAncestors(Glob* last) {
    return last == nullptr ? parent() : last->parent();
}

// Pre-order below this widget, this widget excluded.
Glob* Glob::visitSubtree(Glob* last) {
    if (last == nullptr)
        return visitChildren(nullptr);
    if (Glob* first = last->visitChildren(nullptr))
        return first;
    for (Glob* g = last; g != nullptr && g != this; g = g->parent()) {
        Glob* p = g->parent();
        if (p == nullptr)
            return nullptr;
        if (Glob* next = p->visitChildren(g))
            return next;
        if (p == this)
            return nullptr;
    }
    return nullptr;
}

// Post-order below this widget, this widget excluded.
Glob* Glob::visitPostOrder(Glob* last) {
    auto deepestFirst = [](Glob* g) {
        while (Glob* child = g->visitChildren(nullptr))
            g = child;
        return g;
    };
    if (last == nullptr) {
        Glob* first = visitChildren(nullptr);
        return first == nullptr ? nullptr : deepestFirst(first);
    }
    Glob* p = last->parent();
    if (p == nullptr || last == this)
        return nullptr;
    if (Glob* next = p->visitChildren(last))
        return deepestFirst(next);
    return p == this ? nullptr : p;
}

// Messages and forwarding

void Glob::sendMsg(Glob* target, char const* name) {
    sendMessage(LightweightString<char>(name), target, this, true);
}

int Glob::callMsg(Glob* target, char const* name) {
    return callMessage(LightweightString<char>(name), target, this);
}

void Glob::addEventHandler(Glob* handler, int mask) {
    if (handler != nullptr)
        forwards_.push_back({handler, handler->getIdStamp(), mask});
}

void Glob::removeEventHandler(int mask) {
    forwards_.erase(std::remove_if(forwards_.begin(), forwards_.end(),
                                   [&](ForwardedInterest const& f) { return f.mask == mask; }),
                    forwards_.end());
}

void Glob::setModalContextGlob(Glob* popup, Glob* context) {
    GlobManager::instance().addModalGlob(popup, context);
}

void Glob::unsetModalContextGlob(Glob* popup) {
    GlobManager::instance().removeModalGlob(popup);
}

// Position makers

WidgetPosition Glob::TopLeft(int x, int y) {
    return byOrigin(OriginTopLeft, x, y);
}
WidgetPosition Glob::TopRight(int x, int y) {
    return byOrigin(OriginTopRight, x, y);
}
WidgetPosition Glob::BottomLeft(int x, int y) {
    return byOrigin(OriginBottomLeft, x, y);
}
WidgetPosition Glob::BottomLeft(XY<int> const& p) {
    return byOrigin(OriginBottomLeft, p.x, p.y);
}
WidgetPosition Glob::BottomRight(int x, int y) {
    return byOrigin(OriginBottomRight, x, y);
}
WidgetPosition Glob::UserTopLeft(int x, int y, eWidgetAlignment alignment) {
    return byOrigin(OriginUserTopLeft, x, y, alignment);
}
WidgetPosition Glob::UserTopRight(int x, int y, eWidgetAlignment alignment) {
    return byOrigin(OriginUserTopRight, x, y, alignment);
}
WidgetPosition Glob::UserBottomLeft(int x, int y, eWidgetAlignment alignment) {
    return byOrigin(OriginUserBottomLeft, x, y, alignment);
}
WidgetPosition Glob::UserBottomRight(int x, int y, eWidgetAlignment alignment) {
    return byOrigin(OriginUserBottomRight, x, y, alignment);
}
WidgetPosition Glob::Centre(int x, int y, eWidgetAlignment alignment) {
    return byOrigin(OriginBottomLeft, x, y, alignment, WidgetPosition::Centred);
}
WidgetPosition Glob::LeftCentre(int x, int y, eWidgetAlignment alignment) {
    return byOrigin(OriginBottomLeft, x, y, alignment, WidgetPosition::LeftCentred);
}
WidgetPosition Glob::RightCentre(int x, int y, eWidgetAlignment alignment) {
    return byOrigin(OriginBottomLeft, x, y, alignment, WidgetPosition::RightCentred);
}
WidgetPosition Glob::Above(int gap, Glob* sibling, eWidgetAlignment alignment) {
    return relative(RelativeAbove, gap, sibling, alignment);
}
WidgetPosition Glob::Below(int gap, Glob* sibling, eWidgetAlignment alignment) {
    return relative(RelativeBelow, gap, sibling, alignment);
}
WidgetPosition Glob::LeftOf(int gap, Glob* sibling, eWidgetAlignment alignment) {
    return relative(RelativeLeft, gap, sibling, alignment);
}
WidgetPosition Glob::RightOf(int gap, Glob* sibling, eWidgetAlignment alignment) {
    return relative(RelativeRight, gap, sibling, alignment);
}

void drawInset(Glob* glob, Colour const& colour, bool raised) {
    if (!is_good_glob_ptr(glob) || glob->canvas() == nullptr)
        return;
    Glib::drawDepthBox(glob->canvas()->renderer(), colour, glob->face(), 1, raised ? 1 : -1);
}
