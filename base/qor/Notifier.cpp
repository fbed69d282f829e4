#include "qor/Notifier.h"

#include "os/CriticalSection.h"

#include <utility>

// The lock and the list, kept alive by the notifier, by each guard and by each running walk: a
// callback may destroy the notifier in the middle of a walk, and a guard may be dropped long after.
struct NotifierBase::Registry : iObject {
    Registry() : records(true) {}

    // Takes every record out and deletes them outside the lock, since a record's death drops a
    // callback whose destructor may do anything.
    void close() {
        DLList doomed(true);
        CriticalSection::Lock lock(section);
        closed = true;
        while (DLListRec* record = records.first())
            doomed.append(record);
    }

    CriticalSection section;
    DLList records;
    unsigned long long nextSerial = 0;
    bool closed = false;
};

// While the registry is open, the guard's record is in its list: only the guard and close() take
// records out.
class NotifierBase::Registration : public Qor::Guard {
public:
    Registration(Qor::Ptr<Registry> registry, CallbackInvokerBase* record)
        : registry_(std::move(registry)), record_(record) {}

    ~Registration() override {
        CallbackInvokerBase* doomed = nullptr;
        {
            CriticalSection::Lock lock(registry_->section);
            if (!registry_->closed) {
                registry_->records.remove(record_);
                doomed = record_;
            }
        }
        delete doomed;
    }

private:
    Qor::Ptr<Registry> registry_;
    CallbackInvokerBase* record_;
};

struct NotifierBase::Walk {
    int type;
    unsigned long long serialLimit;
    Visitor visit;
    void* arg;
};

NotifierBase::NotifierBase() : registry_(Qor::makePtr<Registry>()) {}

NotifierBase::~NotifierBase() {
    registry_->close();
}

Qor::Ptr<Qor::Guard> NotifierBase::registerInternal(CallbackInvokerBase* record) {
    if (record == nullptr || record->list() != nullptr)
        return {};
    CriticalSection::Lock lock(registry_->section);
    record->serial_ = registry_->nextSerial++;
    registry_->records.append(record);
    return Qor::Ptr<Qor::Guard>(new Registration(registry_, record));
}

unsigned NotifierBase::registrationCount() const {
    CriticalSection::Lock lock(registry_->section);
    return registry_->records.size();
}

void NotifierBase::walk(int type, Visitor visit, void* arg) const {
    // Declared before the lock, so the lock is left before the registry can go.
    Qor::Ptr<Registry> registry = registry_;
    CriticalSection::Lock lock(registry->section);
    Walk walk{type, registry->nextSerial, visit, arg};
    registry->records.apply(&visitMatching, &walk);
}

void NotifierBase::visitMatching(DLListRec* record, void* walk) {
    auto const& w = *static_cast<Walk const*>(walk);
    auto const* invoker = static_cast<CallbackInvokerBase const*>(record);
    if (invoker->serial_ < w.serialLimit && invoker->typeMatch(w.type))
        w.visit(record, w.arg);
}

Notifier::~Notifier() {
    issue(NotifyMsg(endMessageName, nullptr), NotifyMsgTypeDictionary::NotifierEnd);
}

void Notifier::issueNotification(NotifyMsg const& msg, int type) const {
    issue(msg, type);
}

void NotifyWithDisable::issueNotification(NotifyMsg const& msg, int type) const {
    if (!notificationsDisabled())
        Notifier::issueNotification(msg, type);
}

void NotifyWithDisable::enableNotifications() {
    int count = disabled_.load();
    while (count > 0 && !disabled_.compare_exchange_weak(count, count - 1)) {
    }
}
