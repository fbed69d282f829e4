#include "qor/IdStamp.h"

#include "os/CriticalSection.h"

#include <atomic>
#include <cstdio>
#include <tuple>
#include <unistd.h>
#include <unordered_map>

namespace {

// The first word tells processes apart, so a stamp written out by one run is not mistaken for a
// stamp of the next; the other two count.
unsigned processTag() {
    static unsigned const tag = unsigned(::getpid()) | 0x80000000u;
    return tag;
}

std::atomic<unsigned long long> stampCounter{0};
std::atomic<unsigned long long> removalCounter{0};

struct Registry {
    CriticalSection lock;
    std::unordered_map<void const*, IdStamp> live;
};

Registry& registry() {
    static Registry* const r = new Registry;
    return *r;
}

} // namespace

IdStamp::IdStamp() {
    unsigned long long n = ++stampCounter;
    a_ = processTag();
    b_ = unsigned(n >> 32);
    c_ = unsigned(n);
}

IdStamp::IdStamp(char const* text) : a_(0), b_(0), c_(0) {
    unsigned a = 0, b = 0, c = 0;
    int consumed = 0;
    if (text != nullptr && std::sscanf(text, "%u.%u.%u%n", &a, &b, &c, &consumed) == 3 &&
        text[consumed] == '\0') {
        a_ = a;
        b_ = b;
        c_ = c;
    }
}

LightweightString<char> IdStamp::asString() const {
    char buffer[40];
    int n = std::snprintf(buffer, sizeof buffer, "%u.%u.%u", a_, b_, c_);
    return LightweightString<char>(buffer, unsigned(n));
}

bool IdStamp::operator<(IdStamp const& o) const {
    return std::tie(a_, b_, c_) < std::tie(o.a_, o.b_, o.c_);
}

namespace LiveObjects {

void add(void const* object, IdStamp const& stamp) {
    Registry& r = registry();
    CriticalSection::Lock hold(r.lock);
    r.live[object] = stamp;
}

void remove(void const* object) {
    Registry& r = registry();
    CriticalSection::Lock hold(r.lock);
    r.live.erase(object);
    removalCounter.fetch_add(1, std::memory_order_release);
}

unsigned long long removals() {
    return removalCounter.load(std::memory_order_acquire);
}

bool isLive(void const* object) {
    Registry& r = registry();
    CriticalSection::Lock hold(r.lock);
    return r.live.count(object) != 0;
}

bool isLive(void const* object, IdStamp const& stamp) {
    if (!stamp.valid())
        return false;
    Registry& r = registry();
    CriticalSection::Lock hold(r.lock);
    auto it = r.live.find(object);
    return it != r.live.end() && it->second == stamp;
}

} // namespace LiveObjects
