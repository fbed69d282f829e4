#pragma once

// A value of type T that tells its registered clients when it changes. An optional manager may
// refuse a requested value or correct it before it is stored. Clients register with
// ValClient<T>::registerWith; each hears every change once, in order of registration.

#include "foundation/LastValServer.h"
#include "foundation/ValManagerBase.h"
#include "foundation/ValServerBase.h"
#include "qor/Notifier.h"

template <class T>
class ValServer : public NotifierEx<T>, public ValServerBase, private LastValServer {
public:
    explicit ValServer(T const& value = T{}) : LastValServer(this), value_(value) {}
    ~ValServer() override {
        if (manager_ != nullptr)
            manager_->releaseServer(this);
    }

    // Both assignments go through updateAndNotify, so the manager has its say.
    virtual ValServer& operator=(T const& value) {
        updateAndNotify(value);
        return *this;
    }
    virtual ValServer& operator=(ValServer<T> const& other) {
        if (&other != this)
            updateAndNotify(other.value_);
        return *this;
    }
    virtual bool operator==(ValServer<T> const& other) const { return value_ == other.value_; }
    using DLListRec::operator==;

    void notifyValChanged() override { notify(valChangedMsgType_); }
    void preNotifyValChanged() override { notify(preValChangedMsgType_); }

    // Stores the value, unless the manager refuses it, and tells the clients; an equal value is
    // announced all the same. Answers whether the value was taken.
    virtual bool updateAndNotify(T const& value) {
        T requested = value;
        if (manager_ != nullptr && !manager_->requestValChange(this, requested))
            return false;
        value_ = requested;
        notifyValChanged();
        return true;
    }

    T const& getValue() const { return value_; }
    void setValManager(ValManagerBase<T>* manager) { manager_ = manager; }
    ValManagerBase<T>* getValManager() const { return manager_; }

private:
    void notify(int type) {
        if (this->registrationCount() == 0)
            return;
        this->issueNotification(NotifierEvent<T>(value_), type);
    }

    T value_;
    ValManagerBase<T>* manager_ = nullptr;
};
