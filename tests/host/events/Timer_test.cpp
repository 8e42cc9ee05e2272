#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/EventHandler.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/events/Timer.h>

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

// Each test starts with an empty queue and no timers, under a test clock.
class TimerTest : public ::testing::Test {
protected:
  void SetUp() override {
    MessageLoop::runPending();
    ASSERT_FALSE(Timer::nextDeadline().has_value()) << "a timer outlived its test";
  }
  void TearDown() override { MessageLoop::runPending(); }

  TestClock clock{1000.0};
};

struct TickCounter : EventHandler {
  int ticks = 0;
  int otherEvents = 0;
  int handleEvent(Event const& event) override {
    if (event.type == Event::kTimer)
      ++ticks;
    else
      ++otherEvents;
    return 1;
  }
};

} // namespace

TEST(Clock, MsecsNowIsMonotonicAndInMilliseconds) {
  double const first = msecsNow();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  double const second = msecsNow();
  EXPECT_GE(second - first, 20.0);
  EXPECT_LT(second - first, 5000.0);
  EXPECT_GE(first, 0.0);
}

TEST(Clock, TestClocksTakeOverNestAndGiveBack) {
  {
    TestClock outer(500.0);
    EXPECT_EQ(msecsNow(), 500.0);
    outer.advance(11.0);
    EXPECT_EQ(msecsNow(), 511.0);
    {
      TestClock inner(2.0);
      EXPECT_EQ(msecsNow(), 2.0);
      inner.set(7.5);
      EXPECT_EQ(inner.now(), 7.5);
    }
    EXPECT_EQ(msecsNow(), 511.0);
  }
  double const before = msecsNow();
  std::this_thread::sleep_for(std::chrono::milliseconds(5));
  EXPECT_GT(msecsNow(), before); // real time again
}

TEST_F(TimerTest, AOneShotTimerFiresOnceWhenDue) {
  int fired = 0;
  Timer timer = Timer::oneShot(100.0, [&] { ++fired; });
  EXPECT_TRUE(timer.isActive());
  EXPECT_EQ(Timer::nextDeadline(), 1100.0);
  EXPECT_EQ(MessageLoop::runPending(), 0u);
  clock.advance(99.0);
  MessageLoop::runPending();
  EXPECT_EQ(fired, 0);
  clock.advance(1.0);
  EXPECT_EQ(MessageLoop::runPending(), 1u);
  EXPECT_EQ(fired, 1);
  clock.advance(500.0);
  MessageLoop::runPending();
  EXPECT_EQ(fired, 1);
  EXPECT_FALSE(timer.isActive());
}

TEST_F(TimerTest, ARepeatingTimerKeepsItsPhaseAndSkipsMissedTicks) {
  std::vector<double> firedAt;
  Timer timer = Timer::repeating(10.0, [&] { firedAt.push_back(msecsNow()); });
  clock.advance(10.0);
  MessageLoop::runPending();
  clock.advance(25.0); // a late loop: ticks at 1020 and 1030 were missed
  MessageLoop::runPending();
  EXPECT_EQ(Timer::nextDeadline(), 1040.0);
  clock.advance(5.0);
  MessageLoop::runPending();
  MessageLoop::runPending();
  EXPECT_EQ(firedAt, (std::vector<double>{1010.0, 1035.0, 1040.0}));
  EXPECT_TRUE(timer.isActive());
}

TEST_F(TimerTest, DueTimersFireInDeadlineOrderAndTiesInOrderMade) {
  std::vector<std::string> order;
  std::vector<Timer> timers;
  timers.push_back(Timer::oneShot(30.0, [&] { order.push_back("30"); }));
  timers.push_back(Timer::oneShot(10.0, [&] { order.push_back("10"); }));
  timers.push_back(Timer::oneShot(20.0, [&] { order.push_back("20 first"); }));
  timers.push_back(Timer::oneShot(20.0, [&] { order.push_back("20 second"); }));
  timers.push_back(Timer::repeating(15.0, [&] { order.push_back("every 15"); }));
  timers.push_back(Timer::oneShot(60.0, [&] { order.push_back("not yet"); }));
  clock.advance(30.0);
  EXPECT_EQ(MessageLoop::runPending(), 5u);
  EXPECT_EQ(order, (std::vector<std::string>{"10", "every 15", "20 first", "20 second", "30"}));
}

