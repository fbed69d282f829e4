#include "os/Paths.h"

#include "support/OnThreads.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(Paths, XdgFoldersAreUsedOnlyWhenAbsolute) {
    ScopedEnvironment env;
    env.set("HOME", "/home/someone");
    env.set("XDG_CONFIG_HOME", "/xdg/config");
    env.set("XDG_STATE_HOME", "relative/state");
    EXPECT_EQ(Paths::configDirectory(), "/xdg/config/panelkit");
    EXPECT_EQ(Paths::stateDirectory(), "/home/someone/.local/state/panelkit");
    env.unset("XDG_CONFIG_HOME");
    EXPECT_EQ(Paths::configDirectory(), "/home/someone/.config/panelkit");
}

TEST(Paths, ParentOfHandlesRootAndBareNames) {
    EXPECT_EQ(Paths::parentOf("/a/b/c.txt"), "/a/b");
    EXPECT_EQ(Paths::parentOf("/top"), "/");
    EXPECT_EQ(Paths::parentOf("name"), ".");
}

TEST(Paths, AtomicWriteCreatesFoldersReplacesWholeFilesAndLeavesNoTemporaries) {
    TemporaryDirectory dir;
    std::string path = dir.file("deep/er/file.json");
    ASSERT_TRUE(Paths::writeFileAtomically(path, "first"));
    ASSERT_TRUE(Paths::writeFileAtomically(path, "second, longer"));
    std::string contents;
    ASSERT_TRUE(Paths::readFile(path, contents));
    EXPECT_EQ(contents, "second, longer");
    auto entries = std::distance(std::filesystem::directory_iterator(dir.path() / "deep/er"),
                                 std::filesystem::directory_iterator());
    EXPECT_EQ(entries, 1);
}

TEST(Paths, ConcurrentWritersOfOneFileEachLeaveAWholeVersion) {
    TemporaryDirectory dir;
    std::string path = dir.file("shared.txt");
    onThreads(4, [&path](int t) {
        std::string text(1000 + t, char('a' + t));
        for (int i = 0; i < 20; ++i)
            EXPECT_TRUE(Paths::writeFileAtomically(path, text));
    });
    std::string contents;
    ASSERT_TRUE(Paths::readFile(path, contents));
    ASSERT_GE(contents.size(), 1000u);
    EXPECT_EQ(contents, std::string(contents.size(), contents[0]));
    EXPECT_EQ(contents.size(), std::size_t(1000 + (contents[0] - 'a')));
}

TEST(Paths, WritingWhereNoFolderCanBeMadeFails) {
    TemporaryDirectory dir;
    std::string blocker = dir.file("plain-file");
    ASSERT_TRUE(Paths::writeFileAtomically(blocker, "x"));
    EXPECT_FALSE(Paths::writeFileAtomically(blocker + "/inside.txt", "y"));
    EXPECT_FALSE(Paths::makeDirectories(blocker + "/sub"));
    EXPECT_FALSE(Paths::makeDirectories(blocker));
    std::string contents;
    EXPECT_FALSE(Paths::readFile(dir.file("absent"), contents));
}
