#include "glob/EventLoop.h"

#include "glib/Display.h"
#include "glib/WindowSurface.h"
#include "glob/EventHandler.h"
#include "glob/GlobManager.h"
#include "os/Clock.h"
#include "os/Diagnostics.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <deque>
#include <mutex>
#include <poll.h>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

struct Ticker {
    EventHandler* handler;
    IdStamp stamp;
    int code;
    double period;
    double due;
};

// Turns that deliver work keep going while work arrives, but never forever: work that keeps
// posting more work waits for the next turn.
constexpr int maxRoundsPerTurn = 16;

} // namespace

struct EventLoop::State {
    std::thread::id uiThread = std::this_thread::get_id();
    std::mutex postLock;
    std::deque<std::function<void()>> posted;
    int wakeFd = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    bool quit = false;
    std::vector<Ticker> tickers;
    std::vector<InputEvent> input;

    ~State() {
        if (wakeFd >= 0)
            ::close(wakeFd);
    }
};

EventLoop& EventLoop::instance() {
    static EventLoop* const loop = new EventLoop;
    return *loop;
}

EventLoop::EventLoop() : state_(std::make_unique<State>()) {
    if (state_->wakeFd < 0)
        diag_printf("EventLoop: no wake-up descriptor (errno %d); posted work waits for events",
                    errno);
}

EventLoop::~EventLoop() = default;

void EventLoop::post(std::function<void()> work) {
    {
        std::lock_guard<std::mutex> hold(state_->postLock);
        state_->posted.push_back(std::move(work));
    }
    if (state_->wakeFd >= 0) {
        uint64_t one = 1;
        [[maybe_unused]] ssize_t n = ::write(state_->wakeFd, &one, sizeof one);
    }
}

bool EventLoop::isUIThread() const {
    return std::this_thread::get_id() == state_->uiThread;
}

void EventLoop::run() {
    state_->quit = false;
    while (!state_->quit)
        runOnce(-1);
}

void EventLoop::quit() {
    state_->quit = true;
    post([] {});
}

bool EventLoop::quitRequested() const {
    return state_->quit;
}

void EventLoop::runOnce(double timeoutMs) {
    double due = nextTimerDue();
    double wait = timeoutMs;
    if (due >= 0) {
        double untilDue = std::max(0.0, due - msecsNow());
        wait = wait < 0 ? untilDue : std::min(wait, untilDue);
    }
    pollfd fds[2];
    int count = 0;
    if (state_->wakeFd >= 0)
        fds[count++] = {state_->wakeFd, POLLIN, 0};
    if (Glib::hasDisplay() && Glib::display().eventFd() >= 0)
        fds[count++] = {Glib::display().eventFd(), POLLIN, 0};
    // Xlib may already hold events it read while doing other work; the descriptor won't show them.
    bool pendingWork = GlobManager::instance().hasQueuedWork() ||
                       (Glib::hasDisplay() && Glib::display().eventsWaiting());
    {
        std::lock_guard<std::mutex> hold(state_->postLock);
        pendingWork = pendingWork || !state_->posted.empty();
    }
    int timeout = pendingWork ? 0 : (wait < 0 ? -1 : int(std::ceil(wait)));
    if (count > 0 || timeout != 0)
        ::poll(fds, nfds_t(count), timeout);
    processPending();
}

void EventLoop::processPending() {
    if (state_->wakeFd >= 0) {
        uint64_t drained;
        [[maybe_unused]] ssize_t n = ::read(state_->wakeFd, &drained, sizeof drained);
    }
    GlobManager& manager = GlobManager::instance();
    for (int round = 0; round < maxRoundsPerTurn; ++round) {
        bool did = false;
        if (Glib::hasDisplay()) {
            state_->input.clear();
            Glib::display().readEvents(state_->input);
            for (InputEvent const& e : state_->input)
                manager.dispatch(e);
            did = !state_->input.empty();
        }
        std::deque<std::function<void()>> work;
        {
            std::lock_guard<std::mutex> hold(state_->postLock);
            work.swap(state_->posted);
        }
        for (auto& w : work)
            w();
        did = did || !work.empty();
        did = manager.deliverQueued() > 0 || did;
        fireDueTimers();
        did = manager.runDeletions() > 0 || did;
        if (!did)
            break;
    }
    flushAllWindowSurfaces();
    if (Glib::hasDisplay())
        Glib::display().flush();
}

double EventLoop::nextTimerDue() const {
    double due = -1;
    for (Ticker const& t : state_->tickers)
        if (due < 0 || t.due < due)
            due = t.due;
    return due;
}

void EventLoop::fireDueTimers() {
    double now = msecsNow();
    // Copies: a handler may add or remove tickers, or die, while the others are served.
    std::vector<Ticker> due;
    for (Ticker& t : state_->tickers) {
        if (t.due > now)
            continue;
        due.push_back(t);
        // A handler that fell far behind gets one tick, not a burst.
        t.due = (now - t.due >= t.period) ? now + t.period : t.due + t.period;
    }
    auto& tickers = state_->tickers;
    for (Ticker const& t : due) {
        if (!EventHandler::valid(t.handler, t.stamp)) {
            tickers.erase(std::remove_if(tickers.begin(), tickers.end(),
                                         [&](Ticker const& x) { return x.handler == t.handler; }),
                          tickers.end());
            continue;
        }
        if (!hasTicker(t.handler, t.code))
            continue;
        Event event;
        event.type = t.code;
        event.handler = t.handler;
        event.time = now;
        t.handler->handleEvent(event);
    }
}

void EventLoop::addTicker(EventHandler* handler, int code, double periodMs) {
    if (handler == nullptr || hasTicker(handler, code))
        return;
    state_->tickers.push_back(
        {handler, handler->getIdStamp(), code, periodMs, msecsNow() + periodMs});
}

void EventLoop::removeTicker(EventHandler* handler, int code) {
    auto& tickers = state_->tickers;
    tickers.erase(
        std::remove_if(tickers.begin(), tickers.end(),
                       [&](Ticker const& t) { return t.handler == handler && t.code == code; }),
        tickers.end());
}

bool EventLoop::hasTicker(EventHandler* handler, int code) const {
    // By stamp too: a dead handler's ticker, not yet swept, may share a new one's address.
    return std::any_of(state_->tickers.begin(), state_->tickers.end(), [&](Ticker const& t) {
        return t.handler == handler && t.stamp == handler->getIdStamp() && t.code == code;
    });
}

void EventLoop::forget(EventHandler* handler) {
    auto& tickers = state_->tickers;
    tickers.erase(std::remove_if(tickers.begin(), tickers.end(),
                                 [&](Ticker const& t) { return t.handler == handler; }),
                  tickers.end());
}

void EventLoop::forgetDead() {
    auto& tickers = state_->tickers;
    tickers.erase(
        std::remove_if(tickers.begin(), tickers.end(),
                       [](Ticker const& t) { return !EventHandler::valid(t.handler, t.stamp); }),
        tickers.end());
}
