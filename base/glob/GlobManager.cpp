#include "glob/GlobManager.h"

#include "glib/WindowSurface.h"
#include "glob/EventLoop.h"
#include "glob/ScreenServices.h"
#include "glob/UifStd.h"
#include "os/Clock.h"
#include "qor/WrappedData.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

// Presses closer than this in time and distance count as one double or triple click.
constexpr double multiClickMs = 400.0;
constexpr int multiClickDistance = 4;
// Deletions may ask for more deletions; a widget that keeps doing so cannot stall the loop.
constexpr int maxDeletionRounds = 8;

int buttonBit(int button) {
    return button == 2 ? EventCode::MiddleBit
                       : (button == 3 ? EventCode::RightBit : EventCode::LeftBit);
}

} // namespace

// Nothing has died since the last check: the widget is as live as it was then.
Glob* GlobManager::Tracked::get() const {
    unsigned long long removals = LiveObjects::removals();
    if (removals == checkedAt)
        return glob;
    if (!EventHandler::valid(glob, stamp))
        glob = nullptr;
    checkedAt = removals;
    return glob;
}

void GlobManager::Tracked::set(Glob* g) {
    glob = g;
    stamp = g != nullptr ? g->getIdStamp() : IdStamp::null();
    checkedAt = LiveObjects::removals();
}

GlobManager& GlobManager::instance() {
    static GlobManager* const manager = new GlobManager;
    return *manager;
}

GlobManager::GlobManager()
    : themeListener_(UifStd::addThemeListener(
          [](unsigned mask) { GlobManager::instance().broadcastUIChange(mask); })) {}

// Registry

void GlobManager::registerGlob(Glob* glob) {
    live_.insert(glob);
}

void GlobManager::unregisterGlob(Glob* glob) {
    live_.erase(glob);
    widgetNotifier_.issueNotification(NotifyMsg(LightweightString<char>("WidgetDeleted"),
                                                Qor::Ptr<iObject>(new WrappedData<Glob*>(glob))),
                                      WidgetDeleted);
    topLevels_.erase(std::remove(topLevels_.begin(), topLevels_.end(), glob), topLevels_.end());
    modal_.erase(glob);
    for (Tracked* t : {&focus_, &grab_, &under_})
        if (t->glob == glob)
            t->set(nullptr);
}

Qor::Ptr<Qor::Guard>
GlobManager::registerForNotification(int type, Qor::Ptr<iCallbackBase<int, NotifyMsg>> const& cb) {
    return widgetNotifier_.registerCallback(cb, type);
}

void GlobManager::notifyMoved(Glob* glob) {
    widgetNotifier_.issueNotification(NotifyMsg(LightweightString<char>("WidgetMoved"),
                                                Qor::Ptr<iObject>(new WrappedData<Glob*>(glob))),
                                      WidgetMoved);
}

Qor::Ptr<Qor::Guard>
GlobManager::addMouseListener(Qor::Ptr<iCallbackBase<int, NotifyMsg>> const& cb) {
    return mouseNotifier_.registerCallback(cb);
}

void GlobManager::tellMouseListeners(Event const& event) {
    if (mouseNotifier_.registrationCount() == 0)
        return;
    mouseNotifier_.issueNotification(NotifyMsg(LightweightString<char>("MouseEvent"),
                                               Qor::Ptr<iObject>(new WrappedData<Event>(event))),
                                     NotifyMsgTypeDictionary::AllMessages);
}

bool GlobManager::isLive(Glob const* glob) const {
    return glob != nullptr && live_.count(const_cast<Glob*>(glob)) != 0;
}

void GlobManager::realize(Glob* glob) {
    if (!isLive(glob) || !glob->isTopLevel())
        return;
    Canvas* canvas = glob->canvas();
    if (canvas->surface() == nullptr) {
        auto surface = std::make_unique<WindowSurface>(canvas->size());
        surface->setWindow(Glib::display().createWindow(canvas, glob->getWindowKind()));
        surface->window()->setBounds(canvas->rect());
        // A widget may have been made visible before it had a window to show.
        if (canvas->mapped)
            surface->window()->setMapped(true);
        canvas->setSurface(std::move(surface));
    }
    if (std::find(topLevels_.begin(), topLevels_.end(), glob) == topLevels_.end())
        topLevels_.push_back(glob);
    canvas->raise();
    glob->mapCanvas();
    glob->update();
}

