#include "misc/Settings.h"

#include "os/Paths.h"
#include "support/DecimalCommaLocale.h"
#include "support/DiagnosticCapture.h"
#include "support/OnThreads.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

// Points the process settings at a file of the test's own, with no PANELKIT_ overrides inherited
// from the caller, and rereads the real ones afterwards.
class SettingsTest : public ::testing::Test {
protected:
    SettingsTest() {
        environment_.set("PANELKIT_SETTINGS", path_);
        for (char const* key : {"a", "b", "n", "menu_auto_close", "adjust"})
            environment_.unset(std::string("PANELKIT_") + key);
        Settings::instance().reload();
    }
    ~SettingsTest() override {
        environment_.restore();
        Settings::instance().reload();
    }

    void write(std::string const& contents) {
        std::ofstream(path_, std::ios::binary | std::ios::trunc) << contents;
        Settings::instance().reload();
    }

    TemporaryDirectory directory_;
    std::string path_ = directory_.file("settings");
    ScopedEnvironment environment_;
    DiagnosticCapture diagnostics_;
};

TEST_F(SettingsTest, MissingFileGivesEveryDefaultSilentlyAndIsLookedForInTheConfigurationFolder) {
    EXPECT_EQ(config_int("menu_auto_close", 0), 0);
    EXPECT_EQ(config_double("adjust", 0.7), 0.7);
    EXPECT_FALSE(Settings::instance().isSet("adjust"));
    EXPECT_TRUE(diagnostics_.lines().empty());
    EXPECT_EQ(Settings::instance().sourcePath(), path_);
    environment_.unset("PANELKIT_SETTINGS");
    Settings::instance().reload();
    EXPECT_EQ(Settings::instance().sourcePath(), Paths::configDirectory() + "/settings");
}

TEST_F(SettingsTest, ReadsValuesAroundCommentsBlanksAndBadLinesAndLaterLinesWin) {
    write("# whole-line comment\n"
          "\n"
          "   \t\n"
          "n = 1\n"
          "  menu_auto_close=1   # after the value\n"
          "this line is wrong\n"
          "adjust\t=\t0.25\r\n"
          "= 5\n"
          "scientific = 1.5e2\n"
          "name = some text with spaces   \n"
          "n = 2\n");
    EXPECT_EQ(config_int("menu_auto_close", 0), 1);
    EXPECT_EQ(config_double("adjust", 0.7), 0.25);
    EXPECT_EQ(config_double("scientific", 0), 150.0);
    EXPECT_EQ(config_double("menu_auto_close", 0), 1.0);
    EXPECT_EQ(Settings::instance().text("name"), "some text with spaces");
    EXPECT_EQ(config_int("n", 0), 2);
    ASSERT_EQ(diagnostics_.lines().size(), 2u);
    EXPECT_NE(diagnostics_.lines()[0].find(path_ + " line 6"), std::string::npos);
    EXPECT_NE(diagnostics_.lines()[1].find(path_ + " line 8"), std::string::npos);
}

// Each bad value sits on line 3 of the file; the reader must name the key, the file and the line,
// and the default it falls back on, once however often the key is read.
TEST_F(SettingsTest, MalformedValueIsReportedOnceWithKeyFileLineAndDefault) {
    struct Case {
        char const* text;
        bool isDouble;
    } const cases[] = {{"yes", false}, {"", false},   {"99999999999", false},
                       {"0,7", true},  {"inf", true}, {"1e999", true}};
    for (auto const& c : cases) {
        diagnostics_.clear();
        write(std::string("# settings\nother = 1\nadjust = ") + c.text + "\n");
        for (int read = 0; read < 2; ++read) {
            if (c.isDouble)
                EXPECT_EQ(config_double("adjust", 0.7), 0.7) << c.text;
            else
                EXPECT_EQ(config_int("adjust", 7), 7) << c.text;
        }
        ASSERT_EQ(diagnostics_.lines().size(), 1u) << c.text;
        std::string const& line = diagnostics_.lines().front();
        EXPECT_NE(line.find("adjust"), std::string::npos) << line;
        EXPECT_NE(line.find(path_ + " line 3"), std::string::npos) << line;
        EXPECT_NE(line.find(c.isDouble ? "default 0.7" : "default 7"), std::string::npos) << line;
    }
}

TEST_F(SettingsTest, EnvironmentVariableOverridesTheFileAndIsNamedWhenMalformed) {
    write("menu_auto_close = 0\nadjust = 0.5\n");
    environment_.set("PANELKIT_menu_auto_close", " 1 ");
    environment_.set("PANELKIT_only_in_environment", "12");
    environment_.set("PANELKIT_n", "yes");
    Settings::instance().reload();
    EXPECT_EQ(config_int("menu_auto_close", 0), 1);
    EXPECT_EQ(config_int("only_in_environment", 0), 12);
    EXPECT_EQ(config_double("adjust", 0.7), 0.5);
    EXPECT_EQ(config_int("n", 0), 0);
    ASSERT_EQ(diagnostics_.lines().size(), 1u);
    EXPECT_NE(diagnostics_.lines().front().find("environment variable PANELKIT_n"),
              std::string::npos)
        << diagnostics_.lines().front();
}

TEST_F(SettingsTest, DoublesIgnoreTheProcessLocale) {
    DecimalCommaLocale comma;
    if (!comma.active())
        GTEST_SKIP() << "no locale with a decimal comma installed";
    write("adjust = 0.25\nbad = x\n");
    EXPECT_EQ(config_double("adjust", 0.7), 0.25);
    EXPECT_EQ(config_double("bad", 0.7), 0.7);
    EXPECT_EQ(diagnostics_.count("default 0.7"), 1u);
}

TEST_F(SettingsTest, UnreadableFileIsReportedOnceAndDefaultsStand) {
    std::filesystem::create_directory(path_);
    Settings::instance().reload();
    EXPECT_EQ(config_int("a", 3), 3);
    ASSERT_EQ(diagnostics_.lines().size(), 1u);
    EXPECT_NE(diagnostics_.lines().front().find(path_), std::string::npos);
}

TEST_F(SettingsTest, ConcurrentReadersAndReloadsAgree) {
    write("n = 5\nbad = no\n");
    std::atomic<int> wrong = 0;
    // The last thread rereads the file while the others read.
    onThreads(5, [&wrong](int t) {
        for (int i = 0; i < 200; ++i) {
            if (t == 4)
                Settings::instance().reload();
            else
                wrong += (config_int("n", 0) != 5) + (config_int("bad", 1) != 1);
        }
    });
    EXPECT_EQ(wrong, 0);
}

} // namespace
