#include "support/WidgetTestSupport.h"

#include <zowidgets/colour/DropDownColourPickerButton.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

namespace {

struct ColourPickerGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  static ColourPicker* openPicker(unsigned flags) {
    ColourPicker::InitArgs args(flags, ColourData(0.85, 0.42, 0.16, ColourSpace::RGB, 0.8));
    args.screenPosition = XY<int>(100, 100);
    auto* picker = new ColourPicker(args);
    GlobManager::realize(picker);
    return picker;
  }

  // A window with the button at its top left, opened on a teal.
  DropDownColourPickerButton* openButton() {
    int const row = UifStd::getRowHeight();
    window = openPanel(XY<int>(row * 12, row * 2), XY<int>(100, 700));
    DropDownColourPickerButton::InitArgs args(XY<int>(row * 3, row),
                                              ColourPicker::InitArgs(ColourPicker::kDefaultFlags, ColourData()));
    auto* button = window->createWidget<DropDownColourPickerButton>(args, Glob::UserTopLeft(0, 0));
    button->setColour(NormalisedRGB(0.1f, 0.6f, 0.65f));
    pump();
    return button;
  }

  // The button's window and the open drop-down, as the screen shows them.
  Zo::Image::Surface shotOfOpenDropDown(DropDownColourPickerButton& button) {
    Zo::Box<int> const windowBox = screenBoxOf(*window);
    Zo::Box<int> const hostBox = screenBoxOf(*button.getDropDownHost());
    int const margin = UifStd::getRowHeight();
    return screen().grab(
        Zo::Box<int>(std::min(windowBox.x0, hostBox.x0) - margin, std::min(windowBox.y0, hostBox.y0) - margin,
                     std::max(windowBox.x1, hostBox.x1) + margin, std::max(windowBox.y1, hostBox.y1) + margin));
  }

  StandardPanel* window = nullptr;
};

TEST_F(ColourPickerGolden, PickerAtScaleOne) {
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*picker), ZO_GOLDEN_DIR "/colour_picker_scale1.png"));
}

TEST_F(ColourPickerGolden, PickerWithAlphaAtScaleOne) {
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags | ColourPicker::kAlpha);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*picker), ZO_GOLDEN_DIR "/colour_picker_alpha_scale1.png"));
}

TEST_F(ColourPickerGolden, PickerWithAlphaAtScaleTwo) {
  UifStd::setScale(2.0);
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags | ColourPicker::kAlpha);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*picker), ZO_GOLDEN_DIR "/colour_picker_alpha_scale2.png"));
}

TEST_F(ColourPickerGolden, ClosedButtonAtScaleOne) {
  openButton();
  EXPECT_TRUE(
      matchesGolden(HeadlessScreen::windowShot(*window), ZO_GOLDEN_DIR "/dropdown_colour_picker_closed_scale1.png"));
}

TEST_F(ColourPickerGolden, ClosedButtonAtScaleTwo) {
  UifStd::setScale(2.0);
  openButton();
  EXPECT_TRUE(
      matchesGolden(HeadlessScreen::windowShot(*window), ZO_GOLDEN_DIR "/dropdown_colour_picker_closed_scale2.png"));
}

TEST_F(ColourPickerGolden, OpenButtonAtScaleOne) {
  DropDownColourPickerButton* button = openButton();
  HeadlessInput::clickOn(*button);
  pump();
  ASSERT_NE(button->getDropDownHost(), nullptr);
  EXPECT_TRUE(matchesGolden(shotOfOpenDropDown(*button), ZO_GOLDEN_DIR "/dropdown_colour_picker_open_scale1.png"));
}

TEST_F(ColourPickerGolden, OpenButtonAtScaleTwo) {
  UifStd::setScale(2.0);
  DropDownColourPickerButton* button = openButton();
  HeadlessInput::clickOn(*button);
  pump();
  ASSERT_NE(button->getDropDownHost(), nullptr);
  EXPECT_TRUE(matchesGolden(shotOfOpenDropDown(*button), ZO_GOLDEN_DIR "/dropdown_colour_picker_open_scale2.png"));
}

} // namespace
