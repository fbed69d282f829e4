#pragma once

// A recursive lock usable from any thread: a notifier holds one while its callbacks run, and a
// callback may re-enter the same notifier on the same thread.

#include <mutex>

class CriticalSection {
public:
    void enter() { mutex_.lock(); }
    void leave() { mutex_.unlock(); }
    bool tryEnter() { return mutex_.try_lock(); }

    // Holds the section for a scope.
    class Lock {
    public:
        explicit Lock(CriticalSection& section) : section_(section) { section_.enter(); }
        ~Lock() { section_.leave(); }
        Lock(Lock const&) = delete;
        Lock& operator=(Lock const&) = delete;

    private:
        CriticalSection& section_;
    };

private:
    std::recursive_mutex mutex_;
};
