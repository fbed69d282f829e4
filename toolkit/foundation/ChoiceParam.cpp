#include "foundation/ChoiceParam.h"

#include <algorithm>

namespace GenericParam {

ChoiceParam::ChoiceParam(UIString const& legend, LightweightString<char> const& id,
                         UIString const& tooltip, std::vector<Choice> const& choices,
                         unsigned int value)
    : Param<unsigned int>(id, "choice", legend, tooltip, value), choices_(choices) {
    enforceConstraints();
}

// An index past the end picks the last choice.
bool ChoiceParam::requestValChange(ValServer<unsigned int>* server, unsigned int& value) {
    Param<unsigned int>::requestValChange(server, value);
    if (!choices_.empty())
        value = std::min(value, unsigned(choices_.size() - 1));
    return true;
}

UIString ChoiceParam::getChoiceText() const {
    if (getValue() >= choices_.size())
        return UIString();
    return choices_[getValue()].text;
}

} // namespace GenericParam