TEST_F(TimerTest, CancellingOrDestroyingATimerStopsIt) {
  int fired = 0;
  Timer cancelled = Timer::repeating(5.0, [&] { ++fired; });
  cancelled.cancel();
  EXPECT_FALSE(cancelled.isActive());
  {
    Timer destroyed = Timer::oneShot(5.0, [&] { ++fired; });
  }
  clock.advance(50.0);
  MessageLoop::runPending();
  EXPECT_EQ(fired, 0);
  EXPECT_FALSE(Timer::nextDeadline().has_value());
  EXPECT_FALSE(Timer().isActive());
}

TEST_F(TimerTest, MovingATimerMovesItsRegistration) {
  int fired = 0;
  Timer first = Timer::oneShot(5.0, [&] { ++fired; });
  Timer second = std::move(first);
  EXPECT_FALSE(first.isActive());
  EXPECT_TRUE(second.isActive());
  Timer third;
  third = std::move(second);
  clock.advance(5.0);
  MessageLoop::runPending();
  EXPECT_EQ(fired, 1);
  Timer replaced = Timer::oneShot(5.0, [&] { ++fired; });
  replaced = Timer::oneShot(50.0, [] {}); // the first registration ends
  clock.advance(5.0);
  MessageLoop::runPending();
  EXPECT_EQ(fired, 1);
}

TEST_F(TimerTest, ACallbackMayCancelATimerDueInTheSamePass) {
  int laterFired = 0;
  Timer later = Timer::oneShot(20.0, [&] { ++laterFired; });
  Timer earlier = Timer::oneShot(10.0, [&] { later.cancel(); });
  clock.advance(20.0);
  EXPECT_EQ(MessageLoop::runPending(), 1u);
  EXPECT_EQ(laterFired, 0);
}

TEST_F(TimerTest, ARepeatingTimerMayCancelItself) {
  int fired = 0;
  Timer self;
  self = Timer::repeating(10.0, [&] {
    if (++fired == 2)
      self.cancel();
  });
  for (int i = 0; i < 5; ++i) {
    clock.advance(10.0);
    MessageLoop::runPending();
  }
  EXPECT_EQ(fired, 2);
}

TEST_F(TimerTest, TimersMadeByACallbackWaitForTheNextPass) {
  std::vector<Timer> made;
  int inner = 0;
  Timer outer = Timer::oneShot(0.0, [&] { made.push_back(Timer::oneShot(0.0, [&] { ++inner; })); });
  EXPECT_EQ(MessageLoop::runPending(), 1u);
  EXPECT_EQ(inner, 0);
  EXPECT_EQ(MessageLoop::runPending(), 1u);
  EXPECT_EQ(inner, 1);
}

TEST_F(TimerTest, QueuedWorkRunsBeforeTheTimersOfAPass) {
  std::vector<std::string> order;
  Timer timer = Timer::oneShot(0.0, [&] { order.push_back("timer"); });
  defer([&] { order.push_back("deferred"); });
  EXPECT_EQ(MessageLoop::runPending(), 2u);
  EXPECT_EQ(order, (std::vector<std::string>{"deferred", "timer"}));
}

TEST_F(TimerTest, TimersFireOnlyOnTheUserInterfaceThread) {
  int fired = 0;
  Timer timer = Timer::oneShot(0.0, [&] { ++fired; });
  std::size_t firedThere = 99;
  std::thread([&] { firedThere = Timer::fireDue(); }).join();
  EXPECT_EQ(firedThere, 0u);
  EXPECT_EQ(fired, 0);
  MessageLoop::runPending();
  EXPECT_EQ(fired, 1);
}

