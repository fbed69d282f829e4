#pragma once

// An on-off generic parameter.

#include "foundation/Param.h"

namespace GenericParam {

class BoolParam : public Param<bool> {
public:
    BoolParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip,
              bool value)
        : Param<bool>(id, "bool", legend, tooltip, value) {}

    Qor::Ptr<iParam> clone() const override { return Qor::Ptr<iParam>(new BoolParam(*this)); }
};

} // namespace GenericParam
