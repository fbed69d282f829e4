#pragma once

// A colour generic parameter, kept as normalised components with alpha.

#include "foundation/Param.h"

namespace GenericParam {

class ColourParam : public Param<NormalisedRGB> {
public:
    ColourParam(UIString const& legend, LightweightString<char> const& id,
                NormalisedRGB const& value, UIString const& tooltip)
        : Param<NormalisedRGB>(id, "colour", legend, tooltip, value) {}

    Qor::Ptr<iParam> clone() const override { return Qor::Ptr<iParam>(new ColourParam(*this)); }
};

} // namespace GenericParam
