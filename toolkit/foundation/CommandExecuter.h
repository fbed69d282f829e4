#pragma once

// Runs a command of the CommandMap by name, on the user-interface thread whichever thread calls
// it. A second name, if given, is run instead while Shift is held. The message's data goes to the
// command as its context.

#include "glob/UIThreadCallback.h"
#include "qor/LightweightString.h"

class CommandExecuter : public UIThreadCallback<NotifyMsg> {
public:
    explicit CommandExecuter(LightweightString<char> const& command,
                             LightweightString<char> const& shiftCommand = {});
    ~CommandExecuter() override;

    LightweightString<char> const& command() const { return command_; }
    LightweightString<char> const& shiftCommand() const { return shiftCommand_; }

protected:
    // Answers 0; an unknown command does nothing.
    int executeInternal(NotifyMsg const& msg) override;

private:
    LightweightString<char> command_;
    LightweightString<char> shiftCommand_;
};
