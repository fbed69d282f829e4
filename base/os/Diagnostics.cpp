#include "os/Diagnostics.h"

#include "os/CriticalSection.h"
#include "os/Paths.h"

#include <cstdarg>
#include <cstdio>
#include <vector>

namespace {

struct Log {
    CriticalSection lock;
    Diagnostics::Listener listener;
    bool echo = true;
    bool fileTried = false;
    std::FILE* file = nullptr;
};

Log& theLog() {
    static Log* const log = new Log;
    return *log;
}

std::string format(char const* fmt, va_list args) {
    va_list copy;
    va_copy(copy, args);
    int n = std::vsnprintf(nullptr, 0, fmt, copy);
    va_end(copy);
    if (n <= 0)
        return std::string();
    std::vector<char> buffer(std::size_t(n) + 1);
    std::vsnprintf(buffer.data(), buffer.size(), fmt, args);
    std::string line(buffer.data(), std::size_t(n));
    while (!line.empty() && line.back() == '\n')
        line.pop_back();
    return line;
}

std::FILE* openLogFile(Log& log) {
    if (!log.fileTried) {
        log.fileTried = true;
        std::string path = Diagnostics::logFilePath();
        if (Paths::makeDirectories(Paths::parentOf(path)))
            log.file = std::fopen(path.c_str(), "a");
    }
    return log.file;
}

void emit(std::string const& line) {
    Log& log = theLog();
    CriticalSection::Lock hold(log.lock);
    if (log.echo)
        std::fprintf(stderr, "%s\n", line.c_str());
    if (std::FILE* file = openLogFile(log)) {
        std::fprintf(file, "%s\n", line.c_str());
        std::fflush(file);
    }
    if (log.listener)
        log.listener(line);
}

} // namespace

// Both names reach the console and the log alike; there are no levels.
void diag_printf(char const* fmt, ...) {
    va_list args;
    va_start(args, fmt);
    emit(format(fmt, args));
    va_end(args);
}

void LogBoth(char const* fmt, ...) {
    va_list args;
    va_start(args, fmt);
    emit(format(fmt, args));
    va_end(args);
}

namespace Diagnostics {

Listener setListener(Listener listener) {
    Log& log = theLog();
    CriticalSection::Lock hold(log.lock);
    std::swap(log.listener, listener);
    return listener;
}

void setConsoleEcho(bool on) {
    Log& log = theLog();
    CriticalSection::Lock hold(log.lock);
    log.echo = on;
}

std::string logFilePath() {
    return Paths::stateDirectory() + "/panelkit.log";
}

} // namespace Diagnostics
