#include "foundation/MultiParam.h"

namespace GenericParam {

MultiParam::MultiParam(UIString const& legend, LightweightString<char> const& id,
                       UIString const& tooltip, std::vector<ChoiceParam::Choice> const& choices,
                       unsigned int mask)
    : Param<unsigned int>(id, "multi", legend, tooltip, mask), choices_(choices) {
    enforceConstraints();
}

bool MultiParam::requestValChange(ValServer<unsigned int>* server, unsigned int& value) {
    Param<unsigned int>::requestValChange(server, value);
    if (choices_.size() < 32)
        value &= (1u << choices_.size()) - 1u;
    return true;
}

} // namespace GenericParam
