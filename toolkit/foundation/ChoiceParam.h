#pragma once

// A generic parameter that picks one of a list of choices; its value is the index of the choice
// and is kept inside the list.

#include "foundation/Param.h"

#include <vector>

namespace GenericParam {

class ChoiceParam : public Param<unsigned int> {
public:
    struct Choice {
        UIString text;
    };

    ChoiceParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip,
                std::vector<Choice> const& choices, unsigned int value);

    bool requestValChange(ValServer<unsigned int>* server, unsigned int& value) override;
    Qor::Ptr<iParam> clone() const override { return Qor::Ptr<iParam>(new ChoiceParam(*this)); }

    std::vector<Choice> const& getChoices() const { return choices_; }
    // The text of the chosen item; empty when there are no choices.
    UIString getChoiceText() const;

private:
    std::vector<Choice> choices_;
};

} // namespace GenericParam
