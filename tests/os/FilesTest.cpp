#include "os/Files.h"

#include "misc/ResourceTable.h"
#include "qor/UTF8.h"
#include "support/ScopedEnvironment.h"
#include "support/ScopedResourceTable.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using WString = LightweightString<wchar_t>;

std::string narrow(WString const& text) {
    return toUTF8(text).c_str();
}

struct PathCase {
    wchar_t const* path;
    wchar_t const* folder;
    wchar_t const* leaf;
    wchar_t const* extension;
    wchar_t const* withoutExtension;
    wchar_t const* leafWithoutExtension;
};

TEST(PathParts, SplitIntoFolderLeafAndExtension) {
    PathCase const cases[] = {
        {L"/a/b/c.txt", L"/a/b/", L"c.txt", L"txt", L"/a/b/c", L"c"},
        {L"c.txt", L"", L"c.txt", L"txt", L"c", L"c"},
        {L"c.tar.gz", L"", L"c.tar.gz", L"gz", L"c.tar", L"c.tar"},
        {L"noext", L"", L"noext", L"", L"noext", L"noext"},
        {L"/a.d/b", L"/a.d/", L"b", L"", L"/a.d/b", L"b"},
        {L"dir.v2/file.x", L"dir.v2/", L"file.x", L"x", L"dir.v2/file", L"file"},
        {L"/home/u/.bashrc", L"/home/u/", L".bashrc", L"", L"/home/u/.bashrc", L".bashrc"},
        {L"..hidden", L"", L"..hidden", L"", L"..hidden", L"..hidden"},
        {L"/home/u/.config.bak", L"/home/u/", L".config.bak", L"bak", L"/home/u/.config",
         L".config"},
        {L"file.", L"", L"file.", L"", L"file", L"file"},
        {L"/a/b/", L"/a/b/", L"", L"", L"/a/b/", L""},
        {L"/", L"/", L"", L"", L"/", L""},
        {L"/c.txt", L"/", L"c.txt", L"txt", L"/c", L"c"},
        {L"", L"", L"", L"", L"", L""},
        {L".", L"", L".", L"", L".", L"."},
        {L"/x/..", L"/x/", L"..", L"", L"/x/..", L".."},
        {L"a//b.c", L"a//", L"b.c", L"c", L"a//b", L"b"},
        {L"/päth/ünï.tëxt", L"/päth/", L"ünï.tëxt", L"tëxt", L"/päth/ünï", L"ünï"},
    };
    for (PathCase const& c : cases) {
        SCOPED_TRACE(narrow(c.path));
        EXPECT_EQ(getPath(c.path), c.folder);
        EXPECT_EQ(stripPath(c.path), c.leaf);
        EXPECT_EQ(getExtension(c.path), c.extension);
        EXPECT_EQ(stripExtension(c.path), c.withoutExtension);
        EXPECT_EQ(stripPathAndExt(c.path), c.leafWithoutExtension);
        EXPECT_EQ(getPath(c.path) + stripPath(c.path), c.path);
    }
}

class FilesOnDisk : public ::testing::Test {
protected:
    WString pathOf(wchar_t const* leaf) const {
        return fromUTF8(folder_.path().c_str()) + L"/" + leaf;
    }
    void touch(WString const& path) const { std::ofstream(narrow(path)) << "x"; }

    TemporaryDirectory folder_;
};

TEST_F(FilesOnDisk, FileExistsFollowsCreationAndDeletion) {
    WString file = pathOf(L"données é.txt");
    EXPECT_FALSE(fileExists(file));
    touch(file);
    EXPECT_TRUE(std::filesystem::exists(narrow(file)));
    EXPECT_TRUE(fileExists(file));
    EXPECT_TRUE(deleteFile(file));
    EXPECT_FALSE(fileExists(file));
    EXPECT_FALSE(deleteFile(file));
}

TEST_F(FilesOnDisk, FoldersExistButAreNotDeleted) {
    WString folder = pathOf(L"sub");
    std::filesystem::create_directory(narrow(folder));
    EXPECT_TRUE(fileExists(folder));
    EXPECT_FALSE(deleteFile(folder));
    EXPECT_TRUE(std::filesystem::is_directory(narrow(folder)));
}

