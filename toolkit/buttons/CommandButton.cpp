#include "buttons/CommandButton.h"

#include "foundation/CommandExecuter.h"
#include "glob/CommandMap.h"

CommandButton::CommandButton(InitArgs const& args)
    : Button(withCommandLabel(args)), command_(args.command) {
    setStyle(Standard);
    WidgetCallback::Callback executer(new CommandExecuter(args.command, args.shiftCommand));
    setCallback(WidgetCallback(executer, args.callback.message(), args.callback.context()));
}

CommandButton::InitArgs CommandButton::withCommandLabel(InitArgs args) {
    if (!args.label.getString().empty())
        return args;
    CommandMap const& map = CommandMap::instance();
    if (std::optional<CommandMap::CommandId> id = map.findCommand(args.command))
        args.label = UIString(map.getCommand(*id).displayName());
    return args;
}
