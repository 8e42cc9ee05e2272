#include "CachedCastClasses.h"

#include <zowidgets/host/base/CachedCast.h>

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

namespace {

using namespace CastTest;

TEST(CachedCast, EachThreadFindsTheSameAnswers) {
  std::vector<std::unique_ptr<Root>> objects;
  for (int i = 0; i < 30; ++i) {
    if (i % 3 == 0)
      objects.push_back(std::make_unique<Both>());
    else if (i % 3 == 1)
      objects.push_back(std::make_unique<PaddedBoth>());
    else
      objects.push_back(std::make_unique<LeftOnly>());
  }
  std::vector<int> mismatches(4, 0);
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&objects, &mismatches, t] {
      for (int round = 0; round < 200; ++round)
        for (auto const& object : objects) {
          Root* root = object.get();
          if (Zo::cachedDynamicCast<Right>(root) != dynamic_cast<Right*>(root) ||
              Zo::cachedDynamicCast<Left>(root) != dynamic_cast<Left*>(root))
            ++mismatches[t];
        }
    });
  for (std::thread& thread : threads)
    thread.join();
  for (int count : mismatches)
    EXPECT_EQ(count, 0);
}

} // namespace
