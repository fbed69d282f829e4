#pragma once

// The untyped face of a value server: the two message types that servers issue, and the two
// notifications, so that code can tell a server's clients about a change without knowing the type.

#include "misc/DLList.h"
#include "qor/NotifyMsgTypeDictionary.h"
#include "qor/Ptr.h"

class ValServerBase : public DLListRec, public virtual iObject {
public:
    static int const valChangedMsgType_;
    static int const preValChangedMsgType_;

    virtual void notifyValChanged() = 0;
    virtual void preNotifyValChanged() = 0;
};
