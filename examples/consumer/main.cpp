// A program outside the project that uses the installed library: it checks a few promises of the
// base layer, prints one line, and exits with 0 only when every check holds.

#include "Panelkit.h"

#include <cstdio>
#include <cstring>

namespace {

int failures = 0;

void check(bool holds, char const* what) {
    if (holds)
        return;
    std::fprintf(stderr, "panelkit-consumer: failed: %s\n", what);
    ++failures;
}

// Reports its own lifetime, so the program can see when the last owner lets go.
class Probe : public iObject {
public:
    explicit Probe(bool& alive) : alive_(alive) { alive_ = true; }
    ~Probe() override { alive_ = false; }

private:
    bool& alive_;
};

char const* const greeting = "Grüße, κόσμε";

void checkStrings() {
    LightweightString<wchar_t> text = fromUTF8(greeting);
    check(text.size() == 12, "fromUTF8 gives one character per code point");
    check(std::strcmp(toUTF8(text).c_str(), greeting) == 0, "toUTF8 restores the original bytes");

    LightweightString<wchar_t> copy = text;
    check(copy.sharesBodyWith(text), "a copy shares the body of its original");
    copy.append(L"!");
    check(!copy.sharesBodyWith(text), "writing to a copy detaches it");
    check(text.size() == 12 && copy.size() == 13, "writing to a copy leaves the original alone");
}

void checkPointers() {
    bool alive = false;
    {
        Qor::Ptr<iObject> first(new Probe(alive));
        Qor::Ptr<iObject> second = first;
        check(first.useCount() == 2, "copying a pointer adds an owner");
        first.reset();
        check(alive && second.useCount() == 1, "the object outlives all but its last owner");
    }
    check(!alive, "the last owner deletes the object");
}

// The library finds its texts in share/panelkit beside its own folder; a text it cannot find
// comes back as "#<id>".
void checkResources() {
    LightweightString<wchar_t> on = resourceStrW(10000);
    check(!on.empty() && !on.startsWith(L"#"), "the library finds its resource texts");
}

} // namespace

int main() {
    check(std::strcmp(Panelkit::versionString(), PANELKIT_EXPECTED_VERSION) == 0,
          "the library is the version the package announced");
    checkStrings();
    checkPointers();
    checkResources();
    if (failures != 0)
        return 1;
    std::printf("panelkit-consumer: ok, Panelkit %s, %s\n", Panelkit::versionString(), greeting);
    return 0;
}
