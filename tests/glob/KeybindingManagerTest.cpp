#include "glob/KeybindingManager.h"

#include "glob/Event.h"

#include "support/OnThreads.h"

#include <gtest/gtest.h>

namespace {

using Keys = std::vector<ComplexKeyboardEvent>;

constexpr unsigned ctrlS = 0x2000053;
constexpr unsigned ctrlShiftS = 0x3000053;
constexpr unsigned f2 = 0x800003c;

// Each test starts and ends with the empty table that a process starts with.
class KeybindingManagerTest : public ::testing::Test {
protected:
    void SetUp() override { manager().clear(); }
    void TearDown() override { manager().clear(); }
    static KeybindingManager& manager() { return KeybindingManager::instance(); }
};

TEST_F(KeybindingManagerTest, KeysComeBackInBindingOrderWithTheirFlags) {
    EXPECT_TRUE(manager().findCommandForKey(ctrlS).empty());
    manager().bind("save", ComplexKeyboardEvent(f2));
    manager().bind("save", ComplexKeyboardEvent(ctrlS, ComplexKeyboardEvent::DontShow));
    manager().bind("rename", ComplexKeyboardEvent(ctrlShiftS));
    EXPECT_EQ(manager().getKeysAssignedToCommand("save"),
              (Keys{ComplexKeyboardEvent(f2),
                    ComplexKeyboardEvent(ctrlS, ComplexKeyboardEvent::DontShow)}));
    EXPECT_EQ(manager().findCommandForKey(ctrlS), "save");
    EXPECT_EQ(manager().findCommandForKey(ctrlShiftS), "rename");
    EXPECT_TRUE(manager().getKeysAssignedToCommand("open").empty());
}

TEST_F(KeybindingManagerTest, RebindingAKeyMovesItAndUnbindRemovesOnlyThatCommandsKey) {
    manager().bind("save", ComplexKeyboardEvent(ctrlS));
    manager().bind("save", ComplexKeyboardEvent(f2));
    manager().bind("saveAll", ComplexKeyboardEvent(ctrlS));
    EXPECT_EQ(manager().getKeysAssignedToCommand("save"), Keys{ComplexKeyboardEvent(f2)});
    EXPECT_EQ(manager().findCommandForKey(ctrlS), "saveAll");

    EXPECT_FALSE(manager().unbind("save", ComplexKeyboardEvent(ctrlS)));
    EXPECT_TRUE(manager().unbind("saveAll", ComplexKeyboardEvent(ctrlS)));
    EXPECT_TRUE(manager().findCommandForKey(ctrlS).empty());
    EXPECT_EQ(manager().getKeysAssignedToCommand("save"), Keys{ComplexKeyboardEvent(f2)});
}

TEST_F(KeybindingManagerTest, BindingFromManyThreadsLosesNothing) {
    constexpr int perThread = 200;
    onThreads(4, [](int thread) {
        LightweightString<char> command = thread % 2 == 0 ? "even" : "odd";
        for (int i = 0; i < perThread; ++i) {
            unsigned key = KeyCodes::KeyNumber | unsigned(thread * perThread + i);
            manager().bind(command, ComplexKeyboardEvent(key));
            manager().getKeysAssignedToCommand(command);
        }
    });
    EXPECT_EQ(manager().getKeysAssignedToCommand("even").size(), 2u * perThread);
    EXPECT_EQ(manager().getKeysAssignedToCommand("odd").size(), 2u * perThread);
}

} // namespace
