#include "foundation/ParamBase.h"

namespace GenericParam {

namespace {

// Passes a parameter's changes on to a theme listener.
class ThemeValueForwarder : public iValueChangeHandler {
public:
    explicit ThemeValueForwarder(Qor::Ptr<iThemeValueListener> const& listener)
        : listener_(listener) {}

    void handleValueChange(LightweightString<char> const& id,
                           LightweightString<wchar_t> const& value) override {
        listener_->handleThemeValueChange(id, value);
    }

private:
    Qor::Ptr<iThemeValueListener> listener_;
};

} // namespace

ParamBase::ParamBase(LightweightString<char> const& id, LightweightString<char> const& type,
                     UIString const& legend, UIString const& tooltip)
    : id_(id), type_(type), legend_(legend), tooltip_(tooltip) {}

ParamBase::ParamBase(ParamBase const& other)
    : Qor::InternalRefCount(), iVirtual(), iObject(), iParam(), id_(other.id_), type_(other.type_),
      legend_(other.legend_), tooltip_(other.tooltip_), active_(other.active_),
      constraints_(other.constraints_), hints_(other.hints_), rules_(other.rules_.copy()) {}

void ParamBase::addChangeHandler(Qor::Ptr<iValueChangeHandler> handler) {
    if (handler)
        handlers_.push_back(handler);
}

void ParamBase::addValueConstraint(Qor::Ptr<iValueConstraint> constraint) {
    if (constraint)
        constraints_.push_back(constraint);
}

void ParamBase::isActiveIf(LightweightString<char> const& id,
                           LightweightString<wchar_t> const& value) {
    rules_.push_back(Rule{Rule::ActiveIf, id, value});
}

void ParamBase::isLessThan(LightweightString<char> const& id) {
    rules_.push_back(Rule{Rule::LessThan, id, {}});
}

void ParamBase::isGreaterThan(LightweightString<char> const& id) {
    rules_.push_back(Rule{Rule::GreaterThan, id, {}});
}

void ParamBase::isVisibleIf(LightweightString<char> const& id,
                            LightweightString<wchar_t> const& value) {
    rules_.push_back(Rule{Rule::VisibleIf, id, value});
}

void ParamBase::addThemeValueListener(Qor::Ptr<iThemeValueListener> const& listener) {
    if (listener)
        addChangeHandler(Qor::makePtr<ThemeValueForwarder>(listener));
}

LightweightString<wchar_t>
ParamBase::requestValueChange(LightweightString<wchar_t> const& proposed) const {
    LightweightString<wchar_t> value = proposed;
    for (Qor::Ptr<iValueConstraint> const& constraint : constraints_)
        value = constraint->constrain(value);
    return value;
}

// A copy of the list, so that a handler may add another while it is told.
void ParamBase::handleDataChange(LightweightString<wchar_t> const& value) {
    std::vector<Qor::Ptr<iValueChangeHandler>> const handlers = handlers_;
    for (Qor::Ptr<iValueChangeHandler> const& handler : handlers)
        handler->handleValueChange(id_, value);
}

} // namespace GenericParam
