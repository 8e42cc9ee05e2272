#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/values/notify/UIThreadCallbackDupe.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {

// A widget that records, on the user-interface thread, every message it was
// given; the test checks none arrives after its death.
struct Widget : EventHandler {
  std::atomic<int>* calls;
  std::atomic<bool>* dead;
  std::atomic<int>* callsAfterDeath;
  int onMessage(int const&) {
    if (dead->load())
      callsAfterDeath->fetch_add(1);
    calls->fetch_add(1);
    return 1;
  }
};

TEST(UIThreadCallbackDupeThreaded, WorkersCallingWhileTheTargetWidgetIsDestroyedNeverReachIt) {
  MessageLoop::runPending();
  std::atomic<int> calls{0}, callsAfterDeath{0};
  std::atomic<bool> dead{false};
  auto widget = std::make_unique<Widget>();
  widget->calls = &calls;
  widget->dead = &dead;
  widget->callsAfterDeath = &callsAfterDeath;

  auto target =
      Zo::Ptr<iCallbackBase<int, int>>(new MethodCallback<Widget, int, int>(widget.get(), &Widget::onMessage));
  auto dupe = UIThreadCallbackDupe<int>::guarded(target, widget.get());

  std::atomic<bool> stop{false};
  std::atomic<int> sent{0};
  std::vector<std::thread> workers;
  for (int t = 0; t < 4; ++t)
    workers.emplace_back([&] {
      while (!stop.load()) {
        dupe->execute(1);
        sent.fetch_add(1);
      }
    });

  // Deliver for a while, then destroy the widget on the user-interface thread
  // while the workers keep calling, then deliver what is still queued.
  MessageLoop::runUntil([&] { return calls.load() >= 200; }, std::chrono::seconds(20));
  EXPECT_GE(calls.load(), 200);
  dead.store(true);
  widget.reset();
  MessageLoop::runUntil([&] { return sent.load() > 1000; }, std::chrono::seconds(20));
  stop.store(true);
  for (auto& worker : workers)
    worker.join();
  while (MessageLoop::runPending() != 0) {
  }
  EXPECT_EQ(callsAfterDeath.load(), 0);
}

TEST(MessageQueueThreaded, PostsFromManyThreadsAreAllDeliveredOnTheUIThreadInPerThreadOrder) {
  MessageLoop::runPending();
  constexpr int kThreads = 4;
  constexpr int kPosts = 500;
  std::vector<std::vector<int>> seen(kThreads);
  std::atomic<int> offThread{0};
  std::vector<std::thread> posters;
  for (int t = 0; t < kThreads; ++t)
    posters.emplace_back([&, t] {
      for (int i = 0; i < kPosts; ++i)
        defer([&, t, i] {
          if (co_pid() != 0)
            offThread.fetch_add(1);
          seen[t].push_back(i);
        });
    });
  for (auto& poster : posters)
    poster.join();
  MessageLoop::runUntil(
      [&] {
        for (auto const& s : seen)
          if (s.size() != kPosts)
            return false;
        return true;
      },
      std::chrono::seconds(20));
  EXPECT_EQ(offThread.load(), 0);
  for (auto const& s : seen) {
    ASSERT_EQ(s.size(), std::size_t{kPosts});
    EXPECT_TRUE(std::is_sorted(s.begin(), s.end()));
  }
}

} // namespace
