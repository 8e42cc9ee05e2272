// Assigning to a ValServer<double> watched by N ValClients: the path every
// value widget takes when its value changes.

#include "ListenerWork.h"

#include <zowidgets/values/notify/ValClient.h>
#include <zowidgets/values/notify/ValServer.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

class CountingClient : public ValClient<double> {
public:
  using ValClient::ValClient;
  void valChangedNtfy() override { takeMessage(1); }
};

void valServerAssign(benchmark::State& state) {
  int const clients = static_cast<int>(state.range(0));
  ValServer<double> server(0.0);
  std::vector<std::unique_ptr<CountingClient>> watchers; // after the server: gone first
  for (int i = 0; i < clients; ++i)
    watchers.push_back(std::make_unique<CountingClient>(&server));
  double value = 0.125;
  benchmark::DoNotOptimize(value);
  std::int64_t const before = listenerTotal;
  for (auto _ : state)
    server = value;
  if (server.get() != value)
    state.SkipWithError("the server did not take the value");
  checkDeliveries(state, before, clients);
}

} // namespace

BENCHMARK(valServerAssign)->Arg(0)->Arg(1)->Arg(4);
