// Issuing one message to N listeners: GenericNotifier against Boost.Signals2
// and libsigc++ behind a mutex (both lock, as GenericNotifier does), and
// Broadcaster against a plain vector of std::function and bare libsigc++
// (none of them lock). Every listener does the same work, takeMessage.

#include "ListenerWork.h"

#include <zowidgets/host/base/NotifyMsgTypeDictionary.h>
#include <zowidgets/values/notify/Broadcaster.h>
#include <zowidgets/values/notify/GenericNotifier.h>

#include <benchmark/benchmark.h>
#include <boost/signals2/signal.hpp>
#include <sigc++/signal.h>

#include <functional>
#include <mutex>
#include <vector>

namespace {

// Every delivery adds 1, so the listeners' total counts deliveries.
constexpr int kMessage = 1;

class Listener {
public:
  int hear(int const& message) {
    takeMessage(message);
    return 0;
  }
};

void genericNotifierIssue(benchmark::State& state) {
  int const listeners = static_cast<int>(state.range(0));
  int const any = NotifyMsgTypeDictionary::instance().anyType();
  using Callback = MethodCallback<Listener, int, int>;
  GenericNotifier<int> notifier;
  Listener listener;
  std::vector<Zo::Ptr<Zo::Guard>> guards; // after the notifier: released first
  for (int i = 0; i < listeners; ++i)
    guards.push_back(notifier.addListener(
        Zo::Ptr<GenericNotifier<int>::CallbackType>(new Callback(&listener, &Listener::hear)), any));
  std::int64_t const before = listenerTotal;
  for (auto _ : state)
    notifier.issueNotification(kMessage, any);
  checkDeliveries(state, before, listeners);
}

void boostSignals2Call(benchmark::State& state) {
  int const listeners = static_cast<int>(state.range(0));
  boost::signals2::signal<void(int)> signal;
  for (int i = 0; i < listeners; ++i)
    signal.connect([](int message) { takeMessage(message); });
  std::int64_t const before = listenerTotal;
  for (auto _ : state)
    signal(kMessage);
  checkDeliveries(state, before, listeners);
}

void sigcEmitWithMutex(benchmark::State& state) {
  int const listeners = static_cast<int>(state.range(0));
  sigc::signal<void(int)> signal;
  std::mutex mutex;
  for (int i = 0; i < listeners; ++i)
    signal.connect([](int message) { takeMessage(message); });
  std::int64_t const before = listenerTotal;
  for (auto _ : state) {
    std::lock_guard lock(mutex);
    signal.emit(kMessage);
  }
  checkDeliveries(state, before, listeners);
}

// Each listener through a std::function, as Broadcaster::makeCallback wraps it.
void broadcasterFunction(benchmark::State& state) {
  int const listeners = static_cast<int>(state.range(0));
  Broadcaster<int> broadcaster;
  for (int i = 0; i < listeners; ++i)
    broadcaster.addListener(Broadcaster<int>::makeCallback([](int const& message) { takeMessage(message); }));
  std::int64_t const before = listenerTotal;
  for (auto _ : state)
    broadcaster.broadcast(kMessage);
  checkDeliveries(state, before, listeners);
}

// Each listener through a member function, the way widgets subscribe.
void broadcasterMethod(benchmark::State& state) {
  int const listeners = static_cast<int>(state.range(0));
  Broadcaster<int> broadcaster;
  Listener listener;
  for (int i = 0; i < listeners; ++i)
    broadcaster.addListener(Broadcaster<int>::makeCallback(&listener, &Listener::hear));
  std::int64_t const before = listenerTotal;
  for (auto _ : state)
    broadcaster.broadcast(kMessage);
  checkDeliveries(state, before, listeners);
}

void stdFunctionVectorLoop(benchmark::State& state) {
  int const listeners = static_cast<int>(state.range(0));
  std::vector<std::function<void(int const&)>> functions;
  for (int i = 0; i < listeners; ++i)
    functions.emplace_back([](int const& message) { takeMessage(message); });
  std::int64_t const before = listenerTotal;
  for (auto _ : state)
    for (auto const& function : functions)
      function(kMessage);
  checkDeliveries(state, before, listeners);
}

void sigcEmit(benchmark::State& state) {
  int const listeners = static_cast<int>(state.range(0));
  sigc::signal<void(int)> signal;
  for (int i = 0; i < listeners; ++i)
    signal.connect([](int message) { takeMessage(message); });
  std::int64_t const before = listenerTotal;
  for (auto _ : state)
    signal.emit(kMessage);
  checkDeliveries(state, before, listeners);
}

} // namespace

BENCHMARK(genericNotifierIssue)->Arg(0)->Arg(1)->Arg(8)->Arg(64);
BENCHMARK(boostSignals2Call)->Arg(0)->Arg(1)->Arg(8)->Arg(64);
BENCHMARK(sigcEmitWithMutex)->Arg(0)->Arg(1)->Arg(8)->Arg(64);

BENCHMARK(broadcasterFunction)->Arg(1)->Arg(8)->Arg(64);
BENCHMARK(broadcasterMethod)->Arg(1)->Arg(8)->Arg(64);
BENCHMARK(stdFunctionVectorLoop)->Arg(1)->Arg(8)->Arg(64);
BENCHMARK(sigcEmit)->Arg(1)->Arg(8)->Arg(64);
