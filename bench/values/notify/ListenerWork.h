#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>

// What every listener does with a message, whichever mechanism delivered it:
// add it to a total the optimiser has to keep. The total also lets each
// benchmark check that every delivery it timed really happened.
inline std::int64_t listenerTotal = 0;

inline void takeMessage(int message) {
  listenerTotal += message;
  benchmark::DoNotOptimize(listenerTotal);
}

// Reports a delivery count that does not match, and otherwise sets the items
// processed to the deliveries, so that the rate reads per listener call.
inline void checkDeliveries(benchmark::State& state, std::int64_t totalBefore, int listeners) {
  std::int64_t const expected = static_cast<std::int64_t>(state.iterations()) * listeners;
  if (listenerTotal - totalBefore != expected) {
    state.SkipWithError("listeners heard a different number of messages than were sent");
    return;
  }
  if (listeners > 0)
    state.SetItemsProcessed(expected);
}
