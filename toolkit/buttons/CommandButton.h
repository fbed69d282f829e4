#pragma once

// A button that runs a command of the CommandMap by name. Without a label of its own it shows the
// command's display name. The callback's context goes to the command.

#include "buttons/Button.h"

class CommandButton : public Button {
public:
    struct InitArgs : Button::InitArgs {
        InitArgs() = default;
        // An empty label takes the command's display name.
        InitArgs(LightweightString<char> const& command_, UIString const& label_, unsigned short w,
                 unsigned short h)
            : Button::InitArgs(label_, WidgetCallback(), w, h), command(command_) {}
        LightweightString<char> command;
        // Run instead while Shift is held, when not empty.
        LightweightString<char> shiftCommand;
    };

    explicit CommandButton(InitArgs const& args);

    char const* idstring() const override { return "CommandButton"; }
    LightweightString<char> const& getCommand() const { return command_; }

private:
    static InitArgs withCommandLabel(InitArgs args);

    LightweightString<char> command_;
};
