#include "foundation/DoubleParam.h"

#include <algorithm>
#include <cmath>

namespace GenericParam {

DoubleParam::DoubleParam(UIString const& legend, LightweightString<char> const& id,
                         UIString const& tooltip, double value, double min, double max)
    : Param<double>(id, "double", legend, tooltip, value), min_(std::min(min, max)),
      max_(std::max(min, max)) {
    enforceConstraints();
}

// A value that is no number has no place in a range: it becomes the lower end.
bool DoubleParam::requestValChange(ValServer<double>* server, double& value) {
    Param<double>::requestValChange(server, value);
    if (limited_)
        value = std::isnan(value) ? min_ : std::clamp(value, min_, max_);
    return true;
}

} // namespace GenericParam
