#pragma once

// A generic parameter of value type T. It holds its own ValServer<T>, which widgets bind to, and
// is that server's manager: every value proposed to the server goes through the parameter's
// constraints as text and is corrected, never refused. Each stored value is told to the change
// handlers as text.

#include "foundation/ParamBase.h"
#include "foundation/ValManagerBase.h"
#include "foundation/ValServer.h"
#include "misc/DataConvert.h"

namespace GenericParam {

template <class T>
class Param : public ValManagerBase<T>, public ParamBase {
public:
    Param(LightweightString<char> const& id, LightweightString<char> const& type,
          UIString const& legend, UIString const& tooltip, T const& value)
        : ParamBase(id, type, legend, tooltip), server_(value), resetValue_(value) {
        init();
    }
    // Same settings and value, with a server of its own.
    Param(Param const& other)
        : Qor::InternalRefCount(), iVirtual(), iObject(), iParam(), ValManagerBase<T>(),
          ParamBase(other), server_(other.server_.getValue()), resetValue_(other.resetValue_) {
        init();
    }
    Param& operator=(Param const&) = delete;
    ~Param() override {
        registration_.reset();
        server_.setValManager(nullptr);
    }

    bool requestValChange(ValServer<T>* server, T& value) override;
    void releaseServer(ValServer<T>*) override {}
    LightweightString<wchar_t> getValueAsString() const override {
        return DataConvert::convert<T, LightweightString<wchar_t>>(server_.getValue());
    }
    bool setValueFromString(LightweightString<wchar_t> const& text) override;
    void reset() override;
    void enforceConstraints() override;
    Qor::Ptr<iParam> clone() const override { return Qor::Ptr<iParam>(new Param(*this)); }

    ValServer<T>& getServer() { return server_; }
    T const& getValue() const { return server_.getValue(); }
    // Goes through the constraints, as any change of the server does.
    void setValue(T const& value) { server_ = value; }
    T const& getResetValue() const { return resetValue_; }
    void setResetValue(T const& value) { resetValue_ = value; }

protected:
    int handleValueChange(NotifierEvent<T> const& event);

private:
    void init();

    ValServer<T> server_;
    T resetValue_;
    Qor::Ptr<Qor::Guard> registration_;
};

template <class T>
bool Param<T>::requestValChange(ValServer<T>*, T& value) {
    LightweightString<wchar_t> const answer =
        requestValueChange(DataConvert::convert<T, LightweightString<wchar_t>>(value));
    DataConvert::convert(answer, value);
    return true;
}

template <class T>
bool Param<T>::setValueFromString(LightweightString<wchar_t> const& text) {
    T value{};
    if (!DataConvert::convert(text, value))
        return false;
    server_ = value;
    return true;
}

// Nothing is sent for a parameter already at its reset value.
template <class T>
void Param<T>::reset() {
    if (!(server_.getValue() == resetValue_))
        server_ = resetValue_;
}

// A corrected value is stored, which tells the handlers; an unchanged one is told to them all the
// same, so that whoever follows the parameter hears the value the constraints accept.
template <class T>
void Param<T>::enforceConstraints() {
    T value = server_.getValue();
    requestValChange(&server_, value);
    if (!(value == server_.getValue()))
        server_.updateAndNotify(value);
    else
        handleDataChange(getValueAsString());
}

template <class T>
int Param<T>::handleValueChange(NotifierEvent<T> const& event) {
    if (event.type == ValServerBase::valChangedMsgType_)
        handleDataChange(getValueAsString());
    return 0;
}

template <class T>
void Param<T>::init() {
    if (ValManagerBase<T>* previous = server_.getValManager())
        previous->releaseServer(&server_);
    server_.setValManager(this);
    registration_ = server_.registerCallback(Qor::makeCallback(this, &Param<T>::handleValueChange),
                                             NotifyMsgTypeDictionary::AllMessages);
}

} // namespace GenericParam
