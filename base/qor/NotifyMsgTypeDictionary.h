#pragma once

// Hands out the numbers that tell notification types apart. A few are fixed, because senders and
// receivers in different libraries must agree on them without asking; any other kind of message
// gets a number by name, the same number for the same name for the life of the process.

#include "os/CriticalSection.h"
#include "qor/LightweightString.h"

#include <map>
#include <string>
#include <vector>

namespace Loki {
template <class T>
struct CreateUsingNew;
}

class NotifyMsgTypeDictionary {
public:
    enum : int {
        // A registration of this type hears every message.
        AllMessages = 0,
        // Issued by a notifier as it dies.
        NotifierEnd = 1,
        ValueChanged = 2,
        PreValueChanged = 3,
        WidgetDeleted = 10,
        WidgetMoved = 12,
        FirstDynamicType = 100,
    };

    static NotifyMsgTypeDictionary& instance();

    int allMessagesType() const { return AllMessages; }
    int notifierEndType() const { return NotifierEnd; }

    // The number of the named type, handed out on first request. The fixed types answer to
    // "AllMessages", "NotifierEnd", "ValueChanged", "PreValueChanged", "WidgetDeleted" and
    // "WidgetMoved".
    int typeFor(LightweightString<char> const& name);
    // The name of a type, or empty for a number never handed out.
    LightweightString<char> nameOf(int type);

private:
    friend struct Loki::CreateUsingNew<NotifyMsgTypeDictionary>;
    NotifyMsgTypeDictionary();

    void add(char const* name, int type);

    CriticalSection lock_;
    std::map<std::string, int> numbers_;
    std::map<int, std::string> names_;
    int nextType_ = FirstDynamicType;
};
