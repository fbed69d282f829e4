#include "foundation/MessageSender.h"

#include "glob/Glob.h"

int MessageSender::execute(NotifyMsg const& msg) {
    sendMessage(msg.getName(), target_, nullptr, true);
    return 0;
}
