#include "buttons/IconSet.h"

#include "os/Files.h"

IconSet::IconSet(LightweightString<wchar_t> const& name) : names_{name, {}, {}} {}

IconSet::IconSet(LightweightString<wchar_t> const& name, LightweightString<wchar_t> const& name2)
    : names_{name, name2, {}} {}

IconSet::IconSet(LightweightString<wchar_t> const& name, LightweightString<wchar_t> const& name2,
                 LightweightString<wchar_t> const& name3)
    : names_{name, name2, name3} {}

LightweightString<wchar_t> IconSet::getFullIconPath(LightweightString<wchar_t> const& name) {
    return getIconPath(name);
}
