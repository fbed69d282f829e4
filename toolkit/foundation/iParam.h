#pragma once

// A named, typed, constrained value that can show and edit itself: an id, a type name, a legend
// and a tooltip, its value as text, handlers told of each change and constraints that correct a
// proposed value. Its two helper interfaces come with it.

#include "glob/ThemeParam.h"
#include "qor/LightweightString.h"
#include "qor/Ptr.h"
#include "qor/UIString.h"

namespace GenericParam {

// Told the parameter's value, as text, after each change.
class iValueChangeHandler : public virtual iObject {
public:
    virtual void handleValueChange(LightweightString<char> const& id,
                                   LightweightString<wchar_t> const& value) = 0;
};

// Looks at a proposed value and answers the value to take instead, which may be the same.
class iValueConstraint : public virtual iObject {
public:
    virtual LightweightString<wchar_t> constrain(LightweightString<wchar_t> const& proposed) = 0;
};

class iParam : public virtual iObject, public iThemeParam {
public:
    LightweightString<wchar_t> getValueAsString() const override = 0;
    // False, and nothing changes, when the text is not a value of the parameter's type.
    virtual bool setValueFromString(LightweightString<wchar_t> const& text) = 0;
    // "bool", "double", "colour", ...
    virtual LightweightString<char> getValueType() const = 0;
    LightweightString<char> getID() const override = 0;
    virtual UIString getLegend() const = 0;
    virtual void reset() = 0;
    virtual UIString getTooltip() const = 0;
    virtual bool isActive() const = 0;
    virtual void setActive(bool active) = 0;
    virtual void addChangeHandler(Qor::Ptr<iValueChangeHandler> handler) = 0;
    virtual void addValueConstraint(Qor::Ptr<iValueConstraint> constraint) = 0;
    // A mask that an editor reads.
    virtual unsigned int getPresentationHints() const = 0;
    virtual void setPresentationHints(unsigned int hints) = 0;
    // A new parameter with the same settings and value and a server of its own.
    virtual Qor::Ptr<iParam> clone() const = 0;
    // Rules for an editor: active only while another parameter has the value; less or greater
    // than another; visible only while another has the value.
    virtual void isActiveIf(LightweightString<char> const& id,
                            LightweightString<wchar_t> const& value) = 0;
    virtual void isLessThan(LightweightString<char> const& id) = 0;
    virtual void isGreaterThan(LightweightString<char> const& id) = 0;
    virtual void isVisibleIf(LightweightString<char> const& id,
                             LightweightString<wchar_t> const& value) = 0;
    // Puts the present value through the constraints again.
    virtual void enforceConstraints() = 0;
};

} // namespace GenericParam
