#include "glob/UIAppearanceSettings.h"

bool UIAppearanceSettings::find(LightweightString<char> const& key,
                                LightweightString<wchar_t>& out) const {
    auto const found = params.find(key);
    if (found == params.end())
        return false;
    out = found->second;
    return true;
}
