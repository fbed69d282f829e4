#pragma once

// A generic parameter that picks any number of a list of choices; its value is a mask with bit i
// set for choice i, and bits without a choice are cleared.

#include "foundation/ChoiceParam.h"

namespace GenericParam {

class MultiParam : public Param<unsigned int> {
public:
    MultiParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip,
               std::vector<ChoiceParam::Choice> const& choices, unsigned int mask);

    bool requestValChange(ValServer<unsigned int>* server, unsigned int& value) override;
    Qor::Ptr<iParam> clone() const override { return Qor::Ptr<iParam>(new MultiParam(*this)); }

    std::vector<ChoiceParam::Choice> const& getChoices() const { return choices_; }
    bool isChosen(unsigned int index) const { return index < 32 && (getValue() >> index & 1u); }

private:
    std::vector<ChoiceParam::Choice> choices_;
};

} // namespace GenericParam
