#pragma once

// A callback that moves its work to the user-interface thread. execute() may be called on any
// thread: it posts the message to the event loop, where executeInternal() runs it (by default by
// calling the wrapped callback), and answers 0. Constructed with runAtOnceOnUIThread true, a call
// that is already on the user-interface thread runs at once and answers executeInternal's result.
//
// Posted work that finds its UIThreadCallback gone is dropped: once the last reference is released,
// the wrapped callback is never called again, so a target that dies together with its callback is
// safe. A release on another thread while the work runs waits for the work to finish. A subclass
// whose executeInternal reads its own fields calls stopWork() first in its destructor, since those
// fields die before this class's destructor runs.
//
// It is also an EventHandler, so that holders can tell by its IdStamp whether it still exists; it
// takes no events itself. It may be released on any thread.

#include "glob/EventHandler.h"
#include "qor/Callback.h"
#include "qor/NotifyMsg.h"

#include <functional>
#include <memory>

class UIThreadCallbackBase {
public:
    UIThreadCallbackBase(UIThreadCallbackBase const&) = delete;
    UIThreadCallbackBase& operator=(UIThreadCallbackBase const&) = delete;

protected:
    explicit UIThreadCallbackBase(bool runAtOnceOnUIThread);
    ~UIThreadCallbackBase() = default;

    // On the user-interface thread, and asked to run there at once.
    bool runsAtOnce() const;
    // Runs `work` on the user-interface thread unless detach() came first.
    void postUnlessDetached(std::function<void()> work);
    // Drops work posted and not yet run; work running on another thread is waited for.
    void detach();

private:
    struct Link;
    std::shared_ptr<Link> link_;
    bool runAtOnce_;
};

template <class Msg>
class UIThreadCallback : public iCallbackBase<int, Msg>,
                         public EventHandler,
                         private UIThreadCallbackBase {
public:
    UIThreadCallback(Qor::Ptr<iCallbackBase<int, Msg>> const& callback, bool runAtOnceOnUIThread)
        : UIThreadCallbackBase(runAtOnceOnUIThread), callback_(callback) {}
    ~UIThreadCallback() override { detach(); }

    int execute(Msg const& msg) override {
        if (runsAtOnce())
            return executeInternal(msg);
        postUnlessDetached([this, msg] { executeInternal(msg); });
        return 0;
    }

    int handleEvent(Event const&) override { return 0; }

protected:
    virtual int executeInternal(Msg const& msg) {
        // A copy, in case the callback releases this object while it runs.
        Qor::Ptr<iCallbackBase<int, Msg>> callback = callback_;
        return callback ? callback->execute(msg) : 0;
    }

    Qor::Ptr<iCallbackBase<int, Msg>> const& getCallback() const { return callback_; }
    // Drops posted work and waits for work running on another thread; callable more than once.
    void stopWork() { detach(); }

private:
    Qor::Ptr<iCallbackBase<int, Msg>> callback_;
};

extern template class UIThreadCallback<NotifyMsg>;
