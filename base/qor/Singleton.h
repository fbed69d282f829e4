#pragma once

// The pattern for process-wide singletons: created with new on first use, deletable at exit (or
// earlier, by GracefulDelete), and safe to reach from any thread. A class T becomes one with
//
//     using TheT = Qor::Singleton<T>;   // TheT::Instance()
//
// and, so that one shared library owns the instance, T's own static instance() calls
// TheT::Instance() from a .cpp file.

#include <loki/Singleton.h>

#include <mutex>

namespace Qor {

// Class-level locking for the creation of a singleton. The mutex is a function-local static, so it
// exists before first use even when another library's static initialiser asks for the singleton.
template <class Host, class MutexPolicy>
class SingletonLocking {
public:
    class Lock {
    public:
        Lock() : hold_(mutex()) {}
        explicit Lock(Host const&) : Lock() {}

    private:
        std::lock_guard<std::recursive_mutex> hold_;
    };
    using VolatileType = volatile Host;

private:
    static std::recursive_mutex& mutex() {
        static std::recursive_mutex m;
        return m;
    }
};

template <class T>
using Singleton =
    Loki::SingletonHolder<T, Loki::CreateUsingNew, Loki::DeletableSingleton, SingletonLocking>;

} // namespace Qor