void GlobManager::requestDeletion(Glob* glob) {
    if (!isLive(glob) || isDeletionRequested(glob))
        return;
    Tracked t;
    t.set(glob);
    deletions_.push_back(t);
}

bool GlobManager::isDeletionRequested(Glob* glob) const {
    return std::any_of(deletions_.begin(), deletions_.end(),
                       [&](Tracked const& t) { return t.get() == glob && glob != nullptr; });
}

int GlobManager::runDeletions() {
    int deleted = 0;
    for (int round = 0; round < maxDeletionRounds && !deletions_.empty(); ++round) {
        std::vector<Tracked> due;
        due.swap(deletions_);
        for (Tracked const& t : due)
            if (Glob* g = t.get()) {
                delete g;
                ++deleted;
            }
    }
    return deleted;
}

Glob* GlobManager::find(char const* name) const {
    if (name == nullptr)
        return nullptr;
    for (Glob* g = walk_all_root_globs(nullptr); g != nullptr; g = walk_all_root_globs(g))
        if (std::strcmp(g->idstring(), name) == 0)
            return g;
    return nullptr;
}

Glob* GlobManager::find(LightweightString<char> const& name) const {
    return find(name.c_str());
}

std::vector<Glob*> GlobManager::topLevels() const {
    std::vector<Glob*> out;
    Canvas* root = glib_rootcanvas();
    auto const& windows = root->children();
    for (auto it = windows.rbegin(); it != windows.rend(); ++it)
        if (Glob* g = canvas_to_glob(*it); g != nullptr && (*it)->mapped && (*it)->surface())
            out.push_back(g);
    return out;
}

Glob* GlobManager::widgetAt(XY<int> const& rootPos) const {
    Canvas* root = glib_rootcanvas();
    Canvas* hit = root->pick(rootPos);
    return hit == nullptr || hit == root ? nullptr : canvas_to_glob(hit);
}

void GlobManager::broadcastUIChange(unsigned mask) {
    std::vector<Glob*> roots;
    for (Glob* g = walk_all_root_globs(nullptr); g != nullptr; g = walk_all_root_globs(g))
        roots.push_back(g);
    // Each window repaints once, after the whole tree has read the change.
    for (Glob* g : roots)
        if (isLive(g)) {
            g->handleUIChange(mask);
            if (isLive(g))
                g->update();
        }
}

void GlobManager::forgetDisplayState() {
    for (Tracked* t : {&focus_, &grab_, &under_})
        t->set(nullptr);
    buttonsHeld_ = 0;
    clickCount_ = 0;
    lastCursor_ = -1;
}

// Modality and placement

void GlobManager::addModalGlob(Glob* popup, Glob* context) {
    if (!isLive(popup))
        return;
    Tracked t;
    t.set(context);
    modal_[popup] = t;
}

void GlobManager::removeModalGlob(Glob* popup) {
    modal_.erase(popup);
}

// A press on `target` keeps a pop-up open when the target lies in the pop-up, or in a pop-up
// whose chain of modal contexts leads to it (a sub-menu of a menu).
void GlobManager::closeModalPopupsOutside(Glob* target) {
    std::vector<Glob*> popups;
    for (auto const& [popup, context] : modal_)
        popups.push_back(popup);
    for (Glob* popup : popups) {
        if (!isLive(popup) || modal_.count(popup) == 0)
            continue;
        bool inside = false;
        for (Glob* g = target; g != nullptr && !inside;) {
            Glob* top = getRootParent(g);
            inside = top == popup;
            auto it = modal_.find(top);
            g = (!inside && it != modal_.end()) ? it->second.get() : nullptr;
        }
        if (!inside)
            callMessage(LightweightString<char>("poot"), popup, nullptr);
    }
}

XY<int> GlobManager::getSafePosForGlob(Canvas*, XY<int> const& wanted, XY<int> const& size) const {
    XY<int> screen = Glib::display().screenSize();
    return XY<int>(std::clamp(wanted.x, 0, std::max(0, screen.x - size.x)),
                   std::clamp(wanted.y, 0, std::max(0, screen.y - size.y)));
}

XY<int> GlobManager::calcPosForGlob(XY<int> const& size, SiblingRelativePosition const& where,
                                    Box const& screen) const {
    Box anchor = screen;
    if (is_good_glob_ptr(where.sibling)) {
        XY<int> origin = where.sibling->canvas()->rootPosition();
        Box part = where.subRect != nullptr ? *where.subRect : where.sibling->face();
        anchor = part.translated(origin.x, origin.y);
    }
    XY<int> at = placeBeside(anchor, size, where.relativity, where.alignment, where.gap);
    at.x = std::clamp(at.x, screen.x1, std::max(screen.x1, screen.x2 - size.x));
    return at;
}

