#include "os/Clock.h"

#include <atomic>
#include <chrono>
#include <ctime>

namespace {

std::atomic<iClock*> installedClock{nullptr};
std::atomic<int> lifeSupportDepth{0};

double systemMsecs() {
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

double msecsNow() {
    iClock* clock = installedClock.load(std::memory_order_acquire);
    return clock != nullptr ? clock->msecsNow() : systemMsecs();
}

long uiClock() {
    return long(msecsNow() * (double(CLOCKS_PER_SEC) / 1000.0));
}

iClock* setClock(iClock* clock) {
    return installedClock.exchange(clock, std::memory_order_acq_rel);
}

namespace SystemWatchdog {

void beginLifeSupport() {
    ++lifeSupportDepth;
}

void endLifeSupport() {
    if (lifeSupportDepth.load() > 0)
        --lifeSupportDepth;
}

bool onLifeSupport() {
    return lifeSupportDepth.load() > 0;
}

} // namespace SystemWatchdog