TEST_F(FilesOnDisk, DanglingLinkCountsAsExisting) {
    WString link = pathOf(L"link");
    std::filesystem::create_symlink(narrow(pathOf(L"nowhere")), narrow(link));
    EXPECT_TRUE(fileExists(link));
    EXPECT_TRUE(deleteFile(link));
    EXPECT_FALSE(fileExists(link));
}

TEST(FileExists, EmptyPathNamesNothing) {
    EXPECT_FALSE(fileExists(L""));
    EXPECT_FALSE(deleteFile(L""));
}

struct NameCase {
    WString text;
    unsigned flags;
    wchar_t replacement;
    wchar_t const* expected;
};

TEST(ValidateFileName, ReplacesWhatANameCannotHold) {
    NameCase const cases[] = {
        {L"report 2024.txt", 0, L'_', L"report 2024.txt"},
        {L"report/2024", 0, L'_', L"report_2024"},
        {L"a/b/c", validateAllowSeparators, L'_', L"a/b/c"},
        {L"/lead/", 0, L'-', L"-lead-"},
        {L"tab\there", 0, L'_', L"tab_here"},
        {L"line\nfeed\r", 0, L'_', L"line_feed_"},
        {L"bell\x07", validateAllowSeparators, L'_', L"bell_"},
        {L"del\x7F", 0, L'_', L"del_"},
        {L"c1\x85", 0, L'_', L"c1_"},
        {WString(L"nul\0x", 5), 0, L'_', L"nul_x"},
        {L"é/ü €", 0, L'-', L"é-ü €"},
        {L"a:b*c?", 0, L'_', L"a:b*c?"},
        {L".", 0, L'_', L"_"},
        {L"..", 0, L'_', L"_"},
        {L"", 0, L'_', L"_"},
        {L"/", 0, L'_', L"_"},
        {L"...", 0, L'_', L"..."},
        {L".hidden", 0, L'_', L".hidden"},
    };
    for (NameCase const& c : cases) {
        SCOPED_TRACE(narrow(c.text));
        EXPECT_EQ(validateFileName(c.text, c.flags, c.replacement), c.expected);
    }
}

TEST(ValidateFileName, LeavesNoIllegalCharacter) {
    WString illegal = Qor::FilespecUtils::getIllegalNameCharacters();
    ASSERT_EQ(illegal.size(), 2u);
    EXPECT_NE(illegal.find(L'/'), WString::npos);
    EXPECT_NE(illegal.find(L'\0'), WString::npos);
    for (wchar_t c : illegal) {
        WString name = L"a";
        name.push_back(c);
        name.append(L"b");
        WString valid = validateFileName(name, 0, L'_');
        EXPECT_EQ(valid, L"a_b");
        EXPECT_EQ(valid.find(c), WString::npos);
    }
}

TEST(Icons, LiveInTheResourceDirectory) {
    ScopedEnvironment environment;
    environment.unset("PANELKIT_ICONS");
    ScopedResourceTable table("1\tone\n");
    WString expected = fromUTF8(table.directory().c_str()) + L"/icons/";
    EXPECT_EQ(getIconsDirectory(), expected);
    EXPECT_EQ(getIconPath(L"poot.png"), expected + L"poot.png");
}

TEST(Icons, ShippedIconsSitBesideTheShippedStrings) {
    ScopedEnvironment environment;
    environment.unset("PANELKIT_ICONS");
    environment.unset("PANELKIT_RESOURCES");
    ResourceTable::instance().reload();
    std::filesystem::path dir = narrow(getIconsDirectory());
    EXPECT_EQ(dir.parent_path().parent_path(), ResourceTable::instance().resourceDirectory());
    EXPECT_TRUE(std::filesystem::exists(dir.parent_path().parent_path() / "strings" / "en.txt"));
}

TEST(Icons, VariableOverridesTheFolder) {
    ScopedEnvironment environment;
    environment.set("PANELKIT_ICONS", "/opt/icons");
    EXPECT_EQ(getIconsDirectory(), L"/opt/icons/");
    EXPECT_EQ(getIconPath(L"eye-open.png"), L"/opt/icons/eye-open.png");
    environment.set("PANELKIT_ICONS", "/opt/icons/");
    EXPECT_EQ(getIconsDirectory(), L"/opt/icons/");
}

} // namespace
