// What one notification costs: a typed notifier issuing a value change to 1, 10 and 100
// registered clients, as a value server does on every change.

#include "qor/Notifier.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

struct Client {
    int handle(NotifierEvent<int> const& event) {
        sum += event.value;
        return 0;
    }
    long sum = 0;
};

void BM_Notify(benchmark::State& state) {
    NotifierEx<int> notifier;
    std::vector<Client> clients(std::size_t(state.range(0)));
    std::vector<Qor::Ptr<Qor::Guard>> guards;
    for (Client& client : clients)
        guards.push_back(notifier.registerInternal(new CallbackInvoker<NotifierEvent<int>>(
            NotifyMsgTypeDictionary::instance().allMessagesType(),
            Qor::makeCallback(&client, &Client::handle))));
    NotifierEvent<int> event(1);
    for (auto _ : state)
        notifier.issueNotification(event, NotifyMsgTypeDictionary::ValueChanged);
    benchmark::DoNotOptimize(clients.front().sum);
    if (clients.front().sum != long(state.iterations()))
        state.SkipWithError("a client missed notifications");
}

} // namespace

BENCHMARK(BM_Notify)->Arg(1)->Arg(10)->Arg(100);
