#pragma once

// One who is bound to a ValServer<T> and told when its value changes. While disabled it hears
// nothing, but it still lets go of a server that dies, so it never holds a stale pointer.

#include "foundation/EnableDisable.h"
#include "foundation/ValServer.h"

template <class T>
class ValClient : public EnableDisable {
public:
    ValClient() = default;
    ValClient(ValClient const&) = delete;
    ValClient& operator=(ValClient const&) = delete;

    // Binds to the server, ending any earlier binding; null just ends it.
    virtual void registerWith(ValServer<T>* server) {
        if (server == server_)
            return;
        server_ = server;
        if (server == nullptr) {
            guard_ = Qor::Ptr<Qor::Guard>();
            return;
        }
        auto* invoker = new CallbackInvoker<NotifierEvent<T>>(
            NotifyMsgTypeDictionary::instance().allMessagesType(),
            Qor::makeCallback(this, &ValClient<T>::handleValueChange));
        guard_ = server->registerInternal(invoker);
    }
    virtual void valChangedNtfy() = 0;
    virtual void valPreChangedNtfy() {}

    // The server's value, or the zero value without a server.
    operator T() const { return getServerValue(); }
    T getServerValue() const { return server_ != nullptr ? server_->getValue() : T{}; }
    ValServer<T>* getValServer() const { return server_; }

    // Answers with what the server then holds, which a manager may have changed; without a server,
    // with the given value.
    T operator=(T const& value) { return setServerValue(value); }
    T setServerValue(T const& value) {
        if (server_ == nullptr)
            return value;
        ValServer<T>* server = server_;
        *server = value;
        return server->getValue();
    }

    int handleValueChange(NotifierEvent<T> const& event) {
        if (event.type == ValServerBase::valChangedMsgType_) {
            if (disableCount_ < 1)
                valChangedNtfy();
        } else if (event.type == ValServerBase::preValChangedMsgType_) {
            if (disableCount_ < 1)
                valPreChangedNtfy();
        } else if (event.type == NotifyMsgTypeDictionary::instance().notifierEndType()) {
            server_ = nullptr;
            guard_ = Qor::Ptr<Qor::Guard>();
        }
        return 0;
    }

private:
    Qor::Ptr<Qor::Guard> guard_;
    ValServer<T>* server_ = nullptr;
};
