#pragma once

// Sets or removes environment variables for a test and puts back what was there before, when
// restore() is called or the object goes.

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

class ScopedEnvironment {
public:
    ScopedEnvironment() = default;
    ~ScopedEnvironment() { restore(); }
    ScopedEnvironment(ScopedEnvironment const&) = delete;
    ScopedEnvironment& operator=(ScopedEnvironment const&) = delete;

    void set(std::string const& name, std::string const& value) {
        remember(name);
        ::setenv(name.c_str(), value.c_str(), 1);
    }
    void unset(std::string const& name) {
        remember(name);
        ::unsetenv(name.c_str());
    }
    void restore() {
        for (auto const& [name, value] : saved_) {
            if (value)
                ::setenv(name.c_str(), value->c_str(), 1);
            else
                ::unsetenv(name.c_str());
        }
        saved_.clear();
    }

private:
    // Only the first change of a variable records what to restore.
    void remember(std::string const& name) {
        if (saved_.count(name) != 0)
            return;
        char const* old = std::getenv(name.c_str());
        saved_[name] = old != nullptr ? std::optional<std::string>(old) : std::nullopt;
    }

    std::map<std::string, std::optional<std::string>> saved_;
};
