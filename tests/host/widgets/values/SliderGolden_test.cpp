#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/Slider.h>

namespace {

struct SliderGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  // Sliders at the ends and in between, one with a marked default, one
  // coloured, one focused and one inactive, a row each.
  StandardPanel* openSliderSheet() {
    int const row = UifStd::getRowHeight();
    int const gap = UifStd::getRowGap();
    int const width = row * 10;
    XY<int> const userArea(width + 2 * gap, 7 * (row + gap) + gap);
    StandardPanel* panel =
        openPanel(StandardPanel::calcPanelSize(userArea, 0, StandardPanel::getDefaultBorder()), XY<int>(40, 40));
    Slider* previous = nullptr;
    auto add = [&](double value) {
      Slider::InitArgs args(XY<int>(width, row));
      args.initialValue = value;
      WidgetPosition const where = previous ? Glob::Below(gap, previous) : Glob::UserTopLeft(gap, gap);
      previous = panel->createWidget<Slider>(args, where);
      return previous;
    };
    add(0.0);
    add(0.3);
    add(1.0);
    add(0.6)->setPointOfInterest(0.5);
    add(0.75)->setThumbColour(Colour(0.2, 0.3, 1.0));
    add(0.45)->claimKbdFocus();
    add(0.5)->setActive(false, kRedrawNow);
    return panel;
  }
};

TEST_F(SliderGolden, SlidersAtScaleOne) {
  StandardPanel* panel = openSliderSheet();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/slider_sheet.png"));
}

TEST_F(SliderGolden, SlidersAtScaleTwo) {
  UifStd::setScale(2.0);
  StandardPanel* panel = openSliderSheet();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/slider_sheet_scale2.png"));
}

} // namespace
