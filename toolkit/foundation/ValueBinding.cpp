// The value servers' shared state, and the instances of the binding templates that the toolkit
// builds once here rather than in every user.

#include "foundation/LastValServer.h"
#include "foundation/ValAdaptorBase.h"
#include "foundation/ValClient.h"
#include "foundation/ValServer.h"
#include "glib/Colour.h"

int const ValServerBase::valChangedMsgType_ = NotifyMsgTypeDictionary::ValueChanged;
int const ValServerBase::preValChangedMsgType_ = NotifyMsgTypeDictionary::PreValueChanged;

std::atomic<ValServerBase*> LastValServer::last_{nullptr};

LastValServer::LastValServer(ValServerBase* server) : server_(server) {
    last_.store(server);
}

LastValServer::~LastValServer() {
    ValServerBase* self = server_;
    last_.compare_exchange_strong(self, nullptr);
}

ValServerBase* LastValServer::getLastValServer() {
    return last_.load();
}

template class ValServer<bool>;
template class ValServer<int>;
template class ValServer<unsigned int>;
template class ValServer<double>;
template class ValServer<NormalisedRGB>;
template class ValServer<LightweightString<wchar_t>>;
template class ValServer<ColourData>;

template class ValClient<int>;
template class ValClient<unsigned int>;
template class ValClient<LightweightString<wchar_t>>;
template class ValClient<ColourData>;

template class ValAdaptorBase<bool>;
template class ValAdaptorBase<int>;
template class ValAdaptorBase<unsigned int>;
template class ValAdaptorBase<double>;
template class ValAdaptorBase<float>;
template class ValAdaptorBase<LightweightString<char>>;
template class ValAdaptorBase<LightweightString<wchar_t>>;
template class ValAdaptorBase<ColourData>;

template class ValWidget<bool>;
template class ValWidget<int>;
template class ValWidget<unsigned int>;
template class ValWidget<double>;
template class ValWidget<float>;
template class ValWidget<LightweightString<char>>;
template class ValWidget<LightweightString<wchar_t>>;
template class ValWidget<ColourData>;
