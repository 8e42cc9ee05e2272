#include <zowidgets/host/toolkit/PositionNames.h>

#include <gtest/gtest.h>

namespace {

TEST(PositionNames, EveryOriginHasANameThatReadsBack) {
  for (eCoordinateOrigin origin :
       {kOriginCentre, kOriginLeft, kOriginRight, kOriginTop, kOriginBottom, kOriginBottomLeft, kOriginTopLeft,
        kOriginBottomRight, kOriginTopRight, kOriginPanelDefault}) {
    LightweightString<char> const name = asString(origin);
    EXPECT_FALSE(name.empty()) << origin;
    EXPECT_EQ(CoordinateOriginFromString(name), origin) << name.str();
  }
  EXPECT_EQ(asString(kOriginBottomLeft), "bottomleft");
  EXPECT_EQ(asString(kOriginPanelDefault), "default");
}

TEST(PositionNames, EveryRelativityHasANameThatReadsBack) {
  for (eWidgetRelativity relativity : {kRelativeNone, kRelativeLeft, kRelativeRight, kRelativeAbove, kRelativeBelow}) {
    LightweightString<char> const name = asString(relativity);
    EXPECT_FALSE(name.empty()) << relativity;
    EXPECT_EQ(WidgetRelativityFromString(name), relativity) << name.str();
  }
  EXPECT_EQ(asString(kRelativeBelow), "below");
}

TEST(PositionNames, ValuesWithoutANameHaveNoTextAndUnknownTextReadsAsTheFirstValue) {
  EXPECT_TRUE(asString(eCoordinateOrigin(9)).empty());
  EXPECT_TRUE(asString(eWidgetRelativity(-1)).empty());
  EXPECT_EQ(CoordinateOriginFromString(""), kOriginCentre);
  EXPECT_EQ(CoordinateOriginFromString("TopLeft"), kOriginCentre) << "case matters";
  EXPECT_EQ(WidgetRelativityFromString(""), kRelativeNone);
  EXPECT_EQ(WidgetRelativityFromString("below "), kRelativeNone);
}

} // namespace
