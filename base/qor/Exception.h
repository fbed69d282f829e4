#pragma once

// Thrown on a fatal inconsistency; the widget layer otherwise reports failure by return values.

#include <stdexcept>
#include <string>

namespace Qor::Exception {

class Base : public std::runtime_error {
public:
    explicit Base(std::string const& what) : std::runtime_error(what) {}
};

class RuntimeError : public Base {
public:
    explicit RuntimeError(std::string const& what) : Base(what) {}
};

} // namespace Qor::Exception
