#pragma once

// What the theme registry needs of a parameter: its key, its value as text, and word of each
// change. The toolkit's parameters implement it; the base layer knows nothing more of them.

#include "qor/LightweightString.h"
#include "qor/Ptr.h"
#include "qor/UIString.h"

// Told the new text of a parameter's value after each change.
class iThemeValueListener : public virtual iObject {
public:
    virtual void handleThemeValueChange(LightweightString<char> const& id,
                                        LightweightString<wchar_t> const& value) = 0;
};

class iThemeParam : public virtual iObject {
public:
    virtual LightweightString<char> getID() const = 0;
    virtual LightweightString<wchar_t> getValueAsString() const = 0;
    // The listener stays with the parameter for the parameter's life.
    virtual void addThemeValueListener(Qor::Ptr<iThemeValueListener> const& listener) = 0;
};

// A parameter as the registry keeps it for a theme editor.
struct ThemeParamEntry {
    Qor::Ptr<iThemeParam> param;
    UIString group;
    UIString subgroup;
};
