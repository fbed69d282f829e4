#pragma once

// Lets one object watch several value servers: each ValObserver<T> passes its server's
// notifications on to the shared ValObserverClient, naming itself, so the client can tell the
// servers apart.

#include "foundation/ValClient.h"

class ValObserverBase;

class ValObserverClient {
public:
    virtual ~ValObserverClient() = default;

    virtual void notifyValChanged(ValObserverBase const& observer) = 0;
    virtual void notifyPreValChanged(ValObserverBase const& /*observer*/) {}
};

class ValObserverBase {
public:
    explicit ValObserverBase(ValObserverClient* client = nullptr) : client_(client) {}
    virtual ~ValObserverBase() = default;

    void setObserverClient(ValObserverClient* client) { client_ = client; }
    ValObserverClient* getObserverClient() const { return client_; }

protected:
    ValObserverClient* client_;
};

template <class T>
class ValObserver : private ValClient<T>, public ValObserverBase {
public:
    explicit ValObserver(ValObserverClient* client = nullptr) : ValObserverBase(client) {}

    using ValClient<T>::registerWith;
    using ValClient<T>::getServerValue;
    using ValClient<T>::getValServer;
    using ValClient<T>::setServerValue;
    using EnableDisable::disable;
    using EnableDisable::enable;

private:
    void valChangedNtfy() override {
        if (client_ != nullptr)
            client_->notifyValChanged(*this);
    }
    void valPreChangedNtfy() override {
        if (client_ != nullptr)
            client_->notifyPreValChanged(*this);
    }
};
