#pragma once

// The icon files of one control: up to three names (for example normal, pressed and inactive),
// each a file name in the icons folder.

#include "qor/LightweightString.h"

#include <array>

class IconSet {
public:
    IconSet() = default;
    explicit IconSet(LightweightString<wchar_t> const& name);
    IconSet(LightweightString<wchar_t> const& name, LightweightString<wchar_t> const& name2);
    IconSet(LightweightString<wchar_t> const& name, LightweightString<wchar_t> const& name2,
            LightweightString<wchar_t> const& name3);

    bool operator==(IconSet const& other) const { return names_ == other.names_; }
    bool operator!=(IconSet const& other) const { return !(*this == other); }

    // The name in place `index` (0 to 2); empty when the set has none there.
    LightweightString<wchar_t> const& name(unsigned index) const { return names_.at(index); }
    bool isEmpty() const { return names_[0].empty(); }

    static LightweightString<wchar_t> getFullIconPath(LightweightString<wchar_t> const& name);

private:
    std::array<LightweightString<wchar_t>, 3> names_;
};
