#include <zowidgets/values/notify/GenericNotifier.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

struct Counter : iCallbackBase<int, int> {
  explicit Counter(std::atomic<long>& total) : total(total) {}
  int execute(int const& message) override {
    total.fetch_add(message, std::memory_order_relaxed);
    return 0;
  }
  std::atomic<long>& total;
};

TEST(GenericNotifierThreaded, ManyThreadsAddReleaseAndIssueOnOneNotifier) {
  GenericNotifier<int> notifier;
  int const any = NotifyMsgTypeDictionary::instance().anyType();
  std::atomic<long> total{0};
  auto permanent = notifier.addListener(Zo::Ptr<iCallbackBase<int, int>>(new Counter(total)), any);

  constexpr int kThreads = 6;
  constexpr int kRounds = 400;
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int round = 0; round < kRounds; ++round) {
        if (t % 2 == 0) {
          auto guard = notifier.addListener(Zo::Ptr<iCallbackBase<int, int>>(new Counter(total)), any);
          notifier.issueNotification(0, any);
          notifier.deregisterNotification(guard);
        } else {
          notifier.issueNotification(1, any);
        }
      }
    });
  }
  for (auto& thread : threads)
    thread.join();

  // Every odd thread's issue reached at least the permanent listener; the
  // temporary listeners were all released.
  EXPECT_GE(total.load(), long{kThreads / 2 * kRounds});
  EXPECT_EQ(notifier.clientCount(), 1u);
  permanent.reset();
  EXPECT_EQ(notifier.clientCount(), 0u);
}

TEST(GenericNotifierThreaded, ListenerMayReenterFromItsOwnThreadWhileOthersWait) {
  GenericNotifier<int> notifier;
  int const any = NotifyMsgTypeDictionary::instance().anyType();
  std::atomic<int> nested{0};
  struct Reentrant : iCallbackBase<int, int> {
    GenericNotifier<int>& notifier;
    std::atomic<int>& nested;
    int any;
    Reentrant(GenericNotifier<int>& n, std::atomic<int>& c, int a) : notifier(n), nested(c), any(a) {}
    int execute(int const& message) override {
      if (message > 0) {
        nested.fetch_add(1);
        notifier.issueNotification(message - 1, any);
      }
      return 0;
    }
  };
  auto guard = notifier.addListener(Zo::Ptr<iCallbackBase<int, int>>(new Reentrant(notifier, nested, any)), any);
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&] {
      for (int i = 0; i < 200; ++i)
        notifier.issueNotification(3, any);
    });
  for (auto& thread : threads)
    thread.join();
  EXPECT_EQ(nested.load(), 4 * 200 * 3);
}

} // namespace
