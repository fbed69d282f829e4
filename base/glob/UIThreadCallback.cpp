#include "glob/UIThreadCallback.h"

#include "glob/EventLoop.h"
#include "os/CriticalSection.h"

// Shared by the callback and its posted work. The lock is recursive because work may release the
// callback it belongs to.
struct UIThreadCallbackBase::Link {
    CriticalSection section;
    bool attached = true;
};

UIThreadCallbackBase::UIThreadCallbackBase(bool runAtOnceOnUIThread)
    : link_(std::make_shared<Link>()), runAtOnce_(runAtOnceOnUIThread) {}

bool UIThreadCallbackBase::runsAtOnce() const {
    return runAtOnce_ && EventLoop::instance().isUIThread();
}

void UIThreadCallbackBase::postUnlessDetached(std::function<void()> work) {
    EventLoop::instance().post([link = link_, work = std::move(work)] {
        CriticalSection::Lock lock(link->section);
        if (link->attached)
            work();
    });
}

void UIThreadCallbackBase::detach() {
    CriticalSection::Lock lock(link_->section);
    link_->attached = false;
}

template class UIThreadCallback<NotifyMsg>;
