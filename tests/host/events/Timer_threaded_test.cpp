#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/EventHandler.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/events/Timer.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>
#include <vector>

TEST(TimerThreads, TimersMadeOnOtherThreadsFireOnTheUserInterfaceThread) {
  MessageLoop::runPending();
  constexpr int kThreads = 4;
  constexpr int kTimersEach = 25;
  std::mutex mutex;
  std::vector<Timer> timers;
  std::atomic<int> fired{0};
  std::atomic<int> firedElsewhere{0};
  std::vector<std::thread> makers;
  for (int t = 0; t < kThreads; ++t)
    makers.emplace_back([&] {
      for (int i = 0; i < kTimersEach; ++i) {
        Timer timer = Timer::oneShot(i % 3, [&] {
          if (co_pid() != 0)
            ++firedElsewhere;
          ++fired;
        });
        std::lock_guard lock(mutex);
        timers.push_back(std::move(timer));
      }
    });
  for (auto& maker : makers)
    maker.join();
  EXPECT_TRUE(MessageLoop::runUntil([&] { return fired.load() == kThreads * kTimersEach; }, std::chrono::seconds(20)));
  EXPECT_EQ(firedElsewhere.load(), 0);
}

TEST(TimerThreads, AdvancingATestClockFromAnotherThreadWakesTheLoop) {
  MessageLoop::runPending();
  TestClock clock(0.0);
  bool fired = false;
  Timer timer = Timer::oneShot(60'000.0, [&] { fired = true; }); // a minute of test time
  std::thread mover([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    clock.advance(60'000.0);
  });
  auto const start = std::chrono::steady_clock::now();
  EXPECT_TRUE(MessageLoop::runUntil([&] { return fired; }, std::chrono::seconds(20)));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  mover.join();
}

TEST(TimerThreads, ATimerCancelledFromAnotherThreadStopsFiring) {
  MessageLoop::runPending();
  TestClock clock(0.0);
  std::atomic<int> fired{0};
  Timer timer = Timer::repeating(10.0, [&] { ++fired; });
  std::atomic<bool> cancelled{false};
  std::thread canceller([&] {
    while (fired.load() < 3)
      std::this_thread::yield();
    timer.cancel();
    cancelled = true;
  });
  while (!cancelled.load()) {
    clock.advance(10.0);
    MessageLoop::runPending();
  }
  canceller.join();
  int const atCancel = fired.load();
  for (int i = 0; i < 5; ++i) {
    clock.advance(10.0);
    MessageLoop::runPending();
  }
  EXPECT_EQ(fired.load(), atCancel);
  EXPECT_GE(atCancel, 3);
}

TEST(TimerThreads, InterestMayBeTakenAndDroppedOnAnyThread) {
  MessageLoop::runPending();
  TestClock clock(0.0);
  struct Counter : EventHandler {
    std::atomic<int> ticks{0};
    int handleEvent(Event const& event) override {
      if (event.type == Event::kTimer)
        ++ticks;
      return 1;
    }
  };
  std::vector<Counter> counters(8);
  std::vector<std::thread> threads;
  for (auto& counter : counters)
    threads.emplace_back([&counter] { TimerTicks::addInterest(&counter); });
  for (auto& thread : threads)
    thread.join();
  clock.advance(TimerTicks::kIntervalMs);
  MessageLoop::runPending();
  threads.clear();
  for (auto& counter : counters) {
    EXPECT_EQ(counter.ticks.load(), 1);
    threads.emplace_back([&counter] { TimerTicks::removeInterest(&counter); });
  }
  for (auto& thread : threads)
    thread.join();
  EXPECT_FALSE(Timer::nextDeadline().has_value());
}
