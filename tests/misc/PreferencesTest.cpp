#include "misc/Preferences.h"

#include "os/Paths.h"
#include "support/DiagnosticCapture.h"
#include "support/OnThreads.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using WideText = LightweightString<wchar_t>;

class PreferencesTest : public ::testing::Test {
protected:
    std::string read(std::string const& path) const {
        std::string contents;
        Paths::readFile(path, contents);
        return contents;
    }
    void write(std::string const& path, std::string const& contents) const {
        std::ofstream(path, std::ios::binary | std::ios::trunc) << contents;
    }

    TemporaryDirectory directory_;
    std::string path_ = directory_.file("preferences.json");
    std::string badPath_ = path_ + ".bad";
};

TEST_F(PreferencesTest, ValuesSurviveARestartAndAChangedValueReplacesTheStoredOne) {
    {
        EditorPreferences store(path_);
        store.setPreference("Behaviour : Menu Pins", true);
        store.setPreference("FileBrowser sort key", -2);
        store.setPreference("Menu (File > Recent)", L"Gr\u00fc\u00dfe \u2713 \U0001F600");
        store.setPreference("FileBrowser size", XY<int>(800, -600));
        store.setPreference(LightweightString<char>("quote\"and\\key"), WideText(L"a\"b\\c\n"));
        store.setPreference("n", 1);
        store.setPreference("n", L"now text");
    }
    EditorPreferences restarted(path_);
    EXPECT_TRUE(restarted.getPreference("Behaviour : Menu Pins", false));
    EXPECT_EQ(restarted.getPreference("FileBrowser sort key", 0), -2);
    EXPECT_EQ(restarted.getPreference("Menu (File > Recent)", L""),
              WideText(L"Gr\u00fc\u00dfe \u2713 \U0001F600"));
    EXPECT_EQ(restarted.getPreference("FileBrowser size", XY<int>()), XY<int>(800, -600));
    EXPECT_EQ(restarted.getPreference("quote\"and\\key", L""), WideText(L"a\"b\\c\n"));
    EXPECT_EQ(restarted.getPreference("n", 0), 0);
    EXPECT_EQ(restarted.getPreference("n", L""), WideText(L"now text"));
}

TEST_F(PreferencesTest, KeysNeverSetAndValuesOfTheWrongTypeGiveTheDefault) {
    EXPECT_EQ(prefs().path(), Paths::configDirectory() + "/preferences.json");
    EditorPreferences empty(path_);
    EXPECT_EQ(empty.getPreference("FileBrowser size", XY<int>(640, 480)), XY<int>(640, 480));
    EXPECT_FALSE(std::filesystem::exists(path_)) << "reading must not create the file";

    write(path_, R"({"text": "5", "int": 5, "bool": true, "fraction": 2.5, "whole": 3.0,
                    "huge": 1e20, "short": [1], "mixed": [1, "2"], "pair": [4, 5], "null": null})");
    EditorPreferences store(path_);
    EXPECT_EQ(store.getPreference("text", 9), 9);
    EXPECT_EQ(store.getPreference("int", L"d"), WideText(L"d"));
    EXPECT_FALSE(store.getPreference("int", false)) << "a number is not a bool";
    EXPECT_EQ(store.getPreference("bool", 9), 9) << "a bool is not a number";
    EXPECT_EQ(store.getPreference("fraction", 9), 9);
    EXPECT_EQ(store.getPreference("whole", 9), 3);
    EXPECT_EQ(store.getPreference("huge", 9), 9);
    EXPECT_EQ(store.getPreference("null", L"d"), WideText(L"d"));
    for (char const* key : {"short", "mixed", "int"})
        EXPECT_EQ(store.getPreference(key, XY<int>(7, 8)), XY<int>(7, 8)) << key;
    EXPECT_EQ(store.getPreference("pair", XY<int>(7, 8)), XY<int>(4, 5));
}

TEST_F(PreferencesTest, CorruptFileIsSetAsideWithOneDiagnosticAndTheStoreStartsEmpty) {
    std::vector<std::string> const corrupt = {"not json at all", "{\"a\": 1", "[1, 2]",
                                              "{\"a\": \"\xff\"}", ""};
    for (std::string const& contents : corrupt) {
        write(badPath_, "an older bad file");
        write(path_, contents);
        DiagnosticCapture diagnostics;
        EditorPreferences store(path_);

        ASSERT_EQ(diagnostics.lines().size(), 1u) << contents;
        std::string const& line = diagnostics.lines().front();
        EXPECT_NE(line.find(path_ + " "), std::string::npos) << line;
        EXPECT_NE(line.find(badPath_), std::string::npos) << line;
        EXPECT_EQ(read(badPath_), contents) << "the corrupt text must be kept for the user";
        EXPECT_EQ(store.getPreference("a", 0), 0);

        store.setPreference("a", 7);
        EXPECT_EQ(EditorPreferences(path_).getPreference("a", 0), 7);
        EXPECT_EQ(read(badPath_), contents) << "a later write must not touch the set-aside file";
        std::filesystem::remove(path_);
    }
}

TEST_F(PreferencesTest, SettingAnUnchangedValueDoesNotRewriteTheFile) {
    EditorPreferences store(path_);
    store.setPreference("size", XY<int>(1, 2));
    write(path_, "{\"changed\": \"outside\"}");
    store.setPreference("size", XY<int>(1, 2));
    EXPECT_EQ(read(path_), "{\"changed\": \"outside\"}");
    store.setPreference("size", XY<int>(1, 3));
    EXPECT_NE(read(path_).find("size"), std::string::npos);
}

TEST_F(PreferencesTest, WriteFailureIsReportedOnceAndTheValueKeptInMemory) {
    // A path below a plain file cannot be written, even by a privileged user.
    write(directory_.file("plain"), "");
    std::string unwritable = directory_.file("plain/preferences.json");
    DiagnosticCapture diagnostics;
    EditorPreferences store(unwritable);
    store.setPreference("a", 1);
    store.setPreference("b", L"two");
    EXPECT_EQ(store.getPreference("a", 0), 1);
    EXPECT_EQ(store.getPreference("b", L""), WideText(L"two"));
    ASSERT_EQ(diagnostics.lines().size(), 1u);
    EXPECT_NE(diagnostics.lines().front().find(unwritable), std::string::npos);
}

TEST_F(PreferencesTest, ConcurrentSettersLeaveAValidFileWithEveryValue) {
    {
        EditorPreferences store(path_);
        onThreads(6, [&store](int t) {
            for (int i = t * 1000; i < t * 1000 + 40; ++i)
                store.setPreference(std::to_string(i).c_str(), i);
        });
    }
    EditorPreferences restarted(path_);
    int missing = 0;
    for (int t = 0; t < 6; ++t)
        for (int i = t * 1000; i < t * 1000 + 40; ++i)
            missing += restarted.getPreference(std::to_string(i).c_str(), -1) != i;
    EXPECT_EQ(missing, 0);
    auto files = std::distance(std::filesystem::directory_iterator(directory_.path()),
                               std::filesystem::directory_iterator());
    EXPECT_EQ(files, 1) << "no temporary file may be left behind";
}

} // namespace
