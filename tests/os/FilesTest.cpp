#include "os/Files.h"

#include "qor/UTF8.h"
#include "support/ScopedEnvironment.h"
#include "support/ScopedResourceTable.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

using WString = LightweightString<wchar_t>;

std::string narrow(WString const& text) {
    return toUTF8(text).c_str();
}

TEST(PathParts, SplitIntoFolderLeafAndExtension) {
    struct Case {
        wchar_t const* path;
        wchar_t const* folder;
        wchar_t const* extension;
        wchar_t const* withoutExtension;
    } const cases[] = {
        {L"/a/b/c.txt", L"/a/b/", L"txt", L"/a/b/c"},
        {L"c.tar.gz", L"", L"gz", L"c.tar"},
        {L"/a.d/b", L"/a.d/", L"", L"/a.d/b"},
        {L"/home/u/.bashrc", L"/home/u/", L"", L"/home/u/.bashrc"},
        {L"/home/u/.config.bak", L"/home/u/", L"bak", L"/home/u/.config"},
        {L"file.", L"", L"", L"file"},
        {L"/a/b/", L"/a/b/", L"", L"/a/b/"},
        {L"", L"", L"", L""},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(narrow(c.path));
        EXPECT_EQ(getPath(c.path), c.folder);
        EXPECT_EQ(getPath(c.path) + stripPath(c.path), c.path);
        EXPECT_EQ(getExtension(c.path), c.extension);
        EXPECT_EQ(stripExtension(c.path), c.withoutExtension);
    }
    EXPECT_EQ(stripPathAndExt(L"/home/u/.config.bak"), L".config");
}

// Existence is the link's own, so a dangling link exists and can be deleted; folders are never
// deleted.
TEST(FilesOnDisk, ExistsAndDeleteSeeFilesFoldersAndDanglingLinks) {
    TemporaryDirectory folder;
    WString const base = fromUTF8(folder.path().c_str()) + L"/";
    WString const file = base + L"données é.txt";
    EXPECT_FALSE(fileExists(file));
    std::ofstream(narrow(file)) << "x";
    EXPECT_TRUE(fileExists(file));
    EXPECT_TRUE(deleteFile(file));
    EXPECT_FALSE(fileExists(file));
    EXPECT_FALSE(deleteFile(file));

    std::filesystem::create_directory(narrow(base + L"sub"));
    EXPECT_TRUE(fileExists(base + L"sub"));
    EXPECT_FALSE(deleteFile(base + L"sub"));

    std::filesystem::create_symlink(narrow(base + L"nowhere"), narrow(base + L"link"));
    EXPECT_TRUE(fileExists(base + L"link"));
    EXPECT_TRUE(deleteFile(base + L"link"));
    EXPECT_FALSE(fileExists(L""));
    EXPECT_FALSE(deleteFile(L""));
}

TEST(ValidateFileName, ReplacesWhatANameCannotHold) {
    std::pair<WString, wchar_t const*> const cases[] = {{L"report/2024", L"report_2024"},
                                                        {L"line\nfeed\r", L"line_feed_"},
                                                        {L"del\x7F", L"del_"},
                                                        {L"c1\x85", L"c1_"},
                                                        {L"a:b*c?", L"a:b*c?"},
                                                        {L"..", L"_"},
                                                        {L"", L"_"},
                                                        {L"...", L"..."}};
    for (auto const& [text, expected] : cases)
        EXPECT_EQ(validateFileName(text, 0, L'_'), expected) << narrow(text);
    EXPECT_EQ(validateFileName(L"a/b/c\x07", validateAllowSeparators, L'_'), L"a/b/c_");
    EXPECT_EQ(validateFileName(L"é/ü €", 0, L'-'), L"é-ü €");
    // Every character the platform forbids in a name is replaced.
    WString const illegal = Qor::FilespecUtils::getIllegalNameCharacters();
    EXPECT_EQ(illegal.size(), 2u);
    for (wchar_t c : illegal) {
        WString name = L"a";
        name.push_back(c);
        EXPECT_EQ(validateFileName(name + L"b", 0, L'_'), L"a_b");
    }
}

TEST(Icons, LiveInTheResourceDirectoryUnlessTheVariableNamesAFolder) {
    ScopedEnvironment environment;
    environment.unset("PANELKIT_ICONS");
    ScopedResourceTable table("1\tone\n");
    WString expected = fromUTF8(table.directory().c_str()) + L"/icons/";
    EXPECT_EQ(getIconsDirectory(), expected);
    EXPECT_EQ(getIconPath(L"poot.png"), expected + L"poot.png");
    environment.set("PANELKIT_ICONS", "/opt/icons");
    EXPECT_EQ(getIconPath(L"eye-open.png"), L"/opt/icons/eye-open.png");
    environment.set("PANELKIT_ICONS", "/opt/icons/");
    EXPECT_EQ(getIconsDirectory(), L"/opt/icons/");
}

} // namespace
