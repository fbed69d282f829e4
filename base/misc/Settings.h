#pragma once

// Process settings: "key = value" lines read once from $PANELKIT_SETTINGS, else from
// settings in the configuration folder, where an environment variable PANELKIT_<key> overrides the
// file. config_int() and config_double() are the everyday readers; a key that is not set gives the
// caller's default, and a value that does not read as the wanted type gives the default and one
// diagnostic line for that key.

#include "os/CriticalSection.h"
#include "qor/LightweightString.h"

#include <map>
#include <set>
#include <string>

int config_int(char const* key, int defaultValue);
double config_double(char const* key, double defaultValue);

class Settings {
public:
    // Created (and the file read) on first use, which may be during static initialisation of any
    // library; never destroyed, so readers in static destructors still find it.
    static Settings& instance();

    // Reads the file and the environment again, and forgets which keys were already reported.
    void reload();
    // The file the settings come from (which need not exist).
    std::string sourcePath() const;
    // The raw text of a value after trimming, or empty when the key is not set.
    LightweightString<char> text(char const* key) const;
    bool isSet(char const* key) const;

    int intValue(char const* key, int defaultValue);
    double doubleValue(char const* key, double defaultValue);

private:
    Settings();

    // A value and where it came from, for the diagnostics.
    struct Entry {
        std::string value;
        std::string origin;
    };

    void readFile();
    void readLine(std::string_view line, unsigned lineNumber);
    void readEnvironment();
    Entry const* find(char const* key) const;
    void reportBadValue(char const* key, Entry const& entry, char const* wanted,
                        std::string const& defaultText);

    mutable CriticalSection lock_;
    std::string path_;
    std::map<std::string, Entry, std::less<>> entries_;
    std::set<std::string, std::less<>> reported_;
};
