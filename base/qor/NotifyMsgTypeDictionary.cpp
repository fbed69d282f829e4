#include "qor/NotifyMsgTypeDictionary.h"

#include "qor/Singleton.h"

NotifyMsgTypeDictionary& NotifyMsgTypeDictionary::instance() {
    return Qor::Singleton<NotifyMsgTypeDictionary>::Instance();
}

NotifyMsgTypeDictionary::NotifyMsgTypeDictionary() {
    add("AllMessages", AllMessages);
    add("NotifierEnd", NotifierEnd);
    add("ValueChanged", ValueChanged);
    add("PreValueChanged", PreValueChanged);
    add("WidgetDeleted", WidgetDeleted);
    add("WidgetMoved", WidgetMoved);
}

int NotifyMsgTypeDictionary::typeFor(LightweightString<char> const& name) {
    CriticalSection::Lock lock(lock_);
    std::string key = name.str();
    auto found = numbers_.find(key);
    if (found != numbers_.end())
        return found->second;
    int type = nextType_++;
    add(key.c_str(), type);
    return type;
}

LightweightString<char> NotifyMsgTypeDictionary::nameOf(int type) {
    CriticalSection::Lock lock(lock_);
    auto found = names_.find(type);
    if (found == names_.end())
        return {};
    return LightweightString<char>(found->second.c_str());
}

void NotifyMsgTypeDictionary::add(char const* name, int type) {
    numbers_.emplace(name, type);
    names_.emplace(type, name);
}
