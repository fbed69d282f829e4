#pragma once

// Generic parameters: named, typed, constrained values that show and edit themselves and serve
// their value to bound widgets. A list of them is the form in which a group goes to a menu.

#include "foundation/ActionParam.h"
#include "foundation/BoolParam.h"
#include "foundation/ChoiceParam.h"
#include "foundation/ColourParam.h"
#include "foundation/DoubleParam.h"
#include "foundation/MultiParam.h"
#include "foundation/Param.h"
#include "foundation/ParamBase.h"
#include "foundation/iParam.h"
#include "misc/LightweightVector.h"

namespace GenericParam {

using ParamList = LightweightVector<Qor::Ptr<iParam>>;

} // namespace GenericParam
