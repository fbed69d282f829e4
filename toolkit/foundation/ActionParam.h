#pragma once

// A generic parameter that an editor shows as a button: it holds no setting, and each trigger()
// counts its value up by one, which the change handlers hear.

#include "foundation/Param.h"

namespace GenericParam {

class ActionParam : public Param<unsigned int> {
public:
    ActionParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip)
        : Param<unsigned int>(id, "action", legend, tooltip, 0) {}

    Qor::Ptr<iParam> clone() const override { return Qor::Ptr<iParam>(new ActionParam(*this)); }

    void trigger() { setValue(getValue() + 1); }
};

} // namespace GenericParam
