#pragma once

// Collects the diagnostic lines written while it lives, and keeps them off the console, for tests
// that provoke diagnostics on purpose.

#include "os/Diagnostics.h"

#include <algorithm>
#include <string>
#include <vector>

class DiagnosticCapture {
public:
    DiagnosticCapture() {
        Diagnostics::setConsoleEcho(false);
        previous_ =
            Diagnostics::setListener([this](std::string const& line) { lines_.push_back(line); });
    }
    ~DiagnosticCapture() {
        Diagnostics::setListener(previous_);
        Diagnostics::setConsoleEcho(true);
    }
    DiagnosticCapture(DiagnosticCapture const&) = delete;
    DiagnosticCapture& operator=(DiagnosticCapture const&) = delete;

    std::vector<std::string> const& lines() const { return lines_; }
    // How many lines contain the text.
    std::size_t count(std::string const& text) const {
        return std::size_t(std::count_if(lines_.begin(), lines_.end(), [&](std::string const& l) {
            return l.find(text) != std::string::npos;
        }));
    }
    void clear() { lines_.clear(); }

private:
    Diagnostics::Listener previous_;
    std::vector<std::string> lines_;
};
