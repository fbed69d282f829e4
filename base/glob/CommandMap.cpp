#include "glob/CommandMap.h"

#include "qor/Singleton.h"

#include <utility>

CommandMapRec::CommandMapRec(LightweightString<char> const& name,
                             LightweightString<wchar_t> const& displayName, Function function)
    : name_(name), displayName_(displayName), function_(std::move(function)) {}

void CommandMapRec::call(Qor::Ptr<iObject> const& context) const {
    if (function_)
        function_(context);
}

CommandMap& CommandMap::instance() {
    return Qor::Singleton<CommandMap>::Instance();
}

CommandMap::CommandId CommandMap::addCommand(CommandMapRec const& rec) {
    CriticalSection::Lock lock(lock_);
    for (CommandId id = 0; id < CommandId(commands_.size()); ++id) {
        if (commands_[id].name() == rec.name()) {
            commands_[id] = rec;
            return id;
        }
    }
    commands_.push_back(rec);
    return CommandId(commands_.size() - 1);
}

std::optional<CommandMap::CommandId>
CommandMap::findCommand(LightweightString<char> const& name) const {
    CriticalSection::Lock lock(lock_);
    for (CommandId id = 0; id < CommandId(commands_.size()); ++id)
        if (commands_[id].name() == name)
            return id;
    return std::nullopt;
}

CommandMapRec CommandMap::getCommand(CommandId id) const {
    CriticalSection::Lock lock(lock_);
    if (id < 0 || id >= CommandId(commands_.size()))
        return {};
    return commands_[id];
}

bool CommandMap::callCommand(CommandId id, Qor::Ptr<iObject> const& context) const {
    CommandMapRec rec = getCommand(id);
    if (rec.empty())
        return false;
    rec.call(context);
    return true;
}

CommandRegistrar::CommandRegistrar(LightweightString<char> const& name,
                                   LightweightString<wchar_t> const& displayName,
                                   CommandMapRec::Function function)
    : id_(CommandMap::instance().addCommand(
          CommandMapRec(name, displayName, std::move(function)))) {}
