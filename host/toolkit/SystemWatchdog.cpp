#include <zowidgets/host/toolkit/SystemWatchdog.h>

#include <zowidgets/host/events/Clock.h>

#include <atomic>

namespace {

std::atomic<std::uint64_t> beats{0};
std::atomic<double> lastBeat{0.0};

} // namespace

void SystemWatchdog::heartbeat() {
  lastBeat.store(msecsNow(), std::memory_order_relaxed);
  beats.fetch_add(1, std::memory_order_relaxed);
}

std::uint64_t SystemWatchdog::heartbeatCount() { return beats.load(std::memory_order_relaxed); }

double SystemWatchdog::lastHeartbeat() { return lastBeat.load(std::memory_order_relaxed); }
