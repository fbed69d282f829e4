#include "foundation/CallbackWithContext.h"

int CallbackWithContext::execute(NotifyMsg const& msg) {
    if (!inner_)
        return 0;
    NotifyMsg withContext(msg.getName(), context_);
    withContext.setFlags(msg.getFlags());
    return inner_->execute(withContext);
}
