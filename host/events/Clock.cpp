#include <zowidgets/host/events/Clock.h>

#include <zowidgets/host/events/MessageQueue.h>

#include <atomic>
#include <chrono>

namespace {

using SteadyClock = std::chrono::steady_clock;

// Whoever asks first, a static initialiser elsewhere included, fixes the start.
SteadyClock::time_point loadTime() {
  static SteadyClock::time_point const start = SteadyClock::now();
  return start;
}

[[maybe_unused]] SteadyClock::time_point const startAtLoad = loadTime();

std::atomic<bool> testClockActive{false};
std::atomic<double> testClockTime{0.0};

} // namespace

double msecsNow() {
  if (testClockActive.load(std::memory_order_acquire))
    return testClockTime.load(std::memory_order_acquire);
  return std::chrono::duration<double, std::milli>(SteadyClock::now() - loadTime()).count();
}

TestClock::TestClock(double startMs)
    : previous_(testClockTime.load(std::memory_order_acquire)),
      previousActive_(testClockActive.load(std::memory_order_acquire)) {
  testClockTime.store(startMs, std::memory_order_release);
  testClockActive.store(true, std::memory_order_release);
  MessageLoop::wake();
}

TestClock::~TestClock() {
  testClockTime.store(previous_, std::memory_order_release);
  testClockActive.store(previousActive_, std::memory_order_release);
  MessageLoop::wake();
}

void TestClock::set(double ms) {
  testClockTime.store(ms, std::memory_order_release);
  MessageLoop::wake();
}

void TestClock::advance(double ms) { set(now() + ms); }

double TestClock::now() const { return testClockTime.load(std::memory_order_acquire); }
