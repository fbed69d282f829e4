#include "os/OS.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

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
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&count] {
            for (int i = 0; i < 50000; ++i)
                OS()->refCounts().addRef(&count);
            for (int i = 0; i < 49999; ++i)
                OS()->refCounts().release(&count);
        });
    for (auto& t : threads)
        t.join();
    EXPECT_EQ(OS()->refCounts().count(&count), 4u);
    EXPECT_EQ(OS()->refCounts().release(&count), 3u);
}

TEST(OS, AllocatorGivesUsableBlocks) {
    auto* block = static_cast<unsigned char*>(OS()->allocator().allocate(64));
    for (int i = 0; i < 64; ++i)
        block[i] = static_cast<unsigned char>(i);
    EXPECT_EQ(block[63], 63);
    OS()->allocator().free(block);
    void* empty = OS()->allocator().allocate(0);
    EXPECT_NE(empty, nullptr);
    OS()->allocator().free(empty);
}
