#include <zowidgets/host/base/detail/LruCache.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

TEST(LruCache, KeepsWhatFitsAndForgetsTheLeastRecentlyUsed) {
  LruCache<int, std::string> cache(3);
  cache.insert(1, "one");
  cache.insert(2, "two");
  cache.insert(3, "three");
  EXPECT_EQ(cache.size(), 3u);
  cache.insert(4, "four");
  EXPECT_EQ(cache.size(), 3u);
  EXPECT_EQ(cache.find(1), nullptr);
  ASSERT_NE(cache.find(2), nullptr);
  EXPECT_EQ(*cache.find(2), "two");
  EXPECT_EQ(*cache.find(4), "four");
}

TEST(LruCache, FindingMakesAnEntryTheMostRecentlyUsed) {
  LruCache<int, std::string> cache(2);
  cache.insert(1, "one");
  cache.insert(2, "two");
  ASSERT_NE(cache.find(1), nullptr);
  cache.insert(3, "three");
  EXPECT_NE(cache.find(1), nullptr);
  EXPECT_EQ(cache.find(2), nullptr);
}

TEST(LruCache, InsertingAKeptKeyReplacesItsValue) {
  LruCache<std::string, int> cache(2);
  cache.insert("a", 1);
  cache.insert("b", 2);
  EXPECT_EQ(cache.insert("a", 10), 10);
  EXPECT_EQ(cache.size(), 2u);
  EXPECT_EQ(*cache.find("a"), 10);
  // The replaced entry is the newest, so the next insertion forgets "b".
  cache.insert("c", 3);
  EXPECT_EQ(cache.find("b"), nullptr);
  EXPECT_NE(cache.find("a"), nullptr);
}

TEST(LruCache, ForgottenValuesAreDestroyed) {
  auto const watched = std::make_shared<int>(7);
  LruCache<int, std::shared_ptr<int>> cache(1);
  cache.insert(1, watched);
  EXPECT_EQ(watched.use_count(), 2);
  cache.insert(2, std::make_shared<int>(8));
  EXPECT_EQ(watched.use_count(), 1);
  cache.insert(3, watched);
  cache.clear();
  EXPECT_EQ(watched.use_count(), 1);
  EXPECT_EQ(cache.size(), 0u);
}

TEST(LruCache, AZeroCapacityStillKeepsOne) {
  LruCache<int, int> cache(0);
  EXPECT_EQ(cache.capacity(), 1u);
  cache.insert(1, 1);
  cache.insert(2, 2);
  EXPECT_EQ(cache.size(), 1u);
  EXPECT_NE(cache.find(2), nullptr);
}
