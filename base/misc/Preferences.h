#pragma once

// The user's preferences: typed values by name, kept in a JSON file that every change rewrites
// whole and atomically, so a restart finds what was set and a crash never leaves half a file.
// prefs() is the process store in the configuration folder; any thread may use it.

#include "os/CriticalSection.h"
#include "qor/LightweightString.h"
#include "qor/XY.h"

#include <memory>
#include <string>

namespace Loki {
template <class T>
struct CreateUsingNew;
}

class EditorPreferences {
public:
    // A store of its own on the given file, loaded now. A file that is not a JSON object is moved
    // aside to <path>.bad and the store starts empty.
    explicit EditorPreferences(std::string path);
    ~EditorPreferences();
    EditorPreferences(EditorPreferences const&) = delete;
    EditorPreferences& operator=(EditorPreferences const&) = delete;

    static EditorPreferences& instance();

    // A missing key, or a value of another type, gives the default.
    bool getPreference(LightweightString<char> const& key, bool defaultValue) const;
    int getPreference(LightweightString<char> const& key, int defaultValue) const;
    LightweightString<wchar_t> getPreference(LightweightString<char> const& key,
                                             LightweightString<wchar_t> const& defaultValue) const;
    LightweightString<wchar_t> getPreference(LightweightString<char> const& key,
                                             wchar_t const* defaultValue) const;
    XY<int> getPreference(LightweightString<char> const& key, XY<int> const& defaultValue) const;
    // Narrow text would otherwise quietly become a bool.
    bool getPreference(LightweightString<char> const& key, char const* defaultValue) const = delete;

    // A change rewrites the file. A failed write keeps the value in memory and is reported, once
    // for a run of failures, so that a read-only folder does not flood the log.
    void setPreference(LightweightString<char> const& key, bool value);
    void setPreference(LightweightString<char> const& key, int value);
    void setPreference(LightweightString<char> const& key, LightweightString<wchar_t> const& value);
    void setPreference(LightweightString<char> const& key, wchar_t const* value);
    void setPreference(LightweightString<char> const& key, XY<int> const& value);
    void setPreference(LightweightString<char> const& key, char const* value) = delete;

    std::string const& path() const { return path_; }

private:
    // The process store's file; only prefs() makes one, so that one object owns that file.
    friend struct Loki::CreateUsingNew<EditorPreferences>;
    EditorPreferences();

    struct Values;

    void load();
    void setAside(std::string const& reason);
    template <class Value>
    void store(LightweightString<char> const& key, Value const& value);
    void save();

    mutable CriticalSection lock_;
    std::string path_;
    std::unique_ptr<Values> values_;
    bool writeFailing_ = false;
};

EditorPreferences& prefs();