XY<int> GlobManager::calcPosForGlob(XY<int> const& size, Box const& anchor,
                                    eWidgetAlignment alignment, eWidgetRelativity relativity,
                                    Glob*) const {
    XY<int> screen = Glib::display().screenSize();
    XY<int> at = placeBeside(anchor, size, relativity, alignment, 0);
    at.x = std::clamp(at.x, 0, std::max(0, screen.x - size.x));
    return at;
}

XY<int> GlobManager::getPosForGlob(GlobCreationInfo const& info,
                                   WidgetPosition const& position) const {
    XY<int> size(info.width, info.height);
    XY<int> screen = Glib::display().screenSize();
    Box whole(0, 0, screen.x, screen.y);
    XY<int> at;
    if (position.kind == WidgetPosition::Relative && is_good_glob_ptr(position.sibling)) {
        XY<int> origin = position.sibling->canvas()->rootPosition();
        at = placeBeside(position.sibling->face().translated(origin.x, origin.y), size,
                         position.relativity, position.alignment, position.gap);
    } else if (position.kind == WidgetPosition::ByOrigin) {
        bool fromRight = position.origin == OriginBottomRight || position.origin == OriginTopRight;
        bool fromTop = position.origin == OriginTopLeft || position.origin == OriginTopRight;
        at = XY<int>(fromRight ? screen.x - position.offset.x - size.x : position.offset.x,
                     fromTop ? screen.y - position.offset.y - size.y : position.offset.y);
    } else {
        at = XY<int>((screen.x - size.x) / 2 + position.offset.x,
                     (screen.y - size.y) / 2 + position.offset.y);
    }
    return getSafePosForGlob(glib_rootcanvas(), at, size);
}

Box GlobManager::getMaximisedPosForGlob(Glob*) const {
    XY<int> screen = Glib::display().screenSize();
    return Box(0, 0, screen.x, screen.y);
}

void GlobManager::redisplay(Glob* glob, XY<int> const& pos, eCoordinateOrigin origin, bool redraw) {
    if (!isLive(glob))
        return;
    XY<int> size(glob->width(), glob->height());
    bool fromRight = origin == OriginBottomRight || origin == OriginTopRight;
    bool fromTop = origin == OriginTopLeft || origin == OriginTopRight;
    XY<int> at(fromRight ? pos.x - size.x : pos.x, fromTop ? pos.y - size.y : pos.y);
    Box r = glob->canvas()->rect();
    glob->translateCanvas(at.x - r.x1, at.y - r.y1);
    if (redraw)
        glob->update();
}

void GlobManager::recordAction(unsigned int code, WidgetPosition const&) {
    actions_.push_back(code);
}

// Focus

Glob* GlobManager::getKbdFocus() const {
    return focus_.get();
}

void GlobManager::setKbdFocus(Glob* glob) {
    Glob* old = focus_.get();
    if (old == glob || (glob != nullptr && !isLive(glob)))
        return;
    focus_.set(glob);
    IdStamp newStamp = focus_.stamp;
    if (old != nullptr)
        old->handleKbdFocus();
    if (glob != nullptr && EventHandler::valid(glob, newStamp))
        glob->handleKbdFocus();
}

Glob* GlobManager::grabWidget() const {
    return grab_.get();
}

Glob* GlobManager::widgetUnderPointer() const {
    return under_.get();
}

// Delivery

int GlobManager::deliver(Glob* target, Event const& event, bool bubble) {
    Event e = event;
    while (target != nullptr) {
        IdStamp stamp = target->getIdStamp();
        unsigned long long removals = LiveObjects::removals();
        e.canvas = target->canvas();
        ++handlerDepth_;
        int used = target->handleEvent(e);
        --handlerDepth_;
        if (used || !bubble)
            return used;
        if (LiveObjects::removals() != removals && !EventHandler::valid(target, stamp))
            return used;
        Glob* up = target->parent();
        if (up == nullptr)
            return 0;
        XY<int> shift = target->getParentRelativePosition();
        e.pos = e.pos + shift;
        e.startPos = e.startPos + shift;
        target = up;
    }
    return 0;
}

bool GlobManager::intercepted(Event const& event) {
    return getEventInterceptStack(InterceptHigh).offer(event) ||
           getEventInterceptStack(InterceptNormal).offer(event);
}

