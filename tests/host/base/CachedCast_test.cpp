#include "CachedCastClasses.h"

#include <zowidgets/host/base/CachedCast.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using namespace CastTest;

template <class To> To* byRuntime(Root* from) { return dynamic_cast<To*>(from); }

TEST(CachedCast, AgreesWithTheRuntimeForEveryTypeAndEveryTimeItIsAsked) {
  std::vector<std::unique_ptr<Root>> objects;
  objects.push_back(std::make_unique<Both>());
  objects.push_back(std::make_unique<PaddedBoth>());
  objects.push_back(std::make_unique<LeftOnly>());
  objects.push_back(std::make_unique<Both>());
  objects.push_back(std::make_unique<PaddedBoth>());
  objects.push_back(std::make_unique<LeftOnly>());
  for (int round = 0; round < 3; ++round)
    for (auto const& object : objects) {
      Root* root = object.get();
      EXPECT_EQ(Zo::cachedDynamicCast<Left>(root), byRuntime<Left>(root));
      EXPECT_EQ(Zo::cachedDynamicCast<Right>(root), byRuntime<Right>(root));
      EXPECT_EQ(Zo::cachedDynamicCast<Both>(root), byRuntime<Both>(root));
      EXPECT_EQ(Zo::cachedDynamicCast<Padding>(root), byRuntime<Padding>(root));
      EXPECT_EQ(Zo::cachedDynamicCast<PaddedBoth>(root), byRuntime<PaddedBoth>(root));
    }
}

TEST(CachedCast, ReachesTheMembersOfTheBaseItFinds) {
  PaddedBoth padded;
  padded.right = 33;
  Root* root = &padded;
  Zo::cachedDynamicCast<Right>(root); // the first asks the runtime
  Right* right = Zo::cachedDynamicCast<Right>(root);
  ASSERT_NE(right, nullptr);
  EXPECT_EQ(right->right, 33);
  EXPECT_EQ(right, static_cast<Right*>(&padded));
}

TEST(CachedCast, GivesNullForNullAndForAClassTheObjectIsNot) {
  EXPECT_EQ(Zo::cachedDynamicCast<Left>(static_cast<Root*>(nullptr)), nullptr);
  LeftOnly left;
  Root* root = &left;
  EXPECT_EQ(Zo::cachedDynamicCast<Right>(root), nullptr);
  EXPECT_EQ(Zo::cachedDynamicCast<Right>(root), nullptr); // kept as "not a base"
  EXPECT_NE(Zo::cachedDynamicCast<Left>(root), nullptr);
}

TEST(CachedCast, KeepsConstness) {
  Both both;
  both.left = 22;
  Root const* root = &both;
  Left const* left = Zo::cachedDynamicCast<Left const>(root);
  Left const* again = Zo::cachedDynamicCast<Left const>(root);
  ASSERT_NE(left, nullptr);
  EXPECT_EQ(left, again);
  EXPECT_EQ(left->left, 22);
}

} // namespace
