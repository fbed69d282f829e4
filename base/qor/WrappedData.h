#pragma once

// A value carried as the iObject data of a message or event. A receiver that only needs to know
// that a payload is wrapped data casts to WrappedDataBase; one that wants the value casts to
// WrappedData<T> for the T it expects.

#include "qor/Ptr.h"

#include <utility>

class WrappedDataBase : public iObject {};

template <class T>
class WrappedData : public WrappedDataBase {
public:
    WrappedData() = default;
    explicit WrappedData(T value) : value_(std::move(value)) {}

    T const& getData() const { return value_; }
    T& getData() { return value_; }
    void setData(T value) { value_ = std::move(value); }

private:
    T value_{};
};

// The name under which records travel as the data of message events; the same type, so either
// name's cast finds it.
template <class T>
using EventMsgData = WrappedData<T>;
