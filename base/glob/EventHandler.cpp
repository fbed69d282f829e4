#include "glob/EventHandler.h"

#include "glob/EventLoop.h"

#include <algorithm>

EventHandler::EventHandler() {
    LiveObjects::add(this, stamp_);
}

namespace {

// Tickers and filter stacks belong to the user-interface thread. A handler released on another
// thread (a UIThreadCallback dropped by a worker) leaves its entries there, to be swept on that
// thread; having left the live registry first, it is never served meanwhile.
void sweepDeadHandlers() {
    EventLoop::instance().forgetDead();
    getEventInterceptStack(InterceptNormal).removeDead();
    getEventInterceptStack(InterceptHigh).removeDead();
}

} // namespace

EventHandler::~EventHandler() {
    LiveObjects::remove(this);
    EventLoop& loop = EventLoop::instance();
    if (!loop.isUIThread()) {
        loop.post(&sweepDeadHandlers);
        return;
    }
    loop.forget(this);
    getEventInterceptStack(InterceptNormal).remove(this);
    getEventInterceptStack(InterceptHigh).remove(this);
}

int EventHandler::fsFilterThis(Event const&, void*) {
    return 0;
}

bool EventHandler::intercept(Event const&) {
    return false;
}

bool EventHandler::valid(EventHandler* handler, IdStamp const& stamp) {
    return handler != nullptr && LiveObjects::isLive(handler, stamp);
}

IdStamp FilterStack::push(EventHandler* handler, int mask) {
    if (handler == nullptr)
        return IdStamp::null();
    Entry entry{handler, handler->getIdStamp(), mask, IdStamp()};
    entries_.push_back(entry);
    return entry.entry;
}

bool FilterStack::pop(IdStamp const& entry) {
    auto it = std::find_if(entries_.begin(), entries_.end(),
                           [&](Entry const& e) { return e.entry == entry; });
    if (it == entries_.end())
        return false;
    entries_.erase(it);
    return true;
}

void FilterStack::remove(EventHandler* handler) {
    entries_.erase(std::remove_if(entries_.begin(), entries_.end(),
                                  [&](Entry const& e) { return e.handler == handler; }),
                   entries_.end());
}

void FilterStack::removeDead() {
    entries_.erase(std::remove_if(entries_.begin(), entries_.end(),
                                  [](Entry const& e) {
                                      return !EventHandler::valid(e.handler, e.handlerStamp);
                                  }),
                   entries_.end());
}

bool FilterStack::offer(Event const& event) {
    // A copy: an interceptor may push, pop or die while the event goes down the stack.
    std::vector<Entry> entries = entries_;
    for (auto it = entries.rbegin(); it != entries.rend(); ++it) {
        if (!EventCode::maskSelects(it->mask, event.type))
            continue;
        if (!EventHandler::valid(it->handler, it->handlerStamp))
            continue;
        bool stillStacked = std::any_of(entries_.begin(), entries_.end(),
                                        [&](Entry const& e) { return e.entry == it->entry; });
        if (stillStacked && it->handler->intercept(event))
            return true;
    }
    return false;
}

FilterStack& getEventInterceptStack(EventInterceptStackPriority priority) {
    static FilterStack* const stacks = new FilterStack[2];
    return stacks[priority == InterceptHigh ? 1 : 0];
}

EventTimeServer& EventTimeServer::theEventTimeServer() {
    static EventTimeServer server;
    return server;
}

void EventTimeServer::registerForTimeEvents(EventHandler* handler) {
    EventLoop::instance().addTicker(handler, EventCode::TimeServer, periodMs);
}

void EventTimeServer::unregisterForTimeEvents(EventHandler* handler) {
    EventLoop::instance().removeTicker(handler, EventCode::TimeServer);
}
