#include "os/OS.h"

#include "support/OnThreads.h"

#include <gtest/gtest.h>

namespace {
struct HeldKeys : iKeyboardState {
    unsigned held = 0;
    bool isKeyDown(unsigned mask) const override { return (held & mask) != 0; }
};
} // namespace

TEST(OS, KeyboardStateCanBeSubstitutedAndRestored) {
    EXPECT_FALSE(OS()->isKeyDown(0x1000000));
    HeldKeys keys;
    keys.held = 0x2000000;
    OS()->setKeyboardState(&keys);
    EXPECT_TRUE(OS()->isKeyDown(0x2000000));
    EXPECT_FALSE(OS()->isKeyDown(0x1000000));
    OS()->setKeyboardState(nullptr);
    EXPECT_FALSE(OS()->isKeyDown(0x2000000));
}

TEST(OS, ReferenceCountsAreExactAcrossThreads) {
    unsigned count = 0;
    onThreads(4, [&count](int) {
        for (int i = 0; i < 50000; ++i)
            OS()->refCounts().addRef(&count);
        for (int i = 0; i < 49999; ++i)
            OS()->refCounts().release(&count);
    });
    EXPECT_EQ(OS()->refCounts().count(&count), 4u);
    EXPECT_EQ(OS()->refCounts().release(&count), 3u);
}
