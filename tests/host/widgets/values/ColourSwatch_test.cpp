#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ColourSwatch.h>

namespace {

// Shows whatever it is given through the value binding.
class FixedColourAdaptor : public ValAdaptorBase<ColourData> {
public:
  explicit FixedColourAdaptor(ColourData colour) : colour_(colour) {}
  ColourData getDataValue() override { return colour_; }
  bool requestSetNewDataValue(ColourData const& value, DataChangeType) override {
    colour_ = value;
    setNewWidgetValue(value, kRedrawNow);
    return true;
  }

private:
  ColourData colour_;
};

using ColourSwatchTest = HeadlessScreenTest;

TEST_F(ColourSwatchTest, ShowsItsColourInsideAnOutline) {
  StandardPanel* panel = openPanel(XY<int>(100, 60));
  auto* swatch = panel->createWidget<ColourSwatch>(ColourSwatch::InitArgs(XY<int>(40, 30), ColourData(0.9, 0.2, 0.1)),
                                                   Glob::UserTopLeft(0, 0));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*swatch, XY<int>(20, 15))), Rgb{230, 51, 26}));
  EXPECT_EQ(rgbOf(widgetPixel(*swatch, XY<int>(0, 15))), rgbOf(swatch->getPalette().window(6)));
}

TEST_F(ColourSwatchTest, ASizeOfNothingIsARowSquare) {
  ColourSwatch swatch(ColourSwatch::InitArgs{XY<int>(), ColourData()});
  EXPECT_EQ(swatch.getSize(), XY<int>(UifStd::getRowHeight(), UifStd::getRowHeight()));
}

TEST_F(ColourSwatchTest, TransparencyShowsACheckerboard) {
  StandardPanel* panel = openPanel(XY<int>(100, 60));
  auto* swatch = panel->createWidget<ColourSwatch>(
      ColourSwatch::InitArgs(XY<int>(40, 30), ColourData(0.0, 0.0, 1.0, ColourSpace::RGB, 0.0)),
      Glob::UserTopLeft(0, 0));
  int const cell = UifStd::getWidgetGap();
  Rgb const a = rgbOf(widgetPixel(*swatch, XY<int>(cell + 1, cell + 1)));
  Rgb const b = rgbOf(widgetPixel(*swatch, XY<int>(2 * cell + 1, cell + 1)));
  EXPECT_NE(a, b);
  EXPECT_EQ(a.r, a.b); // grey: none of the clear blue shows
}

TEST_F(ColourSwatchTest, AnAdaptorDrivesIt) {
  StandardPanel* panel = openPanel(XY<int>(100, 60));
  auto* swatch =
      panel->createWidget<ColourSwatch>(ColourSwatch::InitArgs(XY<int>(40, 30), ColourData()), Glob::UserTopLeft(0, 0));
  Zo::Ptr<FixedColourAdaptor> adaptor(new FixedColourAdaptor(ColourData(0.0, 1.0, 0.0)));
  swatch->setDataAdaptor(adaptor);
  EXPECT_EQ(swatch->getColour(), ColourData(0.0, 1.0, 0.0));
  adaptor->requestSetNewDataValue(ColourData(1.0, 1.0, 1.0), DataChangeType{});
  EXPECT_EQ(swatch->getWidgetValue(), ColourData(1.0, 1.0, 1.0));
  EXPECT_EQ(rgbOf(widgetPixel(*swatch, XY<int>(20, 15))), (Rgb{255, 255, 255}));
}

} // namespace
