#pragma once

// Time for the user interface: milliseconds on a monotonic clock. The clock is replaceable, so a
// test driver can run the whole toolkit on virtual time.

class iClock {
public:
    virtual ~iClock() = default;
    virtual double msecsNow() const = 0;
};

// Milliseconds as a double, from the installed clock.
double msecsNow();

// The interface clock in processor-clock ticks (CLOCKS_PER_SEC a second), for code that measures
// intervals the way clock() does; it follows the installed clock, so a virtual clock moves it.
long uiClock();

// Installs a clock; null restores the monotonic system clock. Answers the clock it replaces (null
// for the system clock).
iClock* setClock(iClock* clock);

// Long modal waits are bracketed by these, so that a watchdog does not take a wait for a hang.
namespace SystemWatchdog {
void beginLifeSupport();
void endLifeSupport();
bool onLifeSupport();
} // namespace SystemWatchdog