void GlobManager::post(Event const& event) {
    IdStamp stamp = event.handler != nullptr ? event.handler->getIdStamp() : IdStamp::null();
    queue_.push_back(Queued{event, stamp});
    EventLoop::instance().post([] {});
}

int GlobManager::deliverQueued() {
    std::deque<Queued> due;
    due.swap(queue_);
    int delivered = 0;
    for (Queued& q : due) {
        EventHandler* handler = q.event.handler;
        if (handler == nullptr || !EventHandler::valid(handler, q.stamp))
            continue;
        if (auto* g = dynamic_cast<Glob*>(handler))
            deliver(g, q.event, mouse_event(q.event));
        else
            handler->handleEvent(q.event);
        ++delivered;
    }
    return delivered;
}

bool GlobManager::hasQueuedWork() const {
    return !queue_.empty() || std::any_of(deletions_.begin(), deletions_.end(),
                                          [](Tracked const& t) { return t.get() != nullptr; });
}

void GlobManager::dispatch(InputEvent const& input) {
    switch (input.kind) {
    case InputEvent::KeyDown:
    case InputEvent::KeyUp:
        dispatchKey(input);
        break;
    case InputEvent::PointerPress:
    case InputEvent::PointerRelease:
        dispatchButton(input);
        break;
    case InputEvent::PointerMove:
        dispatchMotion(input);
        break;
    case InputEvent::WheelTurn:
        dispatchWheel(input);
        break;
    case InputEvent::PointerLeft:
        if (Glob* old = under_.get())
            old->handleMouseContainment(false);
        under_.set(nullptr);
        break;
    default:
        dispatchWindowEvent(input);
        break;
    }
}

Event GlobManager::mouseEvent(Glob* target, int type, InputEvent const& input) const {
    Event e;
    e.type = type;
    e.canvas = target->canvas();
    e.rootPos = input.rootPos;
    XY<int> origin = target->canvas()->rootPosition();
    e.pos = input.rootPos - origin;
    e.startRootPos =
        buttonsHeld_ != 0 || (type & EventCode::ReleaseBit) ? pressRootPos_ : input.rootPos;
    e.startPos = e.startRootPos - origin;
    e.motion = e.rootPos - e.startRootPos;
    e.key = input.modifiers;
    e.time = input.time;
    e.buttons = buttonsHeld_;
    e.code = input.wheelSteps;
    e.clicks = clickCount_;
    return e;
}

int GlobManager::countClicks(InputEvent const& input) {
    bool again = input.button == lastClickButton_ && input.time - lastClickTime_ <= multiClickMs &&
                 std::abs(input.rootPos.x - lastClickPos_.x) <= multiClickDistance &&
                 std::abs(input.rootPos.y - lastClickPos_.y) <= multiClickDistance;
    clickCount_ = again ? std::min(clickCount_ + 1, 3) : 1;
    lastClickButton_ = input.button;
    lastClickTime_ = input.time;
    lastClickPos_ = input.rootPos;
    return clickCount_;
}

void GlobManager::updatePointer(XY<int> const& rootPos) {
    pointer_ = rootPos;
    if (!glib_mouseContextLogicEnabled())
        return;
    Glob* now = widgetAt(rootPos);
    Glob* old = under_.get();
    if (now != old) {
        under_.set(now);
        if (old != nullptr)
            old->handleMouseContainment(false);
        if (now != nullptr && isLive(now))
            now->handleMouseContainment(true);
    }
    now = under_.get();
    if (now == nullptr)
        return;
    int cursor = now->contextCursor(rootPos);
    WindowSurface* s = isLive(now) ? now->canvas()->surface() : nullptr;
    if (s != nullptr && s->window() != nullptr && cursor != lastCursor_) {
        s->window()->setCursor(cursor);
        lastCursor_ = cursor;
    }
}

void GlobManager::dispatchKey(InputEvent const& input) {
    Event e;
    e.type = input.kind == InputEvent::KeyDown ? EventCode::KeyPress : EventCode::KeyRelease;
    e.key = input.key;
    e.time = input.time;
    e.rootPos = pointer_;
    if (intercepted(e))
        return;
    Glob* target = focus_.get();
    if (target == nullptr)
        target = getRootParent(widgetAt(pointer_));
    if (target == nullptr)
        return;
    e.pos = pointer_ - target->canvas()->rootPosition();
    deliver(target, e, true);
}

