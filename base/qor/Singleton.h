#pragma once

// The pattern for process-wide singletons: created with new on first use, deletable at exit (or
// earlier, by GracefulDelete), and safe to reach from any thread. A class T becomes one with
//
//     using TheT = Qor::Singleton<T>;   // TheT::Instance()
//
// and, so that one shared library owns the instance, T's own static instance() calls
// TheT::Instance() from a .cpp file.

#include <loki/Singleton.h>

namespace Qor {

template <class T>
using Singleton = Loki::SingletonHolder<T, Loki::CreateUsingNew, Loki::DeletableSingleton,
                                        Loki::ClassLevelLockable>;

} // namespace Qor
