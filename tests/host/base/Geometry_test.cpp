#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/XY.h>

#include <gtest/gtest.h>

#include <type_traits>

static_assert(std::has_virtual_destructor_v<XY<int>>);
static_assert(XY<int>::unset().isUnset(), "the sentinel is usable in constant expressions");
static_assert(Zo::Box<int>(0, 0, 4, 3).getDimensions() == XY<int>(4, 3));
static_assert(std::is_same_v<Zo::Box<int>, Zo::Box<int, Zo::BottomUpTraits>>);

TEST(XY, DefaultsToOrigin) {
  XY<int> origin;
  EXPECT_EQ(origin.x, 0);
  EXPECT_EQ(origin.y, 0);
  XY<double> originD;
  EXPECT_EQ(originD, XY<double>(0.0, 0.0));
}

TEST(XY, ArithmeticIsPerCoordinate) {
  XY<int> a(3, 4);
  XY<int> b(1, -2);
  EXPECT_EQ(a + b, XY<int>(4, 2));
  EXPECT_EQ(a - b, XY<int>(2, 6));
  a += b;
  EXPECT_EQ(a, XY<int>(4, 2));
  a -= XY<int>(4, 2);
  EXPECT_EQ(a, XY<int>());
  EXPECT_EQ(XY<double>(0.5, 1.5) + XY<double>(0.25, -1.5), XY<double>(0.75, 0.0));
}

TEST(XY, EqualityNeedsBothCoordinates) {
  EXPECT_EQ(XY<int>(1, 2), XY<int>(1, 2));
  EXPECT_NE(XY<int>(1, 2), XY<int>(2, 1));
  EXPECT_NE(XY<int>(1, 2), XY<int>(1, 3));
}

TEST(XY, UnsetIsMinus1234OnBothAxes) {
  EXPECT_EQ(XY<int>::unset(), XY<int>(-1234, -1234));
  EXPECT_EQ(XY<double>::unset(), XY<double>(-1234.0, -1234.0));
  EXPECT_TRUE(XY<int>(-1234, -1234).isUnset());
  EXPECT_TRUE(XY<double>(-1234.0, -1234.0).isUnset());
  EXPECT_FALSE(XY<int>(-1234, 0).isUnset());
  EXPECT_FALSE(XY<int>(0, -1234).isUnset());
  EXPECT_FALSE(XY<int>().isUnset());
  EXPECT_FALSE(XY<double>(-1234.5, -1234.0).isUnset());
}

TEST(Box, TakesCornersInEitherOrder) {
  Zo::Box<int> box(10, 20, 2, 5);
  EXPECT_EQ(box.x0, 2);
  EXPECT_EQ(box.y0, 5);
  EXPECT_EQ(box.x1, 10);
  EXPECT_EQ(box.y1, 20);
  EXPECT_EQ(box, Zo::Box<int>(XY<int>(2, 20), XY<int>(10, 5)));
}

TEST(Box, DimensionsAreTheDifferences) {
  Zo::Box<int> box(1, 2, 11, 7);
  EXPECT_EQ(box.width(), 10);
  EXPECT_EQ(box.height(), 5);
  EXPECT_EQ(box.getDimensions(), XY<int>(10, 5));
  Zo::Box<double> boxD(0.5, 0.25, 1.0, 1.0);
  EXPECT_EQ(boxD.getDimensions(), XY<double>(0.5, 0.75));
}

TEST(Box, EmptyWhenEitherSideHasNoLength) {
  EXPECT_TRUE(Zo::Box<int>().empty());
  EXPECT_TRUE(Zo::Box<int>(0, 0, 5, 0).empty());
  EXPECT_TRUE(Zo::Box<int>(0, 0, 0, 5).empty());
  EXPECT_FALSE(Zo::Box<int>(0, 0, 1, 1).empty());
  Zo::Box<int> inverted;
  inverted.x0 = 5; // fields set directly are not reordered
  inverted.x1 = 1;
  inverted.y1 = 4;
  EXPECT_TRUE(inverted.empty());
}