void GlobManager::dispatchButton(InputEvent const& input) {
    bool press = input.kind == InputEvent::PointerPress;
    int type = EventCode::buttonCode(input.button, press);
    if (press) {
        updatePointer(input.rootPos);
        closeModalPopupsOutside(widgetAt(input.rootPos));
        Glob* target = widgetAt(input.rootPos);
        countClicks(input);
        pressRootPos_ = input.rootPos;
        buttonsHeld_ |= buttonBit(input.button);
        if (target == nullptr)
            return;
        grab_.set(target);
        Event e = mouseEvent(target, type, input);
        tellMouseListeners(e);
        if (!intercepted(e))
            deliver(target, e, true);
        return;
    }
    Glob* target = grab_.get();
    if (target == nullptr)
        target = widgetAt(input.rootPos);
    Event e = target != nullptr ? mouseEvent(target, type, input) : Event();
    buttonsHeld_ &= ~buttonBit(input.button);
    e.buttons = buttonsHeld_;
    if (buttonsHeld_ == 0)
        grab_.set(nullptr);
    if (target != nullptr)
        tellMouseListeners(e);
    if (target != nullptr && !intercepted(e))
        deliver(target, e, true);
    updatePointer(input.rootPos);
}

void GlobManager::dispatchMotion(InputEvent const& input) {
    updatePointer(input.rootPos);
    Glob* target = grab_.get();
    if (target == nullptr)
        target = under_.get();
    if (target == nullptr)
        return;
    Event e =
        mouseEvent(target, EventCode::MouseMove | (buttonsHeld_ & EventCode::ButtonBits), input);
    tellMouseListeners(e);
    if (!intercepted(e))
        deliver(target, e, true);
}

void GlobManager::dispatchWheel(InputEvent const& input) {
    updatePointer(input.rootPos);
    Glob* target = widgetAt(input.rootPos);
    if (target == nullptr || input.wheelSteps == 0)
        return;
    Event e = mouseEvent(target, EventCode::MouseWheel, input);
    tellMouseListeners(e);
    if (!intercepted(e))
        deliver(target, e, true);
}

void GlobManager::dispatchWindowEvent(InputEvent const& input) {
    Glob* glob = canvas_to_glob(input.window);
    if (glob == nullptr)
        return;
    if (input.kind == InputEvent::CloseRequest) {
        callMessage(LightweightString<char>("poot"), glob, nullptr);
        return;
    }
    if (input.kind != InputEvent::Configure)
        return;
    Box now = glob->canvas()->rect();
    if (input.bounds.width() != now.width() || input.bounds.height() != now.height()) {
        glob->resize(input.bounds.width(), input.bounds.height());
        glob->update();
    }
    if (glob->canvas()->rect().bottomLeft() != input.bounds.bottomLeft()) {
        glob->canvas()->move(input.bounds.bottomLeft());
        notifyMoved(glob);
    }
}

// Free functions

Glob* canvas_to_glob(Canvas* canvas) {
    CanvasClient* client = canvas != nullptr ? canvas->getClient() : nullptr;
    return client != nullptr ? client->asGlob() : nullptr;
}

Glob* getRootParent(Glob* glob) {
    while (glob != nullptr && glob->parent() != nullptr)
        glob = glob->parent();
    return glob;
}

bool isParentedTo(Glob const* glob, Glob const* ancestor) {
    for (Glob const* g = glob; g != nullptr; g = g->parent())
        if (g == ancestor)
            return true;
    return false;
}

bool is_good_glob_ptr(Glob* glob) {
    return GlobManager::instance().isLive(glob);
}

bool is_good_glob_ptr(Glob* glob, char const* idstring) {
    return is_good_glob_ptr(glob) && glob->isType(idstring);
}

Glob* walk_all_root_globs(Glob* last) {
    auto const& windows = glib_rootcanvas()->children();
    bool passed = last == nullptr;
    for (Canvas* c : windows) {
        Glob* g = canvas_to_glob(c);
        if (g == nullptr)
            continue;
        if (passed)
            return g;
        passed = g == last;
    }
    return nullptr;
}

double glob_pseudo_distance(Glob* a, Glob* b) {
    if (!is_good_glob_ptr(a) || !is_good_glob_ptr(b))
        return 1e9;
    auto box = [](Glob* g) {
        XY<int> p = g->canvas()->rootPosition();
        return Box(p.x, p.y, p.x + g->width(), p.y + g->height());
    };
    Box ba = box(a), bb = box(b);
    double dx = std::max(ba.x1 - bb.x2, bb.x1 - ba.x2);
    double dy = std::max(ba.y1 - bb.y2, bb.y1 - ba.y2);
    if (dx < 0 && dy < 0)
        return std::max(dx, dy);
    return std::hypot(std::max(dx, 0.0), std::max(dy, 0.0));
}

