#include "foundation/CommandExecuter.h"

#include "glob/CommandMap.h"
#include "os/OS.h"

namespace {
constexpr unsigned shiftMask = 0x1000000;
}

CommandExecuter::CommandExecuter(LightweightString<char> const& command,
                                 LightweightString<char> const& shiftCommand)
    : UIThreadCallback<NotifyMsg>({}, true), command_(command), shiftCommand_(shiftCommand) {}

CommandExecuter::~CommandExecuter() {
    // The names die before the base could stop the work that reads them.
    stopWork();
}

int CommandExecuter::executeInternal(NotifyMsg const& msg) {
    bool shifted = !shiftCommand_.empty() && OS()->isKeyDown(shiftMask);
    CommandMap& map = CommandMap::instance();
    if (auto id = map.findCommand(shifted ? shiftCommand_ : command_))
        map.callCommand(*id, msg.getData());
    return 0;
}
