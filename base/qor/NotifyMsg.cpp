#include "qor/NotifyMsg.h"

#include "qor/UTF8.h"

NotifyMsg::NotifyMsg(LightweightString<char> const& name, Qor::Ptr<iObject> const& data)
    : record_(Qor::makePtr<Record>(name, data)) {}

NotifyMsg::NotifyMsg(LightweightString<char> const& name, int flags)
    : record_(Qor::makePtr<Record>(name, nullptr)), flags_(flags) {}

NotifyMsg::NotifyMsg(LightweightString<wchar_t> const& name, Qor::Ptr<iObject> const& data)
    : NotifyMsg(toUTF8(name), data) {}

NotifyMsg::NotifyMsg(Qor::Ptr<iObject> const& data) : NotifyMsg(LightweightString<char>(), data) {}
