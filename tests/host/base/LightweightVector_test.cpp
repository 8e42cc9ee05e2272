#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/LightweightVector.h>

#include <gtest/gtest.h>

#include <memory>
#include <numeric>
#include <stdexcept>
#include <type_traits>
#include <utility>

static_assert(std::is_base_of_v<iVirtual, LightweightVector<int>>);

TEST(LightweightVector, DefaultHoldsAnEmptyVectorOfItsOwn) {
  LightweightVector<int> list;
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(list.size(), 0u);
  EXPECT_EQ(list.shareCount(), 1);
  EXPECT_TRUE(list.vec().empty());
}

TEST(LightweightVector, BuildsFromInitializerListAndStdVector) {
  LightweightVector<int> listed{1, 2, 3};
  EXPECT_EQ(listed.vec(), (std::vector<int>{1, 2, 3}));
  std::vector<int> source{4, 5};
  LightweightVector<int> copied(source);
  source.push_back(6);
  EXPECT_EQ(copied.vec(), (std::vector<int>{4, 5}));
}

TEST(LightweightVector, CopiesShareOneVectorAndSeeEachOthersWrites) {
  LightweightVector<int> a{1, 2};
  LightweightVector<int> b = a;
  EXPECT_EQ(a.shareCount(), 2);
  EXPECT_EQ(&a.vec(), &b.vec());
  b.push_back(3);
  b[0] = 10;
  EXPECT_EQ(a.vec(), (std::vector<int>{10, 2, 3}));
  a.clear();
  EXPECT_TRUE(b.empty());
}

TEST(LightweightVector, AssignmentSharesAndReleasesTheOldVector) {
  auto tracked = std::make_shared<int>(7);
  std::weak_ptr<int> watch = tracked;
  LightweightVector<std::shared_ptr<int>> a{tracked};
  tracked.reset();
  LightweightVector<std::shared_ptr<int>> b;
  b.push_back(std::make_shared<int>(8));
  a = b;
  EXPECT_TRUE(watch.expired());
  EXPECT_EQ(a.shareCount(), 2);
  EXPECT_EQ(*a[0], 8);
}

TEST(LightweightVector, LastHandleFreesTheElements) {
  auto tracked = std::make_shared<int>(1);
  std::weak_ptr<int> watch = tracked;
  {
    LightweightVector<std::shared_ptr<int>> a{std::move(tracked)};
    {
      LightweightVector<std::shared_ptr<int>> b = a;
      EXPECT_EQ(a.shareCount(), 2);
    }
    EXPECT_EQ(a.shareCount(), 1);
    EXPECT_FALSE(watch.expired());
  }
  EXPECT_TRUE(watch.expired());
}

TEST(LightweightVector, DestroyedThroughItsVirtualBase) {
  auto tracked = std::make_shared<int>(1);
  std::weak_ptr<int> watch = tracked;
  iVirtual* base = new LightweightVector<std::shared_ptr<int>>{std::move(tracked)};
  EXPECT_FALSE(watch.expired());
  delete base;
  EXPECT_TRUE(watch.expired());
}

TEST(LightweightVector, MovingSharesInsteadOfLeavingTheSourceWithout) {
  LightweightVector<int> a{1, 2};
  LightweightVector<int> b = std::move(a);
  EXPECT_EQ(b.shareCount(), 2);
  a.push_back(3); // a moved-from handle stays usable
  EXPECT_EQ(b.vec(), (std::vector<int>{1, 2, 3}));
}

TEST(LightweightVector, CloneIsIndependent) {
  LightweightVector<int> a{1, 2};
  LightweightVector<int> copy = a.clone();
  EXPECT_EQ(copy.shareCount(), 1);
  EXPECT_EQ(a.shareCount(), 1);
  copy.push_back(3);
  EXPECT_EQ(a.size(), 2u);
  EXPECT_EQ(copy.size(), 3u);
}

TEST(LightweightVector, ElementAccess) {
  LightweightVector<int> list{3, 4, 5};
  EXPECT_EQ(list.front(), 3);
  EXPECT_EQ(list.back(), 5);
  EXPECT_EQ(list.at(1), 4);
  EXPECT_THROW(list.at(3), std::out_of_range);
  list.front() = 30;
  list.back() = 50;
  list.at(1) = 40;
  LightweightVector<int> const& view = list;
  EXPECT_EQ(view[0], 30);
  EXPECT_EQ(view.at(1), 40);
  EXPECT_EQ(view.front(), 30);
  EXPECT_EQ(view.back(), 50);
  EXPECT_THROW(view.at(7), std::out_of_range);
}

TEST(LightweightVector, IteratesInOrder) {
  LightweightVector<int> list{1, 2, 3, 4};
  EXPECT_EQ(std::accumulate(list.begin(), list.end(), 0), 10);
  for (int& item : list)
    item *= 2;
  LightweightVector<int> const& view = list;
  std::vector<int> seen(view.begin(), view.end());
  EXPECT_EQ(seen, (std::vector<int>{2, 4, 6, 8}));
}

TEST(LightweightVector, InsertAndEraseReturnPositions) {
  LightweightVector<int> list{1, 4};
  int const two = 2;
  auto at = list.insert(list.begin() + 1, two);
  EXPECT_EQ(*at, 2);
  at = list.insert(list.begin() + 2, 3);
  EXPECT_EQ(*at, 3);
  EXPECT_EQ(list.vec(), (std::vector<int>{1, 2, 3, 4}));
  at = list.erase(list.begin());
  EXPECT_EQ(*at, 2);
  at = list.erase(list.begin() + 1, list.end());
  EXPECT_EQ(at, list.end());
  EXPECT_EQ(list.vec(), (std::vector<int>{2}));
}

TEST(LightweightVector, EmplaceBackBuildsInPlaceAndReturnsTheElement) {
  LightweightVector<std::pair<int, LightweightString<char>>> list;
  auto& added = list.emplace_back(1, "one");
  EXPECT_EQ(added.first, 1);
  EXPECT_EQ(added.second, "one");
  added.first = 2;
  EXPECT_EQ(list[0].first, 2);
}

TEST(LightweightVector, PushBackMovesWhenGivenATemporary) {
  LightweightVector<std::unique_ptr<int>> list;
  list.push_back(std::make_unique<int>(5));
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(*list[0], 5);
}

TEST(LightweightVector, ReserveResizeAndClearAreSeenByEveryHandle) {
  LightweightVector<int> a;
  LightweightVector<int> b = a;
  a.reserve(100);
  EXPECT_GE(b.vec().capacity(), 100u);
  a.resize(3);
  EXPECT_EQ(b.vec(), (std::vector<int>{0, 0, 0}));
  b.clear();
  EXPECT_TRUE(a.empty());
}

TEST(LightweightVector, EqualityComparesElementsNotHandles) {
  LightweightVector<int> a{1, 2};
  LightweightVector<int> b{1, 2};
  EXPECT_EQ(a, b);
  b.push_back(3);
  EXPECT_NE(a, b);
  LightweightVector<int> shared = a;
  EXPECT_EQ(a, shared);
}
