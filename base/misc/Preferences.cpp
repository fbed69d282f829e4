#include "misc/Preferences.h"

#include "os/Diagnostics.h"
#include "os/Paths.h"
#include "qor/Singleton.h"
#include "qor/UTF8.h"

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

using Json = nlohmann::json;

struct EditorPreferences::Values {
    Json object = Json::object();

    Json const* find(LightweightString<char> const& key) const {
        auto it = object.find(std::string(key.view()));
        return it != object.end() ? &*it : nullptr;
    }
};

namespace {

// Integral numbers within int range; 3.0 counts, 3.5 does not.
bool readInt(Json const& value, int& result) {
    double number = 0;
    if (value.is_number_unsigned())
        number = double(value.get<std::uint64_t>());
    else if (value.is_number_integer())
        number = double(value.get<std::int64_t>());
    else if (value.is_number_float())
        number = value.get<double>();
    else
        return false;
    if (number != std::trunc(number) || number < INT_MIN || number > INT_MAX)
        return false;
    result = int(number);
    return true;
}

bool fileExists(std::string const& path) {
    struct stat info;
    return ::stat(path.c_str(), &info) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

} // namespace

EditorPreferences::EditorPreferences(std::string path)
    : path_(std::move(path)), values_(std::make_unique<Values>()) {
    load();
}

EditorPreferences::EditorPreferences()
    : EditorPreferences(Paths::configDirectory() + "/preferences.json") {}

EditorPreferences::~EditorPreferences() = default;

EditorPreferences& EditorPreferences::instance() {
    return Qor::Singleton<EditorPreferences>::Instance();
}

EditorPreferences& prefs() {
    return EditorPreferences::instance();
}

bool EditorPreferences::getPreference(LightweightString<char> const& key, bool defaultValue) const {
    CriticalSection::Lock hold(lock_);
    Json const* value = values_->find(key);
    return value != nullptr && value->is_boolean() ? value->get<bool>() : defaultValue;
}

int EditorPreferences::getPreference(LightweightString<char> const& key, int defaultValue) const {
    CriticalSection::Lock hold(lock_);
    Json const* value = values_->find(key);
    int result = defaultValue;
    return value != nullptr && readInt(*value, result) ? result : defaultValue;
}

LightweightString<wchar_t>
EditorPreferences::getPreference(LightweightString<char> const& key,
                                 LightweightString<wchar_t> const& defaultValue) const {
    CriticalSection::Lock hold(lock_);
    Json const* value = values_->find(key);
    if (value == nullptr || !value->is_string())
        return defaultValue;
    auto const& text = value->get_ref<Json::string_t const&>();
    return fromUTF8(text.data(), unsigned(text.size()));
}

LightweightString<wchar_t> EditorPreferences::getPreference(LightweightString<char> const& key,
                                                            wchar_t const* defaultValue) const {
    return getPreference(key, LightweightString<wchar_t>(defaultValue));
}

XY<int> EditorPreferences::getPreference(LightweightString<char> const& key,
                                         XY<int> const& defaultValue) const {
    CriticalSection::Lock hold(lock_);
    Json const* value = values_->find(key);
    XY<int> result;
    if (value == nullptr || !value->is_array() || value->size() != 2 ||
        !readInt((*value)[0], result.x) || !readInt((*value)[1], result.y))
        return defaultValue;
    return result;
}

void EditorPreferences::setPreference(LightweightString<char> const& key, bool value) {
    store(key, value);
}

void EditorPreferences::setPreference(LightweightString<char> const& key, int value) {
    store(key, value);
}

void EditorPreferences::setPreference(LightweightString<char> const& key,
                                      LightweightString<wchar_t> const& value) {
    store(key, toUTF8(value).str());
}

void EditorPreferences::setPreference(LightweightString<char> const& key, wchar_t const* value) {
    setPreference(key, LightweightString<wchar_t>(value));
}

void EditorPreferences::setPreference(LightweightString<char> const& key, XY<int> const& value) {
    store(key, Json::array({value.x, value.y}));
}

void EditorPreferences::load() {
    std::string text;
    if (!Paths::readFile(path_, text)) {
        if (fileExists(path_))
            diag_printf("preferences: cannot read %s; starting with none", path_.c_str());
        return;
    }
    Json parsed = Json::parse(text, nullptr, false);
    if (parsed.is_discarded())
        setAside("is not valid JSON");
    else if (!parsed.is_object())
        setAside("does not hold a JSON object");
    else
        values_->object = std::move(parsed);
}

// Keeps the unreadable file for the user instead of overwriting it with the next change.
void EditorPreferences::setAside(std::string const& reason) {
    std::string bad = path_ + ".bad";
    if (std::rename(path_.c_str(), bad.c_str()) == 0)
        diag_printf("preferences: %s %s; moved it to %s and starting with none", path_.c_str(),
                    reason.c_str(), bad.c_str());
    else
        diag_printf("preferences: %s %s and could not be moved to %s (%s); starting with none",
                    path_.c_str(), reason.c_str(), bad.c_str(), std::strerror(errno));
}

template <class Value>
void EditorPreferences::store(LightweightString<char> const& key, Value const& value) {
    CriticalSection::Lock hold(lock_);
    Json& slot = values_->object[std::string(key.view())];
    Json updated(value);
    if (slot == updated)
        return;
    slot = std::move(updated);
    save();
}

void EditorPreferences::save() {
    std::string text = values_->object.dump(4, ' ', false, Json::error_handler_t::replace) + "\n";
    if (Paths::writeFileAtomically(path_, text)) {
        writeFailing_ = false;
        return;
    }
    if (!writeFailing_)
        diag_printf("preferences: cannot write %s; changes are kept until the program ends",
                    path_.c_str());
    writeFailing_ = true;
}
