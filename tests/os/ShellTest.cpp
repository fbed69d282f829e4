#include "os/OS.h"

#include "glib/Font.h"
#include "qor/UTF8.h"
#include "support/DecimalCommaLocale.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;
using namespace std::chrono_literals;

std::string narrow(WString const& text) {
    return toUTF8(text).str();
}

// An opener that writes its argument count and arguments, one a line, to the file that $RECORD
// names, after `delay` seconds. It writes to a temporary file and renames it, so the record is
// either absent or whole.
class RecordingOpener {
public:
    explicit RecordingOpener(char const* delay = "0") {
        std::string script = folder_.file("opener.sh");
        std::ofstream(script) << "#!/bin/sh\nsleep " << delay
                              << "\nprintf '%s\\n' \"$#\" \"$@\" > \"$RECORD.part\"\n"
                                 "mv \"$RECORD.part\" \"$RECORD\"\n";
        ::chmod(script.c_str(), 0755);
        environment_.set("PANELKIT_OPENER", script);
        environment_.set("RECORD", record());
    }

    std::string record() const { return folder_.file("record"); }
    bool recorded() const { return std::filesystem::exists(record()); }

    // The lines of the record, once it is there (empty after five seconds without one).
    std::vector<std::string> arguments() const {
        for (int i = 0; i < 500 && !recorded(); ++i)
            std::this_thread::sleep_for(10ms);
        std::vector<std::string> lines;
        std::ifstream in(record());
        for (std::string line; std::getline(in, line);)
            lines.push_back(line);
        return lines;
    }

private:
    TemporaryDirectory folder_;
    ScopedEnvironment environment_;
};

TEST(ShellOpen, TheTargetReachesTheOpenerAsOneArgumentWithoutWaitingForIt) {
    {
        RecordingOpener opener("1");
        auto started = std::chrono::steady_clock::now();
        EXPECT_TRUE(OS()->openURL(L"https://example.org/a b?q=\u00e9&x=1"));
        EXPECT_LT(std::chrono::steady_clock::now() - started, 500ms);
        EXPECT_FALSE(opener.recorded());
        EXPECT_EQ(opener.arguments(),
                  (std::vector<std::string>{"1", "https://example.org/a b?q=\xc3\xa9&x=1"}));
    }
    // A file whose name looks like an option is passed as a path.
    RecordingOpener opener;
    EXPECT_TRUE(OS()->openFile(L"-rf"));
    EXPECT_EQ(opener.arguments(), (std::vector<std::string>{"1", "./-rf"}));
}

TEST(ShellOpen, AnOpenerThatCannotStartOrAnEmptyTargetAnswersFalse) {
    RecordingOpener opener;
    EXPECT_FALSE(OS()->openURL(WString()));
    ScopedEnvironment missing;
    missing.set("PANELKIT_OPENER", "/nonexistent/panelkit-opener");
    EXPECT_FALSE(OS()->openURL(L"https://example.org/"));
    EXPECT_FALSE(OS()->openFile(L"/tmp/x"));
    missing.restore();
    std::this_thread::sleep_for(100ms);
    EXPECT_FALSE(opener.recorded());
}

TEST(FixedPitchFont, NamesAFamilyWhoseCharactersAreAllOneWidth) {
    WString family = OS()->getFixedPitchFontName();
    ASSERT_FALSE(family.empty());
    Qor::Ptr<iFont> font = Glib::loadFont(Glib::FontDesc(toUTF8(family), 20));
    EXPECT_EQ(font->measure(L"iiiiiiii").x, font->measure(L"MMMMMMMM").x);
    EXPECT_EQ(OS()->getFixedPitchFontName(), family);
}

// Sets TZ for a test and makes the C library read it again afterwards.
class ScopedTimeZone {
public:
    explicit ScopedTimeZone(char const* zone) {
        environment_.set("TZ", zone);
        ::tzset();
    }
    ~ScopedTimeZone() {
        environment_.restore();
        ::tzset();
    }

private:
    ScopedEnvironment environment_;
};

// Switches LC_TIME to German, whose month names differ, where it can: installed, or compiled into
// the test home (DecimalCommaLocale compiles it when none is installed).
class GermanTimeLocale {
public:
    GermanTimeLocale() : previous_(std::setlocale(LC_TIME, nullptr)) {
        DecimalCommaLocale compiled;
        if (std::setlocale(LC_TIME, "de_DE.UTF-8") == nullptr) {
            ScopedEnvironment path;
            path.set("LOCPATH", std::string(PANELKIT_TEST_HOME) + "/locale");
            std::setlocale(LC_TIME, "de_DE.UTF-8");
        }
    }
    ~GermanTimeLocale() { std::setlocale(LC_TIME, previous_.c_str()); }

private:
    std::string previous_;
};

TEST(FileTimes, AreDayMonthYearHoursMinutesInLocalTimeWithEnglishMonthsWhateverTheLocale) {
    GermanTimeLocale german;
    struct Case {
        char const* zone;
        long long seconds;
        char const* text;
    } const cases[] = {
        {"UTC0", 1709647679, "05 Mar 2024 14:07"},
        {"IST-5:30", 0, "01 Jan 1970 05:30"},
        {"EST5", 1735689600, "31 Dec 2024 19:00"},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(std::string(c.zone) + " " + std::to_string(c.seconds));
        ScopedTimeZone zone(c.zone);
        EXPECT_EQ(narrow(OS()->formatFileTime(c.seconds)), c.text);
    }
}

} // namespace
