#include <zowidgets/host/toolkit/GlobTheme.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include "support/SharedState.h"

#include <gtest/gtest.h>

namespace {

class GlobThemeTest : public ::testing::Test {
protected:
  void SetUp() override { resetSharedState(); }
  void TearDown() override { resetSharedState(); }
};

TEST_F(GlobThemeTest, TheEdgeGrabSizeIsFourPixelsAtScaleOne) { EXPECT_EQ(GlobTheme::edgeGrabSize(), 4); }

TEST_F(GlobThemeTest, TheEdgeGrabSizeFollowsTheScale) {
  UifStd::setScale(2.0);
  EXPECT_EQ(GlobTheme::edgeGrabSize(), 8);
  UifStd::setScale(1.5);
  EXPECT_EQ(GlobTheme::edgeGrabSize(), 6);
}

TEST_F(GlobThemeTest, TheThemeSetsTheEdgeGrabSize) {
  UifStd::getTheme().set(GlobTheme::kEdgeGrabSizeKey, 7);
  EXPECT_EQ(GlobTheme::edgeGrabSize(), 7);
}

TEST_F(GlobThemeTest, TheEdgeGrabSizeIsAtLeastOnePixel) {
  UifStd::getTheme().set(GlobTheme::kEdgeGrabSizeKey, 0);
  EXPECT_EQ(GlobTheme::edgeGrabSize(), 1);
  UifStd::getTheme().set(GlobTheme::kEdgeGrabSizeKey, -5);
  EXPECT_EQ(GlobTheme::edgeGrabSize(), 1);
}

TEST_F(GlobThemeTest, TheGaugeHeightIsTwoRowGapsUnlessTheThemeSetsIt) {
  EXPECT_EQ(GlobTheme::gaugeHeight(), 2 * UifStd::getRowGap());
  UifStd::setScale(2.0);
  EXPECT_EQ(GlobTheme::gaugeHeight(), 2 * UifStd::getRowGap());
}

TEST_F(GlobThemeTest, TheThemeSetsTheGaugeHeightAtScaleOne) {
  UifStd::getTheme().set(GlobTheme::kGaugeHeightKey, 9);
  EXPECT_EQ(GlobTheme::gaugeHeight(), 9);
  UifStd::setScale(1.5);
  EXPECT_EQ(GlobTheme::gaugeHeight(), 14); // 13.5 rounded
  UifStd::getTheme().set(GlobTheme::kGaugeHeightKey, 0);
  EXPECT_EQ(GlobTheme::gaugeHeight(), 1);
}

} // namespace
