#pragma once

// Reference-counted function objects: the interface that notifiers, widgets and the base layer's
// listeners call, and the two ways of making one, from a member function or from any callable.

#include "qor/Ptr.h"

#include <functional>
#include <utility>

template <class R, class Msg>
class iCallbackBase : public virtual iObject {
public:
    virtual R execute(Msg const& msg) = 0;
};

// Calls a member function on a target. It holds no reference on the target: whoever makes one sees
// that it dies first (a registration guard or the target's own fields do).
template <class T, class Msg, class R = int>
class MethodCallback : public iCallbackBase<R, Msg> {
public:
    using Method = R (T::*)(Msg const&);

    MethodCallback(T* target, Method method) : target_(target), method_(method) {}

    R execute(Msg const& msg) override { return (target_->*method_)(msg); }

private:
    T* target_;
    Method method_;
};

// Calls a stored callable; what it captures lives as long as the callback.
template <class Msg, class R = int>
class FunctionCallback : public iCallbackBase<R, Msg> {
public:
    explicit FunctionCallback(std::function<R(Msg const&)> fn) : fn_(std::move(fn)) {}

    R execute(Msg const& msg) override { return fn_(msg); }

private:
    std::function<R(Msg const&)> fn_;
};

namespace Qor {

template <class T, class Msg, class R>
Ptr<iCallbackBase<R, Msg>> makeCallback(T* target, R (T::*method)(Msg const&)) {
    return Ptr<iCallbackBase<R, Msg>>(new MethodCallback<T, Msg, R>(target, method));
}

template <class Msg, class R = int, class F>
Ptr<iCallbackBase<R, Msg>> makeCallback(F&& fn) {
    return Ptr<iCallbackBase<R, Msg>>(new FunctionCallback<Msg, R>(std::forward<F>(fn)));
}

} // namespace Qor
