#include "misc/Settings.h"

#include "os/Paths.h"
#include "support/DecimalCommaLocale.h"
#include "support/DiagnosticCapture.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace {

// Points the process settings at a file of the test's own, with no PANELKIT_ overrides inherited
// from the caller, and rereads the real ones afterwards.
class SettingsTest : public ::testing::Test {
protected:
    SettingsTest() {
        environment_.set("PANELKIT_SETTINGS", path_);
        for (char const* key : {"a", "b", "n", "x", "menu_auto_close", "adjust"})
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

TEST_F(SettingsTest, KeysThatAreNotSetGiveTheDefaultSilentlyWhenTheFileIsMissing) {
    EXPECT_EQ(config_int("menu_auto_close", 0), 0);
    EXPECT_EQ(config_int("menu_auto_cascade", 1), 1);
    EXPECT_EQ(config_double("adjust", 0.7), 0.7);
    EXPECT_FALSE(Settings::instance().isSet("adjust"));
    EXPECT_TRUE(diagnostics_.lines().empty());
}

TEST_F(SettingsTest, ReadsValuesAroundCommentsBlankLinesAndSpaces) {
    write("# whole-line comment\n"
          "\n"
          "   \t\n"
          "poots_rule = 3\n"
          "  menu_auto_close=1   # after the value\n"
          "adjust\t=\t0.25\r\n"
          "negative = -4\n"
          "plus = +2\n"
          "scientific = 1.5e2\n"
          "name = some text with spaces   \n");
    EXPECT_EQ(config_int("poots_rule", 0), 3);
    EXPECT_EQ(config_int("menu_auto_close", 0), 1);
    EXPECT_EQ(config_double("adjust", 0.7), 0.25);
    EXPECT_EQ(config_int("negative", 0), -4);
    EXPECT_EQ(config_int("plus", 0), 2);
    EXPECT_EQ(config_double("scientific", 0), 150.0);
    EXPECT_EQ(config_double("poots_rule", 0), 3.0);
    EXPECT_EQ(Settings::instance().text("name"), "some text with spaces");
    EXPECT_EQ(config_int("absent", 17), 17);
    EXPECT_TRUE(diagnostics_.lines().empty());
}

TEST_F(SettingsTest, LaterLinesForTheSameKeyWin) {
    write("n = 1\nn = 2\n");
    EXPECT_EQ(config_int("n", 0), 2);
}

TEST_F(SettingsTest, EnvironmentVariableOverridesTheFile) {
    write("menu_auto_close = 0\nadjust = 0.5\n");
    environment_.set("PANELKIT_menu_auto_close", " 1 ");
    environment_.set("PANELKIT_only_in_environment", "12");
    Settings::instance().reload();
    EXPECT_EQ(config_int("menu_auto_close", 0), 1);
    EXPECT_EQ(config_int("only_in_environment", 0), 12);
    EXPECT_EQ(config_double("adjust", 0.7), 0.5);
}

// Each bad value sits on line 3 of the file; the reader must name the key, the file and the line,
// and the default it falls back on, once however often the key is read.
TEST_F(SettingsTest, MalformedIntegerIsReportedOnceWithKeyFileLineAndDefault) {
    for (char const* bad : {"yes", "1.5x", "1.5", "", "99999999999", "0x10", "1 2", "--1"}) {
        diagnostics_.clear();
        write(std::string("# settings\nother = 1\nmenu_auto_close = ") + bad + "\n");
        EXPECT_EQ(config_int("menu_auto_close", 7), 7) << bad;
        EXPECT_EQ(config_int("menu_auto_close", 7), 7) << bad;
        ASSERT_EQ(diagnostics_.lines().size(), 1u) << bad;
        std::string const& line = diagnostics_.lines().front();
        EXPECT_NE(line.find("menu_auto_close"), std::string::npos) << line;
        EXPECT_NE(line.find(path_ + " line 3"), std::string::npos) << line;
        EXPECT_NE(line.find("default 7"), std::string::npos) << line;
    }
}

TEST_F(SettingsTest, MalformedDoubleIsReportedOnceWithKeyFileLineAndDefault) {
    for (char const* bad : {"1.5x", "0,7", "nan", "inf", "1e999", "", "0x1p3", "."}) {
        diagnostics_.clear();
        write(std::string("\n\nadjust = ") + bad + "\n");
        EXPECT_EQ(config_double("adjust", 0.7), 0.7) << bad;
        EXPECT_EQ(config_double("adjust", 0.7), 0.7) << bad;
        ASSERT_EQ(diagnostics_.lines().size(), 1u) << bad;
        std::string const& line = diagnostics_.lines().front();
        EXPECT_NE(line.find("adjust"), std::string::npos) << line;
        EXPECT_NE(line.find(path_ + " line 3"), std::string::npos) << line;
        EXPECT_NE(line.find("default 0.7"), std::string::npos) << line;
    }
}

TEST_F(SettingsTest, MalformedEnvironmentValueNamesTheVariable) {
    environment_.set("PANELKIT_menu_auto_close", "yes");
    Settings::instance().reload();
    EXPECT_EQ(config_int("menu_auto_close", 0), 0);
    ASSERT_EQ(diagnostics_.lines().size(), 1u);
    EXPECT_NE(diagnostics_.lines().front().find("environment variable PANELKIT_menu_auto_close"),
              std::string::npos)
        << diagnostics_.lines().front();
}

TEST_F(SettingsTest, LineWithoutEqualsIsReportedAndTheRestStillRead) {
    write("a = 1\nthis line is wrong\n= 5\nb = 2\n");
    EXPECT_EQ(config_int("a", 0), 1);
    EXPECT_EQ(config_int("b", 0), 2);
    ASSERT_EQ(diagnostics_.lines().size(), 2u);
    EXPECT_NE(diagnostics_.lines()[0].find(path_ + " line 2"), std::string::npos);
    EXPECT_NE(diagnostics_.lines()[1].find(path_ + " line 3"), std::string::npos);
}

TEST_F(SettingsTest, ReloadRereadsTheFileAndReportsBadValuesAfresh) {
    write("x = bad\n");
    EXPECT_EQ(config_int("x", 1), 1);
    write("x = bad\n");
    EXPECT_EQ(config_int("x", 1), 1);
    EXPECT_EQ(diagnostics_.count("\"bad\""), 2u);
    write("x = 9\n");
    EXPECT_EQ(config_int("x", 1), 9);
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

TEST_F(SettingsTest, SourcePathFollowsTheEnvironmentElseTheConfigurationFolder) {
    EXPECT_EQ(Settings::instance().sourcePath(), path_);
    environment_.unset("PANELKIT_SETTINGS");
    Settings::instance().reload();
    EXPECT_EQ(Settings::instance().sourcePath(), Paths::configDirectory() + "/settings");
}

TEST_F(SettingsTest, ConcurrentReadersAndReloadsAgree) {
    write("n = 5\nbad = no\n");
    std::vector<std::thread> threads;
    std::atomic<int> wrong = 0;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 200; ++i) {
                wrong += config_int("n", 0) != 5;
                wrong += config_int("bad", 1) != 1;
            }
        });
    }
    threads.emplace_back([] {
        for (int i = 0; i < 20; ++i)
            Settings::instance().reload();
    });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