TEST(Box, ContainsLowEdgesButNotHighEdges) {
  Zo::Box<int> box(0, 0, 4, 3);
  EXPECT_TRUE(box.contains(XY<int>(0, 0)));
  EXPECT_TRUE(box.contains(XY<int>(3, 2)));
  EXPECT_FALSE(box.contains(XY<int>(4, 2)));
  EXPECT_FALSE(box.contains(XY<int>(3, 3)));
  EXPECT_FALSE(box.contains(XY<int>(-1, 1)));
  EXPECT_FALSE(box.contains(XY<int>(1, -1)));
  int inside = 0;
  for (int x = -2; x < 8; ++x)
    for (int y = -2; y < 8; ++y)
      inside += box.contains(XY<int>(x, y)) ? 1 : 0;
  EXPECT_EQ(inside, box.width() * box.height());
  EXPECT_FALSE(Zo::Box<int>(2, 2, 2, 2).contains(XY<int>(2, 2)));
}

TEST(Box, PointInBoxAgreesWithContains) {
  Zo::Box<double> box(-1.0, -1.0, 1.0, 1.0);
  EXPECT_TRUE(Zo::point_in_box(box, XY<double>(0.0, 0.0)));
  EXPECT_TRUE(Zo::point_in_box(box, XY<double>(-1.0, 0.999)));
  EXPECT_FALSE(Zo::point_in_box(box, XY<double>(1.0, 0.0)));
  EXPECT_FALSE(Zo::point_in_box(box, XY<double>(0.0, 1.0)));
  Zo::Box<int> boxI(0, 0, 2, 2);
  for (int x = -1; x < 4; ++x)
    for (int y = -1; y < 4; ++y)
      EXPECT_EQ(Zo::point_in_box(boxI, XY<int>(x, y)), boxI.contains(XY<int>(x, y)));
}

TEST(Box, IntersectGivesTheOverlap) {
  Zo::Box<int> a(0, 0, 10, 10);
  Zo::Box<int> b(5, -5, 15, 5);
  EXPECT_EQ(a.intersect(b), Zo::Box<int>(5, 0, 10, 5));
  EXPECT_EQ(b.intersect(a), a.intersect(b));
  EXPECT_EQ(a.intersect(Zo::Box<int>(2, 2, 3, 3)), Zo::Box<int>(2, 2, 3, 3));
}

TEST(Box, IntersectOfSeparateOrTouchingBoxesIsEmpty) {
  Zo::Box<int> a(0, 0, 10, 10);
  EXPECT_EQ(a.intersect(Zo::Box<int>(20, 20, 30, 30)), Zo::Box<int>());
  Zo::Box<int> touching = a.intersect(Zo::Box<int>(10, 0, 20, 10));
  EXPECT_TRUE(touching.empty());
  EXPECT_EQ(touching, Zo::Box<int>());
}

TEST(Box, UniteCoversBothAndIgnoresEmptyBoxes) {
  Zo::Box<int> a(0, 0, 2, 2);
  Zo::Box<int> b(5, -3, 6, 1);
  EXPECT_EQ(a.unite(b), Zo::Box<int>(0, -3, 6, 2));
  EXPECT_EQ(b.unite(a), a.unite(b));
  Zo::Box<int> nothing(100, 100, 100, 200);
  EXPECT_EQ(a.unite(nothing), a);
  EXPECT_EQ(nothing.unite(a), a);
}

TEST(Box, TranslatedMovesBothCorners) {
  Zo::Box<int> box(1, 2, 3, 5);
  EXPECT_EQ(box.translated(XY<int>(10, -2)), Zo::Box<int>(11, 0, 13, 3));
  EXPECT_EQ(box.translated(XY<int>(10, -2)).getDimensions(), box.getDimensions());
  EXPECT_EQ(Zo::Box<double>(0.0, 0.0, 1.0, 1.0).translated(XY<double>(0.5, 0.5)), Zo::Box<double>(0.5, 0.5, 1.5, 1.5));
}
