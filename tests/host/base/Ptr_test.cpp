#include <zowidgets/host/base/Ptr.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

struct Tracked : iObject {
  explicit Tracked(int& alive) : alive(alive) { ++alive; }
  ~Tracked() override { --alive; }
  int& alive;
};
struct Derived : Tracked {
  using Tracked::Tracked;
};

TEST(Ptr, LastReleaseRunsTheVirtualDestructor) {
  int alive = 0;
  {
    Zo::Ptr<iObject> base(new Derived(alive));
    Zo::Ptr<iObject> copy = base;
    EXPECT_EQ(base.useCount(), 2);
    base.reset();
    EXPECT_EQ(alive, 1);
  }
  EXPECT_EQ(alive, 0);
}

TEST(Ptr, NullIsLegalEverywhere) {
  Zo::Ptr<Tracked> none;
  Zo::Ptr<Tracked> copy = none;
  EXPECT_FALSE(copy);
  EXPECT_EQ(copy.useCount(), 0);
  EXPECT_TRUE(copy == nullptr);
  copy = nullptr;
  EXPECT_FALSE(none.dynamicCast<Derived>());
}

TEST(Ptr, TheCountLivesInTheObjectSoRawWrappingShares) {
  int alive = 0;
  auto* raw = new Tracked(alive);
  Zo::Ptr<Tracked> first(raw);
  Zo::Ptr<Tracked> second(raw); // an intrusive count: both handles share it
  EXPECT_EQ(first.useCount(), 2);
  EXPECT_EQ(first.countAddress(), second.countAddress());
  first.reset();
  EXPECT_EQ(alive, 1);
  second.reset();
  EXPECT_EQ(alive, 0);
}

TEST(Ptr, DynamicCastSharesTheCountOrGivesNull) {
  int alive = 0;
  Zo::Ptr<iObject> object(new Derived(alive));
  Zo::Ptr<Derived> derived = object.dynamicCast<Derived>();
  ASSERT_TRUE(derived);
  EXPECT_EQ(object.useCount(), 2);
  struct Other : iObject {};
  EXPECT_FALSE(object.dynamicCast<Other>());
}

TEST(Ptr, MovingLeavesTheSourceNull) {
  int alive = 0;
  Zo::Ptr<Tracked> a(new Tracked(alive));
  Zo::Ptr<Tracked> b = std::move(a);
  EXPECT_FALSE(a);
  EXPECT_EQ(b.useCount(), 1);
}

TEST(Ptr, ExternalCountHoldsPlainTypes) {
  using VectorPtr = Zo::Ptr<std::vector<int>, Zo::DtorTraits, Zo::ExternalRefCountTraits>;
  VectorPtr numbers(new std::vector<int>{1, 2, 3});
  VectorPtr copy = numbers;
  EXPECT_EQ(numbers.useCount(), 2);
  copy->push_back(4);
  EXPECT_EQ(numbers->size(), 4u);
}

TEST(Ptr, CopyOfAnObjectStartsWithItsOwnCount) {
  int alive = 0;
  Zo::Ptr<Tracked> a(new Tracked(alive));
  Zo::Ptr<Tracked> b = a;
  Tracked copy(*a);
  EXPECT_EQ(copy.refCount(), 0);
  EXPECT_EQ(a->refCount(), 2);
}

TEST(Ptr, CountsAreAtomicAcrossThreads) {
  int alive = 0;
  Zo::Ptr<Tracked> shared(new Tracked(alive));
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([shared] {
      for (int i = 0; i < 20000; ++i) {
        Zo::Ptr<Tracked> local = shared;
        local.reset();
      }
    });
  for (auto& thread : threads)
    thread.join();
  EXPECT_EQ(shared.useCount(), 1);
  shared.reset();
  EXPECT_EQ(alive, 0);
}

} // namespace
