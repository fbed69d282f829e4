#pragma once

// The part of a generic parameter that does not depend on its value type: identity, texts,
// activity, change handlers, constraints, presentation hints and the rules an editor reads.

#include "foundation/iParam.h"
#include "misc/LightweightVector.h"

#include <vector>

namespace GenericParam {

class ParamBase : public virtual iParam {
public:
    // A rule that relates this parameter to another, for an editor.
    struct Rule {
        enum eKind : int { ActiveIf = 0, LessThan = 1, GreaterThan = 2, VisibleIf = 3 };
        eKind kind;
        LightweightString<char> id;
        LightweightString<wchar_t> value;
    };

    ParamBase(LightweightString<char> const& id, LightweightString<char> const& type,
              UIString const& legend, UIString const& tooltip);
    // Takes the settings (texts, activity, constraints, hints, rules) but no change handlers: a
    // copy is heard only by those who ask it.
    ParamBase(ParamBase const& other);
    ParamBase& operator=(ParamBase const&) = delete;

    LightweightString<char> getValueType() const override { return type_; }
    LightweightString<char> getID() const override { return id_; }
    UIString getLegend() const override { return legend_; }
    UIString getTooltip() const override { return tooltip_; }
    bool isActive() const override { return active_; }
    void setActive(bool active) override { active_ = active; }
    void addChangeHandler(Qor::Ptr<iValueChangeHandler> handler) override;
    void addValueConstraint(Qor::Ptr<iValueConstraint> constraint) override;
    unsigned int getPresentationHints() const override { return hints_; }
    void setPresentationHints(unsigned int hints) override { hints_ = hints; }
    void isActiveIf(LightweightString<char> const& id,
                    LightweightString<wchar_t> const& value) override;
    void isLessThan(LightweightString<char> const& id) override;
    void isGreaterThan(LightweightString<char> const& id) override;
    void isVisibleIf(LightweightString<char> const& id,
                     LightweightString<wchar_t> const& value) override;
    void addThemeValueListener(Qor::Ptr<iThemeValueListener> const& listener) override;

    LightweightVector<Rule> const& getRules() const { return rules_; }

    // The proposed value after each constraint in turn has corrected it.
    LightweightString<wchar_t> requestValueChange(LightweightString<wchar_t> const& proposed) const;
    // Tells each change handler, in order of adding.
    void handleDataChange(LightweightString<wchar_t> const& value);

private:
    LightweightString<char> id_;
    LightweightString<char> type_;
    UIString legend_;
    UIString tooltip_;
    bool active_ = true;
    std::vector<Qor::Ptr<iValueChangeHandler>> handlers_;
    std::vector<Qor::Ptr<iValueConstraint>> constraints_;
    unsigned int hints_ = 0;
    LightweightVector<Rule> rules_;
};

} // namespace GenericParam
