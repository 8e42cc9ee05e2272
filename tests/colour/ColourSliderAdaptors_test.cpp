#include <zowidgets/colour/ColourSliderAdaptors.h>

#include <gtest/gtest.h>

namespace {

TEST(AlphaSliderAdaptor, SliderRunsOverAlphaUnscaled) {
  ValServer<ColourData> server(ColourData(0.1, 0.2, 0.3, ColourSpace::RGB, 0.4));
  AlphaSliderAdaptor alpha(&server);
  EXPECT_EQ(alpha.getDataValue(), 0.4);
  EXPECT_TRUE(alpha.requestSetNewDataValue(0.75, kDataChangeAll));
  EXPECT_EQ(server.get(), ColourData(0.1, 0.2, 0.3, ColourSpace::RGB, 0.75));
}

TEST(RGBComponentAdaptor, ReadsTheComponentInRGBWhateverTheSpace) {
  ValServer<ColourData> server(ColourData(120.0, 1.0, 0.5, ColourSpace::HSV));
  RGBComponentAdaptor red(0, &server);
  RGBComponentAdaptor green(1, &server);
  EXPECT_DOUBLE_EQ(red.getDataValue(), 0.0);
  EXPECT_DOUBLE_EQ(green.getDataValue(), 0.5);
}

TEST(RGBComponentAdaptor, WritesBackInTheSpaceRecordedAtConstruction) {
  ValServer<ColourData> server(ColourData(240.0, 1.0, 1.0, ColourSpace::HSV, 0.5));
  RGBComponentAdaptor red(0, &server);
  EXPECT_EQ(red.getRestoredSpace(), ColourSpace::HSV);
  red.requestSetNewDataValue(1.0, kDataChangeAll);
  ColourData const after = server.get();
  EXPECT_EQ(after.getColourSpace(), ColourSpace::HSV);
  EXPECT_DOUBLE_EQ(after.getHue(), 300.0);
  EXPECT_DOUBLE_EQ(after.getAlpha(), 0.5);
}

TEST(RGBComponentAdaptor, TheRecordedSpaceDoesNotFollowTheServer) {
  ValServer<ColourData> server(ColourData(0.5, 0.5, 0.5));
  RGBComponentAdaptor blue(2, &server);
  server = ColourData(0.0, 0.0, 0.5, ColourSpace::HSV);
  blue.requestSetNewDataValue(0.25, kDataChangeAll);
  EXPECT_EQ(server.get().getColourSpace(), ColourSpace::RGB);
  EXPECT_DOUBLE_EQ(server.get().getBlue(), 0.25);
  EXPECT_DOUBLE_EQ(server.get().getRed(), 0.5);
}

TEST(LuminanceAdaptor, SliderIsTheHSVValue) {
  ValServer<ColourData> server(ColourData(0.2, 0.6, 0.4));
  LuminanceAdaptor luminance(&server);
  EXPECT_DOUBLE_EQ(luminance.getDataValue(), 0.6);
  luminance.requestSetNewDataValue(0.3, kDataChangeAll);
  ColourData const after = server.get();
  EXPECT_EQ(after.getColourSpace(), ColourSpace::RGB);
  EXPECT_NEAR(after.getValue(), 0.3, 1e-12);
  EXPECT_NEAR(after.getRed(), 0.1, 1e-12);
  EXPECT_NEAR(after.getGreen(), 0.3, 1e-12);
  EXPECT_NEAR(after.getBlue(), 0.2, 1e-12);
}

TEST(LuminanceAdaptor, AnHSVColourStaysInHSV) {
  ValServer<ColourData> server(ColourData(50.0, 0.5, 0.9, ColourSpace::HSV));
  LuminanceAdaptor luminance(&server);
  luminance.requestSetNewDataValue(0.2, kDataChangeAll);
  EXPECT_EQ(server.get(), ColourData(50.0, 0.5, 0.2, ColourSpace::HSV));
}

// The value side of a slider-like widget, remembering what it was told to
// show.
class ShownNumber : public ValWidget<double> {
public:
  void setNewWidgetValue(double& value, eRedrawFlag) override { number = value; }
  double getWidgetValue() override { return number; }
  double number = -1.0;
};

TEST(ColourSliderAdaptors, SlidersFollowTheServer) {
  ValServer<ColourData> server(ColourData(0.0, 0.0, 0.0, ColourSpace::RGB, 1.0));
  ShownNumber alpha;
  ShownNumber red;
  ShownNumber luminance;
  alpha.setDataAdaptor(Zo::Ptr<ValAdaptorBase<double>>(new AlphaSliderAdaptor(&server)));
  red.setDataAdaptor(Zo::Ptr<ValAdaptorBase<double>>(new RGBComponentAdaptor(0, &server)));
  luminance.setDataAdaptor(Zo::Ptr<ValAdaptorBase<double>>(new LuminanceAdaptor(&server)));
  EXPECT_EQ(alpha.number, 1.0);

  red.requestSetNewDataValue(0.8, kDataChangeAll);
  EXPECT_DOUBLE_EQ(red.number, 0.8);
  EXPECT_DOUBLE_EQ(luminance.number, 0.8);
  alpha.requestSetNewDataValue(0.5, kDataChangeAll);
  EXPECT_EQ(alpha.number, 0.5);
  EXPECT_DOUBLE_EQ(red.number, 0.8);
}

} // namespace
