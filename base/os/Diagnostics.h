#pragma once

// Plain formatted diagnostic lines, without levels. Each line goes to standard error and is
// appended to the log file (panelkit.log under $XDG_STATE_HOME/panelkit/, or
// ~/.local/state/panelkit/). A line ends with a newline whether or not the format gives one.

#include <functional>
#include <string>

void diag_printf(char const* format, ...) __attribute__((format(printf, 1, 2)));
void LogBoth(char const* format, ...) __attribute__((format(printf, 1, 2)));

namespace Diagnostics {

// Sees every line (without its newline) besides the console and the file; hosts use it to show
// diagnostics in their own window, tests to read them. Answers the listener it replaces.
using Listener = std::function<void(std::string const& line)>;
Listener setListener(Listener listener);

// Stops or resumes the echo to standard error (the file and the listener still get every line).
void setConsoleEcho(bool on);

// Where the log file is, whether or not it could be opened.
std::string logFilePath();

} // namespace Diagnostics