Glob* get_kbd_focus() {
    return GlobManager::instance().getKbdFocus();
}

void set_kbd_focus(Glob* glob) {
    GlobManager::instance().setKbdFocus(glob);
}

Glob* event_to_glob(Event const& event) {
    if (auto* g = dynamic_cast<Glob*>(event.handler))
        return g;
    return canvas_to_glob(event.canvas);
}

Glob* event_to_sender_glob(Event const& event) {
    return canvas_to_glob(event.senderCanvas);
}

void event_send(Event* event, bool post) {
    if (event == nullptr)
        return;
    if (post) {
        GlobManager::instance().post(*event);
        return;
    }
    if (event->handler != nullptr && dynamic_cast<Glob*>(event->handler) == nullptr) {
        event->handler->handleEvent(*event);
        return;
    }
    if (Glob* target = event_to_glob(*event))
        GlobManager::instance().deliver(target, *event, mouse_event(*event));
}

namespace {

Event messageEvent(LightweightString<char> const& name, EventHandler* target, Canvas* sender) {
    Event e;
    e.type = EventCode::Message;
    e.msg = name;
    e.handler = target;
    e.senderCanvas = sender;
    e.time = msecsNow();
    if (auto* g = dynamic_cast<Glob*>(target))
        e.canvas = g->canvas();
    return e;
}

Canvas* senderCanvasOf(Glob* sender) {
    return is_good_glob_ptr(sender) ? sender->canvas() : nullptr;
}

Canvas* senderCanvasOf(iObject* sender) {
    return senderCanvasOf(dynamic_cast<Glob*>(sender));
}

void postOrCall(Event const& e, bool post) {
    if (e.handler == nullptr)
        return;
    Event copy = e;
    event_send(&copy, post);
}

int call(Event const& e) {
    if (e.handler == nullptr)
        return 0;
    if (auto* g = dynamic_cast<Glob*>(e.handler))
        return GlobManager::instance().deliver(g, e, false);
    return e.handler->handleEvent(e);
}

} // namespace

void sendMessage(LightweightString<char> const& name, EventHandler* target, Canvas* sender,
                 bool post) {
    postOrCall(messageEvent(name, target, sender), post);
}

void sendMessage(LightweightString<char> const& name, EventHandler* target, Glob* sender,
                 bool post) {
    postOrCall(messageEvent(name, target, senderCanvasOf(sender)), post);
}

void sendMessage(LightweightString<char> const& name, EventHandler* target, iObject* sender,
                 bool post) {
    postOrCall(messageEvent(name, target, senderCanvasOf(sender)), post);
}

void sendMessage(LightweightString<char> const& name, EventHandler* target, std::nullptr_t,
                 bool post) {
    postOrCall(messageEvent(name, target, nullptr), post);
}

int callMessage(LightweightString<char> const& name, EventHandler* target, Canvas* sender) {
    return call(messageEvent(name, target, sender));
}

int callMessage(LightweightString<char> const& name, EventHandler* target, Glob* sender) {
    return call(messageEvent(name, target, senderCanvasOf(sender)));
}

int callMessage(LightweightString<char> const& name, EventHandler* target, iObject* sender) {
    return call(messageEvent(name, target, senderCanvasOf(sender)));
}

int callMessage(LightweightString<char> const& name, EventHandler* target, std::nullptr_t) {
    return call(messageEvent(name, target, nullptr));
}

void sendMessageWithData(LightweightString<char> const& name, EventHandler* target,
                         Qor::Ptr<iObject> const& data, Glob* sender) {
    Event e = messageEvent(name, target, senderCanvasOf(sender));
    e.data = data;
    postOrCall(e, true);
}

int callMessageWithData(LightweightString<char> const& name, EventHandler* target,
                        Qor::Ptr<iObject> const& data, Glob* sender) {
    Event e = messageEvent(name, target, senderCanvasOf(sender));
    e.data = data;
    return call(e);
}

namespace Glib {
Qor::Ptr<Qor::Guard> addMouseListener(Qor::Ptr<iCallbackBase<int, NotifyMsg>> const& listener) {
    return GlobManager::instance().addMouseListener(listener);
}
} // namespace Glib