TEST_F(TimerTest, InterestedHandlersGetATimerEventEachTickUntilTheyLoseInterest) {
  TickCounter counter;
  TimerTicks::addInterest(&counter);
  TimerTicks::addInterest(&counter); // once is enough
  EXPECT_TRUE(TimerTicks::hasInterest(&counter));
  clock.advance(TimerTicks::kIntervalMs - 1.0);
  MessageLoop::runPending();
  EXPECT_EQ(counter.ticks, 0);
  clock.advance(1.0);
  MessageLoop::runPending();
  EXPECT_EQ(counter.ticks, 1);
  for (int i = 0; i < 3; ++i) {
    clock.advance(TimerTicks::kIntervalMs);
    MessageLoop::runPending();
  }
  EXPECT_EQ(counter.ticks, 4);
  EXPECT_EQ(counter.otherEvents, 0);
  TimerTicks::removeInterest(&counter);
  EXPECT_FALSE(TimerTicks::hasInterest(&counter));
  clock.advance(TimerTicks::kIntervalMs);
  MessageLoop::runPending();
  EXPECT_EQ(counter.ticks, 4);
  EXPECT_FALSE(Timer::nextDeadline().has_value()); // no interest, no timer
}

TEST_F(TimerTest, EveryInterestedHandlerHearsTheSameTick) {
  TickCounter first, second;
  TimerTicks::addInterest(&first);
  clock.advance(20.0);
  TimerTicks::addInterest(&second);
  clock.advance(20.0);
  MessageLoop::runPending();
  EXPECT_EQ(first.ticks, 1);
  EXPECT_EQ(second.ticks, 1);
  TimerTicks::removeInterest(&first);
  TimerTicks::removeInterest(&second);
}

TEST_F(TimerTest, AHandlerThatDiesLosesItsInterest) {
  auto doomed = std::make_unique<TickCounter>();
  TickCounter survivor;
  TimerTicks::addInterest(doomed.get());
  TimerTicks::addInterest(&survivor);
  EventHandler const* address = doomed.get();
  doomed.reset();
  clock.advance(TimerTicks::kIntervalMs);
  MessageLoop::runPending();
  EXPECT_EQ(survivor.ticks, 1);
  EXPECT_FALSE(TimerTicks::hasInterest(address));
  TimerTicks::removeInterest(&survivor);
  EXPECT_FALSE(Timer::nextDeadline().has_value());
}

TEST_F(TimerTest, AHandlerThatLosesInterestDuringATickHearsNoMore) {
  struct Remover : EventHandler {
    EventHandler* other = nullptr;
    int handleEvent(Event const&) override {
      TimerTicks::removeInterest(other);
      return 1;
    }
  } remover;
  TickCounter removed;
  remover.other = &removed;
  TimerTicks::addInterest(&remover);
  TimerTicks::addInterest(&removed);
  clock.advance(TimerTicks::kIntervalMs);
  MessageLoop::runPending();
  EXPECT_EQ(removed.ticks, 0);
  TimerTicks::removeInterest(&remover);
}

TEST(TimerRealTime, RunUntilWakesAtTheNextDeadline) {
  MessageLoop::runPending();
  bool fired = false;
  Timer timer = Timer::oneShot(30.0, [&] { fired = true; });
  auto const start = std::chrono::steady_clock::now();
  EXPECT_TRUE(MessageLoop::runUntil([&] { return fired; }, std::chrono::seconds(10)));
  auto const waited = std::chrono::steady_clock::now() - start;
  EXPECT_GE(waited, std::chrono::milliseconds(29));
  EXPECT_LT(waited, std::chrono::seconds(5));
}

TEST(TimerRealTime, RunUntilWithoutTimersStillTimesOut) {
  MessageLoop::runPending();
  auto const start = std::chrono::steady_clock::now();
  EXPECT_FALSE(MessageLoop::runUntil([] { return false; }, std::chrono::milliseconds(30)));
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
}

TEST(TimerRealTime, ARepeatingTimerTicksWhileTheLoopRuns) {
  MessageLoop::runPending();
  int fired = 0;
  Timer timer = Timer::repeating(5.0, [&] { ++fired; });
  EXPECT_TRUE(MessageLoop::runUntil([&] { return fired >= 4; }, std::chrono::seconds(10)));
}
