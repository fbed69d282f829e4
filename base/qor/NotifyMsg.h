#pragma once

// The message that notifiers and widget callbacks pass: a name and a data object, shared between
// copies, and flags that belong to each copy (a sender fills them in after construction, such as
// the reason a button reports).

#include "qor/LightweightString.h"
#include "qor/Ptr.h"

class NotifyMsg {
public:
    NotifyMsg(LightweightString<char> const& name, Qor::Ptr<iObject> const& data);
    NotifyMsg(LightweightString<char> const& name, int flags);
    // The name is kept in UTF-8.
    NotifyMsg(LightweightString<wchar_t> const& name, Qor::Ptr<iObject> const& data);
    // A message with no name.
    NotifyMsg(Qor::Ptr<iObject> const& data);

    NotifyMsg(NotifyMsg const&) = default;
    NotifyMsg& operator=(NotifyMsg const&) = default;

    // The name; never null.
    operator char const*() const { return record_->name.c_str(); }

    LightweightString<char> const& getName() const { return record_->name; }
    Qor::Ptr<iObject> const& getData() const { return record_->data; }
    int getFlags() const { return flags_; }
    void setFlags(int flags) { flags_ = flags; }

private:
    struct Record : iObject {
        Record(LightweightString<char> const& n, Qor::Ptr<iObject> const& d) : name(n), data(d) {}
        LightweightString<char> const name;
        Qor::Ptr<iObject> const data;
    };

    Qor::Ptr<Record> record_;
    int flags_ = 0;
};
