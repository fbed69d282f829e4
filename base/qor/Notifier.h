#pragma once

// Notifiers: a list of registered callbacks, each with the message type it wants, called in turn
// on the issuing thread when something happens. A registration lasts as long as the guard that
// registering returns. The list is walked under the notifier's recursive lock, and a callback may
// register, drop any guard, issue again on the same notifier or destroy it; when a notifier dies it
// tells the registrants of the end type (and those of every type) and their guards go inert.

#include "misc/DLList.h"
#include "qor/Callback.h"
#include "qor/Guard.h"
#include "qor/NotifyMsg.h"
#include "qor/NotifyMsgTypeDictionary.h"

#include <atomic>

// One record of a notifier's list: the message type that the registrant wants.
class CallbackInvokerBase : public DLListRec {
public:
    explicit CallbackInvokerBase(int type) : type_(type) {}

    int getType() const { return type_; }
    // The record wants messages of its own type, or every message.
    bool typeMatch(int type) const {
        return type_ == type || type_ == NotifyMsgTypeDictionary::AllMessages;
    }

private:
    friend class NotifierBase;
    int type_;
    // Order of registration; a walk passes over the records that came after it began.
    unsigned long long serial_ = 0;
};

template <class Msg>
class CallbackInvoker : public CallbackInvokerBase {
public:
    CallbackInvoker(int type, Qor::Ptr<iCallbackBase<int, Msg>> const& callback)
        : CallbackInvokerBase(type), callback_(callback) {}

    Qor::Ptr<iCallbackBase<int, Msg>> const& getCallback() const { return callback_; }

private:
    Qor::Ptr<iCallbackBase<int, Msg>> callback_;
};

class NotifierBase {
public:
    NotifierBase();
    NotifierBase(NotifierBase const&) = delete;
    NotifierBase& operator=(NotifierBase const&) = delete;
    // Ends every registration; guards still held become inert.
    virtual ~NotifierBase();

    // Takes ownership of the record and appends it; it stays until the last reference to the
    // returned guard goes, or the notifier dies. A null record, or one already in a list, is left
    // alone and gives a null guard.
    Qor::Ptr<Qor::Guard> registerInternal(CallbackInvokerBase* record);
    unsigned registrationCount() const;

protected:
    using Visitor = void (*)(DLListRec*, void*);

    // Holding the lock, calls visit(record, arg) for each record whose type matches, in order of
    // registration. Records registered during the walk first hear the next one.
    void walk(int type, Visitor visit, void* arg) const;

private:
    struct Registry;
    class Registration;
    struct Walk;

    static void visitMatching(DLListRec* record, void* walk);

    // Shared with the guards and with running walks, so that both survive the notifier.
    Qor::Ptr<Registry> registry_;
};

template <class Msg>
class GenericNotifier : public NotifierBase {
public:
    // The visitor of the list; `msg` is the Msg const* being issued.
    static void listCallback(DLListRec* record, void* msg) {
        auto* invoker = dynamic_cast<CallbackInvoker<Msg>*>(record);
        if (invoker == nullptr)
            return;
        // A copy, so that the callback survives its record being dropped while it runs.
        Qor::Ptr<iCallbackBase<int, Msg>> callback = invoker->getCallback();
        if (callback)
            callback->execute(*static_cast<Msg const*>(msg));
    }

    Qor::Ptr<Qor::Guard> registerCallback(Qor::Ptr<iCallbackBase<int, Msg>> const& callback,
                                          int type = NotifyMsgTypeDictionary::AllMessages) {
        return registerInternal(new CallbackInvoker<Msg>(type, callback));
    }

protected:
    void issue(Msg const& msg, int type) const {
        walk(type, &listCallback, const_cast<Msg*>(&msg));
    }
};

template <class T>
class NotifierEx;

// The message of a typed notifier. The notifier fills in the type and itself as it issues, so a
// sender only sets the value.
template <class T>
struct NotifierEvent {
    NotifierEvent() = default;
    explicit NotifierEvent(T const& v) : value(v) {}

    int type = 0;
    T value{};
    NotifierEx<T> const* notifier = nullptr;
};

template <class T>
class NotifierEx : public GenericNotifier<NotifierEvent<T>> {
public:
    NotifierEx() = default;
    // The end message carries an empty value.
    ~NotifierEx() override {
        this->issue(stamped(NotifierEvent<T>(), NotifyMsgTypeDictionary::NotifierEnd),
                    NotifyMsgTypeDictionary::NotifierEnd);
    }

    virtual void issueNotification(NotifierEvent<T> const& event, int type) const {
        this->issue(stamped(event, type), type);
    }

private:
    NotifierEvent<T> stamped(NotifierEvent<T> event, int type) const {
        event.type = type;
        event.notifier = this;
        return event;
    }
};

class Notifier : public GenericNotifier<NotifyMsg> {
public:
    // The name of the message a dying notifier issues, with no data.
    static constexpr char const* endMessageName = "NotifierEnd";

    Notifier() = default;
    ~Notifier() override;

    virtual void issueNotification(NotifyMsg const& msg, int type) const;
};

// A Notifier that can be silenced: while the disable count is above zero, issueNotification does
// nothing. Disabling nests. The end message goes out regardless.
class NotifyWithDisable : public Notifier {
public:
    virtual Notifier& getNotify() { return *this; }

    void issueNotification(NotifyMsg const& msg, int type) const override;

    void disableNotifications() { ++disabled_; }
    // An enable without a matching disable is ignored.
    void enableNotifications();
    bool notificationsDisabled() const { return disabled_.load() > 0; }

private:
    std::atomic<int> disabled_{0};
};
