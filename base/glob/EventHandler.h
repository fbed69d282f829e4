#pragma once

// Anything that receives events. Every handler has an IdStamp and is in the registry of live
// objects from construction to destruction, so that a holder that kept the pointer and the stamp
// can ask valid() without touching a dead object.

#include "glob/Event.h"
#include "qor/IdStamp.h"

#include <vector>

class EventHandler {
public:
    EventHandler();
    virtual ~EventHandler();
    EventHandler(EventHandler const&) = delete;
    EventHandler& operator=(EventHandler const&) = delete;

    // Filter hook: answers non-zero to keep the event from this handler.
    virtual int fsFilterThis(Event const& event, void* context);
    // Entry of every event; answers 1 when the event was used up.
    virtual int handleEvent(Event const& event) = 0;
    // Sees the events of the intercept stack first; true swallows the event.
    virtual bool intercept(Event const& event);

    IdStamp const& getIdStamp() const { return stamp_; }

    // The object stamped so still exists. Never touches the object.
    static bool valid(EventHandler* handler, IdStamp const& stamp);

private:
    IdStamp stamp_;
};

// Handlers that see events before normal delivery, topmost first. A handler whose mask selects an
// event gets intercept(event); the first that answers true swallows it.
class FilterStack {
public:
    // Pushes on top; the stamp identifies this entry for pop().
    IdStamp push(EventHandler* handler, int mask);
    // Removes that entry wherever it stands; false when it isn't there.
    bool pop(IdStamp const& entry);
    // Removes every entry of the handler.
    void remove(EventHandler* handler);
    // Removes the entries of handlers that no longer exist.
    void removeDead();
    // Offers the event down the stack; true when a handler swallowed it.
    bool offer(Event const& event);
    bool isEmpty() const { return entries_.empty(); }
    unsigned size() const { return unsigned(entries_.size()); }

private:
    struct Entry {
        EventHandler* handler;
        IdStamp handlerStamp;
        int mask;
        IdStamp entry;
    };
    std::vector<Entry> entries_;
};

enum EventInterceptStackPriority { InterceptNormal = 0, InterceptHigh = 1 };

// The stacks are offered high priority first.
FilterStack& getEventInterceptStack(EventInterceptStackPriority priority = InterceptNormal);

// The base of an object that can stand on a filter stack.
template <class E>
class FilterStackable : public EventHandler {
public:
    int handleEvent(E const&) override { return 0; }
};

// Periodic time events (code 4097) to registered handlers, on the user-interface thread, every
// 50 ms. Handlers that die are dropped.
class EventTimeServer {
public:
    static EventTimeServer& theEventTimeServer();
    void registerForTimeEvents(EventHandler* handler);
    void unregisterForTimeEvents(EventHandler* handler);
    static constexpr double periodMs = 50.0;
};
