#include "misc/Settings.h"

#include "misc/Config.h"
#include "os/Diagnostics.h"
#include "os/Paths.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>

extern char** environ;

namespace {

constexpr char const* EnvironmentPrefix = "PANELKIT_";

std::string_view trim(std::string_view text) {
    constexpr char const* blanks = " \t\r\f\v";
    std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// C-locale parsing, whatever setlocale() says; only finite values count.
bool parseDouble(std::string_view text, double& value) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    double parsed = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(parsed))
        return false;
    value = parsed;
    return true;
}

// The shortest text that reads back as the same double, independent of the locale.
std::string formatDouble(double value) {
    char buffer[64];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

} // namespace

int config_int(char const* key, int defaultValue) {
    return Settings::instance().intValue(key, defaultValue);
}

double config_double(char const* key, double defaultValue) {
    return Settings::instance().doubleValue(key, defaultValue);
}

Settings& Settings::instance() {
    static Settings* const settings = new Settings;
    return *settings;
}

Settings::Settings() {
    reload();
}

void Settings::reload() {
    CriticalSection::Lock hold(lock_);
    char const* chosen = std::getenv("PANELKIT_SETTINGS");
    path_ = chosen != nullptr && *chosen != '\0' ? std::string(chosen)
                                                 : Paths::configDirectory() + "/settings";
    entries_.clear();
    reported_.clear();
    readFile();
    readEnvironment();
}

std::string Settings::sourcePath() const {
    CriticalSection::Lock hold(lock_);
    return path_;
}

LightweightString<char> Settings::text(char const* key) const {
    CriticalSection::Lock hold(lock_);
    Entry const* entry = find(key);
    return entry != nullptr ? LightweightString<char>(std::string_view(entry->value))
                            : LightweightString<char>();
}

bool Settings::isSet(char const* key) const {
    CriticalSection::Lock hold(lock_);
    return find(key) != nullptr;
}

int Settings::intValue(char const* key, int defaultValue) {
    CriticalSection::Lock hold(lock_);
    Entry const* entry = find(key);
    int value = defaultValue;
    if (entry != nullptr && !configb::parseInt(entry->value, value))
        reportBadValue(key, *entry, "an integer", std::to_string(defaultValue));
    return value;
}

double Settings::doubleValue(char const* key, double defaultValue) {
    CriticalSection::Lock hold(lock_);
    Entry const* entry = find(key);
    double value = defaultValue;
    if (entry != nullptr && !parseDouble(entry->value, value))
        reportBadValue(key, *entry, "a number", formatDouble(defaultValue));
    return value;
}

void Settings::readFile() {
    struct stat info;
    bool exists = ::stat(path_.c_str(), &info) == 0;
    if (!exists && (errno == ENOENT || errno == ENOTDIR))
        return;
    std::string contents;
    if (!exists || !S_ISREG(info.st_mode) || !Paths::readFile(path_, contents)) {
        diag_printf("settings: cannot read %s; using the defaults", path_.c_str());
        return;
    }
    std::string_view rest(contents);
    for (unsigned lineNumber = 1; !rest.empty(); ++lineNumber) {
        std::size_t end = std::min(rest.find('\n'), rest.size());
        readLine(rest.substr(0, end), lineNumber);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

void Settings::readLine(std::string_view line, unsigned lineNumber) {
    line = trim(line.substr(0, line.find('#')));
    if (line.empty())
        return;
    std::size_t equals = line.find('=');
    std::string_view key = equals == std::string_view::npos ? line : trim(line.substr(0, equals));
    if (equals == std::string_view::npos || key.empty()) {
        diag_printf("settings: %s line %u: expected \"key = value\", ignoring \"%.*s\"",
                    path_.c_str(), lineNumber, int(line.size()), line.data());
        return;
    }
    entries_.insert_or_assign(std::string(key),
                              Entry{std::string(trim(line.substr(equals + 1))),
                                    path_ + " line " + std::to_string(lineNumber)});
}

void Settings::readEnvironment() {
    std::size_t prefixLength = std::strlen(EnvironmentPrefix);
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
        std::string_view assignment(*variable);
        std::size_t equals = assignment.find('=');
        if (!assignment.starts_with(EnvironmentPrefix) || equals == std::string_view::npos ||
            equals == prefixLength)
            continue;
        std::string_view name = assignment.substr(0, equals);
        entries_.insert_or_assign(std::string(name.substr(prefixLength)),
                                  Entry{std::string(trim(assignment.substr(equals + 1))),
                                        "environment variable " + std::string(name)});
    }
}

Settings::Entry const* Settings::find(char const* key) const {
    auto it = entries_.find(std::string_view(key != nullptr ? key : ""));
    return it != entries_.end() ? &it->second : nullptr;
}

void Settings::reportBadValue(char const* key, Entry const& entry, char const* wanted,
                              std::string const& defaultText) {
    if (!reported_.insert(key).second)
        return;
    diag_printf("settings: %s = \"%s\" (%s) is not %s; using the default %s", key,
                entry.value.c_str(), entry.origin.c_str(), wanted, defaultText.c_str());
}
