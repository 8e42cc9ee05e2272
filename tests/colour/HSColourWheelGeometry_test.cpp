#include <zowidgets/colour/HSColourWheel.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

// A wheel 200 pixels square with a border of 4: radius 96, centre (100, 100).
HSColourWheel makeWheel() { return HSColourWheel(nullptr, 200, 1.0, 4); }

TEST(HSColourWheelGeometry, CreationRecordGivesAWidgetGapBorderAndFullBrightness) {
  HSColourWheel wheel(HSColourWheel::InitArgs(GlobCreationInfo(XY<int>(200, 200))));
  int const gap = UifStd::getWidgetGap();
  EXPECT_EQ(wheel.getWheelBorder(), gap);
  EXPECT_EQ(wheel.getRadius(), 100 - gap);
  EXPECT_EQ(wheel.getCentre(), XY<double>(100.0, 100.0));
  EXPECT_EQ(wheel.getDisplayValue(), 1.0);
  EXPECT_EQ(wheel.getValue(), 1.0);
  EXPECT_STREQ(wheel.idstring(), "HSColourWheel");
}

TEST(HSColourWheelGeometry, SizedWheelTakesItsBrightnessAndBorder) {
  HSColourWheel wheel(nullptr, 151, 0.5, 5);
  EXPECT_EQ(wheel.getRadius(), 70.0); // 151 / 2 is 75, less the border
  EXPECT_EQ(wheel.getCentre(), XY<double>(75.0, 75.0));
  EXPECT_EQ(wheel.getDisplayValue(), 0.5);
  EXPECT_EQ(wheel.getValue(), 0.5);
  EXPECT_EQ(wheel.getPalette(), UifStd::getColourScheme());
}

TEST(HSColourWheelGeometry, HueIsTurnedFourteenDegrees) {
  EXPECT_EQ(HSColourWheel::convertHueToDisplayAngle(0.0), 346.0);
  EXPECT_EQ(HSColourWheel::convertHueToDisplayAngle(346.0), 0.0);
  EXPECT_EQ(HSColourWheel::convertHueToDisplayAngle(347.0), -1.0);
  EXPECT_EQ(HSColourWheel::convertDisplayToHueAngle(0.0), 346.0);
  EXPECT_EQ(HSColourWheel::convertDisplayToHueAngle(346.0), 360.0);
  EXPECT_EQ(HSColourWheel::convertDisplayToHueAngle(180.0), 166.0);
}

TEST(HSColourWheelGeometry, Hue346PointsStraightUp) {
  HSColourWheel wheel = makeWheel();
  double x = 7.0;
  double y = 7.0;
  ASSERT_EQ(wheel.convertHStoXY(346.0, 0.5, x, y), 0);
  EXPECT_EQ(x, 0.0);
  EXPECT_EQ(y, 48.0);
}

TEST(HSColourWheelGeometry, Hue347PlotsJustLeftOfTheTopThroughANegativeAngle) {
  HSColourWheel wheel = makeWheel();
  double x = 0.0;
  double y = 0.0;
  ASSERT_EQ(wheel.convertHStoXY(347.0, 0.5, x, y), 0);
  EXPECT_LT(x, 0.0);
  EXPECT_NEAR(x, -48.0 * std::sin(3.141592653589793 / 180.0), 1e-9);
  EXPECT_NEAR(y, 48.0 * std::cos(3.141592653589793 / 180.0), 1e-9);
  double hue = 0.0;
  double saturation = 0.0;
  ASSERT_EQ(wheel.convertXYtoHS(x, y, hue, saturation), 0);
  EXPECT_NEAR(hue, 347.0, 1e-9);
  EXPECT_NEAR(saturation, 0.5, 1e-12);
}

TEST(HSColourWheelGeometry, SaturationZeroIsTheCentreWhereHueReadsBackAs166) {
  HSColourWheel wheel = makeWheel();
  double x = 5.0;
  double y = 5.0;
  ASSERT_EQ(wheel.convertHStoXY(40.0, 0.0, x, y), 0);
  EXPECT_EQ(x, 0.0);
  EXPECT_EQ(y, 0.0);
  double hue = -1.0;
  double saturation = -1.0;
  ASSERT_EQ(wheel.convertXYtoHS(0.0, 0.0, hue, saturation), 0);
  EXPECT_EQ(hue, 166.0);
  EXPECT_EQ(saturation, 0.0);
}

