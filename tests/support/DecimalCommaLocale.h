#pragma once

// Switches LC_NUMERIC to a locale whose decimal point is a comma, for tests that must show number
// text ignores the locale; restores the previous locale on destruction. When no such locale is
// installed, one is compiled from the system's locale sources into the test home (once per run).
// active() is false when neither works, and the test should then skip.

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <string>

class DecimalCommaLocale {
public:
    DecimalCommaLocale() : previous_(std::setlocale(LC_NUMERIC, nullptr)) {
        active_ = tryInstalled() || tryCompiled();
        if (!active_)
            std::setlocale(LC_NUMERIC, previous_.c_str());
    }
    ~DecimalCommaLocale() { std::setlocale(LC_NUMERIC, previous_.c_str()); }
    DecimalCommaLocale(DecimalCommaLocale const&) = delete;
    DecimalCommaLocale& operator=(DecimalCommaLocale const&) = delete;

    bool active() const { return active_; }

private:
    static bool trySet(char const* name) {
        return std::setlocale(LC_NUMERIC, name) &&
               std::strcmp(std::localeconv()->decimal_point, ",") == 0;
    }

    static bool tryInstalled() {
        for (char const* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nl_NL.UTF-8",
                                 "it_IT.UTF-8", "ru_RU.UTF-8", "de_DE"})
            if (trySet(name))
                return true;
        return false;
    }

    // Only LC_NUMERIC is switched, so pointing LOCPATH at the compiled locale for the lookup and
    // restoring it afterwards leaves every other category as it was.
    static bool tryCompiled() {
        static std::string const folder = compile();
        if (folder.empty())
            return false;
        char const* old = std::getenv("LOCPATH");
        std::string kept = old ? old : "";
        ::setenv("LOCPATH", folder.c_str(), 1);
        bool ok = trySet("de_DE.UTF-8");
        if (old)
            ::setenv("LOCPATH", kept.c_str(), 1);
        else
            ::unsetenv("LOCPATH");
        return ok;
    }

    static std::string compile() {
        std::string folder = std::string(PANELKIT_TEST_HOME) + "/locale";
        std::string command = "mkdir -p '" + folder + "' && localedef -i de_DE -f UTF-8 '" +
                              folder + "/de_DE.UTF-8' >/dev/null 2>&1";
        return std::system(command.c_str()) == 0 ? folder : std::string();
    }

    std::string previous_;
    bool active_ = false;
};
