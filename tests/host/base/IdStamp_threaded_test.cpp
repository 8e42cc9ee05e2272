#include <zowidgets/host/base/IdStamp.h>
#include <zowidgets/host/base/NotifyMsgTypeDictionary.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <thread>
#include <vector>

TEST(IdStampThreaded, StampsMadeOnManyThreadsNeverCollide) {
  constexpr int kThreads = 4;
  constexpr int kEach = 20000;
  std::vector<std::vector<IdStamp>> made(kThreads);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t)
    threads.emplace_back([&, t] {
      made[t].reserve(kEach);
      for (int i = 0; i < kEach; ++i)
        made[t].emplace_back();
    });
  for (auto& thread : threads)
    thread.join();
  std::set<IdStamp> all;
  for (auto const& stamps : made)
    all.insert(stamps.begin(), stamps.end());
  EXPECT_EQ(all.size(), std::size_t{kThreads * kEach});
}

TEST(NotifyMsgTypeDictionaryThreaded, ThreadsAskingForTheSameNameGetTheSameNumber) {
  std::vector<int> numbers(8);
  std::vector<std::thread> threads;
  for (int t = 0; t < 8; ++t)
    threads.emplace_back([&, t] { numbers[t] = NotifyMsgTypeDictionary::instance().lookup("raced name"); });
  for (auto& thread : threads)
    thread.join();
  EXPECT_TRUE(std::all_of(numbers.begin(), numbers.end(), [&](int n) { return n == numbers[0]; }));
}