TEST(HSColourWheelGeometry, EachQuadrantAndAxisGivesItsDisplayAngle) {
  HSColourWheel wheel = makeWheel();
  struct Case {
    double x, y, displayAngle;
  };
  Case const cases[] = {{10, 10, 45},    {10, -10, 135}, {10, 0, 90}, {-10, 10, 315},
                        {-10, -10, 225}, {-10, 0, 270},  {0, 10, 0},  {0, -10, 180}};
  for (Case const& c : cases) {
    double hue = 0.0;
    double saturation = 0.0;
    ASSERT_EQ(wheel.convertXYtoHS(c.x, c.y, hue, saturation), 0) << c.x << ", " << c.y;
    EXPECT_NEAR(hue, HSColourWheel::convertDisplayToHueAngle(c.displayAngle), 1e-9) << c.x << ", " << c.y;
    EXPECT_DOUBLE_EQ(saturation, std::hypot(c.x, c.y) / 96.0);
  }
}

TEST(HSColourWheelGeometry, DiscMembershipIsDecidedInWholePixels) {
  HSColourWheel wheel = makeWheel();
  double hue = -1.0;
  double saturation = -1.0;
  EXPECT_EQ(wheel.convertXYtoHS(95.99, 0.0, hue, saturation), 0);
  EXPECT_NEAR(saturation, 95.99 / 96.0, 1e-12);
  hue = saturation = -1.0;
  EXPECT_EQ(wheel.convertXYtoHS(96.0, 0.0, hue, saturation), -1);
  EXPECT_EQ(wheel.convertXYtoHS(67.9, 67.9, hue, saturation), -1); // 96.02 away
  EXPECT_EQ(hue, -1.0);
  EXPECT_EQ(saturation, -1.0);
}

TEST(HSColourWheelGeometry, OutOfRangeHueOrSaturationIsRefused) {
  HSColourWheel wheel = makeWheel();
  double x = 3.0;
  double y = 4.0;
  EXPECT_EQ(wheel.convertHStoXY(-0.1, 0.5, x, y), -1);
  EXPECT_EQ(wheel.convertHStoXY(360.1, 0.5, x, y), -1);
  EXPECT_EQ(wheel.convertHStoXY(100.0, 1.01, x, y), -1);
  EXPECT_EQ(wheel.convertHStoXY(100.0, -0.01, x, y), -1);
  EXPECT_EQ(x, 3.0);
  EXPECT_EQ(y, 4.0);
  EXPECT_EQ(wheel.convertHStoXY(360.0, 1.0, x, y), 0);
}

TEST(HSColourWheelGeometry, HueAndSaturationSurviveTheRoundTrip) {
  HSColourWheel wheel = makeWheel();
  for (double hue = 0.5; hue < 360.0; hue += 17.25)
    for (double saturation : {0.05, 0.3, 0.77, 0.99}) {
      double x = 0.0;
      double y = 0.0;
      ASSERT_EQ(wheel.convertHStoXY(hue, saturation, x, y), 0);
      double backHue = 0.0;
      double backSaturation = 0.0;
      ASSERT_EQ(wheel.convertXYtoHS(x, y, backHue, backSaturation), 0);
      EXPECT_NEAR(backHue, hue, 1e-9);
      EXPECT_NEAR(backSaturation, saturation, 1e-12);
    }
}

TEST(HSColourWheelGeometry, PointsBeyondTheRimSnapOntoItAlongTheirLine) {
  HSColourWheel wheel = makeWheel();
  double x = -30.0;
  double y = -40.0;
  wheel.snapPoint(x, y);
  EXPECT_EQ(x, -30.0);
  EXPECT_EQ(y, -40.0);
  x = -300.0;
  y = -400.0;
  wheel.snapPoint(x, y);
  EXPECT_NEAR(x, -57.6, 1e-9);
  EXPECT_NEAR(y, -76.8, 1e-9);
  x = 500.0;
  y = 0.0;
  wheel.snapPoint(x, y);
  EXPECT_EQ(x, 96.0);
  EXPECT_NEAR(y, 0.0, 1e-12);
}

TEST(HSColourWheelGeometry, ValidPointsAreACircleAndPointsOfInterestASquare) {
  HSColourWheel wheel = makeWheel();
  EXPECT_TRUE(wheel.validColourPoint(96.0, 0.0));
  EXPECT_TRUE(wheel.pointOfInterest(96.0, 0.0));
  EXPECT_FALSE(wheel.validColourPoint(80.0, 80.0));
  EXPECT_TRUE(wheel.pointOfInterest(80.0, 80.0));
  EXPECT_TRUE(wheel.pointOfInterest(-96.0, -96.0));
  EXPECT_FALSE(wheel.validColourPoint(96.5, 0.0));
  EXPECT_FALSE(wheel.pointOfInterest(96.5, 0.0));
}

