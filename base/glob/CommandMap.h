#pragma once

// The process-wide table of named commands: buttons and callbacks run a command by its name, and a
// command button shows its display name. Commands are put in at load by CommandRegistrar objects,
// and may be looked up and run from any thread; a command runs on the caller's thread.

#include "os/CriticalSection.h"
#include "qor/LightweightString.h"
#include "qor/Ptr.h"

#include <functional>
#include <optional>
#include <vector>

namespace Loki {
template <class T>
struct CreateUsingNew;
}

// One command: its name, the text a user sees for it, and what it does with a context.
class CommandMapRec {
public:
    using Function = std::function<void(Qor::Ptr<iObject> const& context)>;

    CommandMapRec() = default;
    CommandMapRec(LightweightString<char> const& name,
                  LightweightString<wchar_t> const& displayName, Function function);

    LightweightString<char> const& name() const { return name_; }
    LightweightString<wchar_t> const& displayName() const { return displayName_; }
    // The record of no command: an unknown id gives it.
    bool empty() const { return !function_; }
    // Does nothing for an empty record.
    void call(Qor::Ptr<iObject> const& context) const;

private:
    LightweightString<char> name_;
    LightweightString<wchar_t> displayName_;
    Function function_;
};

class CommandMap {
public:
    using CommandId = int;

    static CommandMap& instance();

    // A name given again replaces the command and keeps its id.
    CommandId addCommand(CommandMapRec const& rec);
    std::optional<CommandId> findCommand(LightweightString<char> const& name) const;
    // A copy; empty for an unknown id.
    CommandMapRec getCommand(CommandId id) const;
    // Runs the command outside the map's lock, so that it may use the map; false for an unknown id.
    bool callCommand(CommandId id, Qor::Ptr<iObject> const& context = {}) const;

private:
    friend struct Loki::CreateUsingNew<CommandMap>;
    CommandMap() = default;

    mutable CriticalSection lock_;
    std::vector<CommandMapRec> commands_;
};

// Registers a command as it is constructed; a namespace-scope one does so at load.
class CommandRegistrar {
public:
    CommandRegistrar(LightweightString<char> const& name,
                     LightweightString<wchar_t> const& displayName,
                     CommandMapRec::Function function);

    CommandMap::CommandId id() const { return id_; }

private:
    CommandMap::CommandId id_;
};
