#pragma once

// The one event loop of the process, on the user-interface thread: it waits on the display's
// connection, on a wake-up descriptor that other threads signal, and on the next timer; then it
// delivers display events, runs work posted from other threads, fires due timers, deletes widgets
// whose deletion was requested, and shows what was drawn.

class EventHandler;

#include <functional>
#include <memory>

class EventLoop {
public:
    static EventLoop& instance();

    // Runs `work` on the user-interface thread at the loop's next turn and wakes the loop.
    // Callable from any thread.
    void post(std::function<void()> work);
    // The user-interface thread is the one that first reached the loop.
    bool isUIThread() const;

    // Turns until quit() is called.
    void run();
    void quit();
    bool quitRequested() const;
    // Waits up to `timeoutMs` (or until the next timer, if sooner) for something to do, then does
    // one turn. A negative timeout waits for as long as nothing happens.
    void runOnce(double timeoutMs);
    // One turn without waiting.
    void processPending();
    // The time (msecsNow) at which the next timer falls due, or a negative value for none.
    double nextTimerDue() const;

    // Timers follow msecsNow(); a test driver that moves a virtual clock calls this to fire what
    // has fallen due.
    void fireDueTimers();

    // Periodic events of the code to the handler, every period; a handler that dies is dropped.
    void addTicker(EventHandler* handler, int code, double periodMs);
    void removeTicker(EventHandler* handler, int code);
    bool hasTicker(EventHandler* handler, int code) const;
    // Drops every ticker of a handler that is going away.
    void forget(EventHandler* handler);
    // Drops the tickers of every handler that no longer exists.
    void forgetDead();

    ~EventLoop();

private:
    EventLoop();
    struct State;
    std::unique_ptr<State> state_;
};