TEST(HSColourWheelGeometry, SetCursorRefusesTheSamePointAndPointsOffTheDisc) {
  HSColourWheel wheel = makeWheel();
  EXPECT_EQ(wheel.getCursor(), XY<double>(0.0, 0.0));
  EXPECT_EQ(wheel.setCursor(0.0, 0.0), -1);
  EXPECT_EQ(wheel.setCursor(120.0, 0.0), -1); // outside the square
  EXPECT_EQ(wheel.setCursor(90.0, 90.0), -1); // in the square, off the disc
  EXPECT_EQ(wheel.getCursor(), XY<double>(0.0, 0.0));
  EXPECT_EQ(wheel.setCursor(10.5, -20.25), 0);
  EXPECT_EQ(wheel.getCursor(), XY<double>(10.5, -20.25));
}

TEST(HSColourWheelGeometry, CrosshairAreaIsAWidgetGapAroundTheCursor) {
  HSColourWheel wheel = makeWheel();
  wheel.setCursor(10.0, -20.0);
  double const gap = UifStd::getWidgetGap();
  EXPECT_EQ(wheel.getAreaForCrosshair(), Zo::Box<double>(110.0 - gap, 80.0 - gap, 110.0 + gap, 80.0 + gap));
}

TEST(HSColourWheelGeometry, ShowingAValueMovesTheCursorAndKeepsThePictureBrightness) {
  HSColourWheel wheel = makeWheel();
  ColourData colour(100.0, 0.5, 0.3, ColourSpace::HSV, 0.8);
  wheel.setNewWidgetValue(colour, kNoRedraw);
  double x = 0.0;
  double y = 0.0;
  wheel.convertHStoXY(100.0, 0.5, x, y);
  EXPECT_EQ(wheel.getCursor(), XY<double>(x, y));
  EXPECT_EQ(wheel.getValue(), 0.3);
  EXPECT_EQ(wheel.getDisplayValue(), 1.0);
}

TEST(HSColourWheelGeometry, AFullySaturatedColourPutsTheCursorJustInsideTheRim) {
  // Saturation 1 lies on the rim, which whole-pixel membership refuses: the
  // cursor stands on the last pixel inside it, on the hue's line.
  HSColourWheel wheel = makeWheel();
  ColourData rim(346.0, 1.0, 1.0, ColourSpace::HSV);
  wheel.setNewWidgetValue(rim, kNoRedraw);
  XY<double> const cursor = wheel.getCursor();
  EXPECT_NEAR(cursor.x, 0.0, 1e-9) << "hue 346 points straight up";
  EXPECT_DOUBLE_EQ(cursor.y, std::floor(wheel.getRadius()) - 0.5);
  double hue = 0.0;
  double saturation = 0.0;
  ASSERT_EQ(wheel.convertXYtoHS(cursor.x, cursor.y, hue, saturation), 0);
  EXPECT_NEAR(hue, 346.0, 1e-6);
  EXPECT_GT(saturation, 0.95);
}

TEST(HSColourWheelGeometry, WidgetValueIsTheCursorsColourAtTheWheelsBrightness) {
  HSColourWheel wheel = makeWheel();
  ColourData colour(200.0, 0.25, 0.6, ColourSpace::HSV);
  wheel.setNewWidgetValue(colour, kNoRedraw);
  ColourData const value = wheel.getWidgetValue();
  EXPECT_EQ(value.getColourSpace(), ColourSpace::HSV);
  EXPECT_NEAR(value.getComponent(0), 200.0, 1e-9);
  EXPECT_NEAR(value.getComponent(1), 0.25, 1e-12);
  EXPECT_EQ(value.getComponent(2), 0.6);
  EXPECT_EQ(value.getAlpha(), 1.0); // unbound: the default colour's alpha
}

TEST(HSColourWheelGeometry, ResizingKeepsTheColourUnderTheCursor) {
  HSColourWheel wheel = makeWheel();
  ColourData colour(75.0, 0.4, 1.0, ColourSpace::HSV);
  wheel.setNewWidgetValue(colour, kNoRedraw);
  wheel.resize(300, 300);
  EXPECT_EQ(wheel.getRadius(), 146.0);
  EXPECT_EQ(wheel.getCentre(), XY<double>(150.0, 150.0));
  EXPECT_NEAR(std::hypot(wheel.getCursor().x, wheel.getCursor().y), 0.4 * 146.0, 1e-9);
  EXPECT_NEAR(wheel.getWidgetValue().getHue(), 75.0, 1e-9);
  wheel.resize(0, 0); // ignored
  EXPECT_EQ(wheel.width(), 300);
}

} // namespace
