// The cost of one value change fanning out to the widgets that show it: a server, ten adaptors
// bound to it, and ten widgets on each adaptor.

#include "foundation/ValClient.h"
#include "foundation/ValWidget.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

class ShownValue : public ValWidget<double> {
public:
    double getWidgetValue() override { return shown_; }
    void setNewWidgetValue(double& value, eRedrawFlag /*redraw*/) override { shown_ = value; }

private:
    double shown_ = 0.0;
};

class ServerAdaptor : public ValAdaptorBase<double>, public ValClient<double> {
public:
    explicit ServerAdaptor(ValServer<double>* server) { registerWith(server); }

    double getDataValue() override { return getServerValue(); }
    int requestSetNewDataValue(double const& value, DataChangeType /*type*/) override {
        setServerValue(value);
        return 1;
    }
    void valChangedNtfy() override { setNewWidgetValue(getServerValue(), NoRedraw); }
};

void BM_ValServerFanout(benchmark::State& state) {
    constexpr int adaptorCount = 10;
    constexpr int widgetsPerAdaptor = 10;
    ValServer<double> server(0.0);
    std::vector<Qor::Ptr<ServerAdaptor>> adaptors;
    std::vector<std::unique_ptr<ShownValue>> widgets;
    for (int a = 0; a < adaptorCount; ++a) {
        adaptors.push_back(Qor::makePtr<ServerAdaptor>(&server));
        for (int w = 0; w < widgetsPerAdaptor; ++w) {
            widgets.push_back(std::make_unique<ShownValue>());
            widgets.back()->setDataAdaptor(adaptors.back());
        }
    }
    double value = 0.0;
    for (auto _ : state) {
        server = value;
        value += 1.0;
    }
    benchmark::DoNotOptimize(widgets.back()->getWidgetValue());
    state.counters["widgets"] = double(widgets.size());
}
BENCHMARK(BM_ValServerFanout)->Unit(benchmark::kMicrosecond);

} // namespace
