#include "support/PatchWindow.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/colour/ColourPicker.h>
#include <zowidgets/colour/ComponentTextBox.h>
#include <zowidgets/colour/EyeDropper.h>
#include <zowidgets/colour/HSColourWheel.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/Slider.h>

#include <cmath>
#include <cwchar>
#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

struct ColourPickerInput : HeadlessScreenTest {
  ColourPicker* picker = nullptr;
  std::vector<ColourPickerEvent> events;

  void open(unsigned flags, ColourData const& colour) {
    ColourPicker::InitArgs args(flags, colour);
    args.callback =
        Broadcaster<ColourPickerEvent>::makeCallback([this](ColourPickerEvent const& e) { events.push_back(e); });
    args.screenPosition = XY<int>(200, 300);
    picker = new ColourPicker(args);
    GlobManager::realize(picker);
  }

  // What a user does to replace a box's text and confirm it.
  static void retype(ComponentTextBox& box, std::string const& text) {
    HeadlessInput::clickOn(box, XY<int>(box.getFieldBox().x0 + box.getFieldBox().width() / 2, box.height() / 2));
    HeadlessInput::key('a', kKeyCtrl);
    HeadlessInput::typeText(text);
    HeadlessInput::key(kKeyReturn);
  }

  // The screen point of a disc point of the wheel (relative to its centre).
  XY<int> onDisc(double x, double y) const {
    HSColourWheel const& wheel = *picker->getWheel();
    XY<double> const centre = wheel.getCentre();
    return HeadlessInput::pointOn(wheel, XY<int>(static_cast<int>(centre.x + x), static_cast<int>(centre.y + y)));
  }
  XY<int> cursorOnScreen() const {
    XY<double> const cursor = picker->getWheel()->getCursor();
    return onDisc(cursor.x, cursor.y);
  }

  WString text(ComponentTextBox* box) const { return box->getString(); }
};

TEST_F(ColourPickerInput, TypingInTheRedBoxUpdatesEveryOtherPartAndNormalisesItsOwnText) {
  open(ColourPicker::kDefaultFlags, ColourData(0.0, 0.4, 0.8));
  ComponentTextBox* red = picker->getComponentBox(ColourData::kComponent0);
  XY<double> const cursorBefore = picker->getWheel()->getCursor();

  retype(*red, "300");

  ColourData const colour = picker->getColour();
  EXPECT_DOUBLE_EQ(colour.getRed(), 1.0); // capped
  EXPECT_EQ(text(red).str(), L"255");     // normalised from the value
  EXPECT_EQ(text(picker->getHexBox()).str(), L"FF66CC");
  EXPECT_EQ(text(picker->getHueBox(0)).str(), L"320.00");
  EXPECT_EQ(text(picker->getHueBox(1)).str(), L"60.00");
  EXPECT_EQ(text(picker->getHueBox(2)).str(), L"100.00");
  EXPECT_DOUBLE_EQ(picker->getComponentSlider(ColourData::kComponent0)->getPosition(), 1.0);
  double x = 0.0, y = 0.0;
  ASSERT_EQ(picker->getWheel()->convertHStoXY(320.0, 0.6, x, y), 0);
  EXPECT_NEAR(picker->getWheel()->getCursor().x, x, 1e-9);
  EXPECT_NEAR(picker->getWheel()->getCursor().y, y, 1e-9);
  EXPECT_NE(picker->getWheel()->getCursor(), cursorBefore);
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back().colour, colour);
}

TEST_F(ColourPickerInput, TypingAFractionShowsTheRoundedComponent) {
  open(ColourPicker::kDefaultFlags, ColourData(0.0, 0.0, 0.0));
  ComponentTextBox* green = picker->getComponentBox(ColourData::kComponent1);
  retype(*green, "99.6");
  EXPECT_EQ(text(green).str(), L"100");
  // The hex box truncates where the component box rounds.
  EXPECT_EQ(text(picker->getHexBox()).str(), L"006300");
}

TEST_F(ColourPickerInput, DraggingOnTheWheelEditsHueAndSaturationEverywhere) {
  open(ColourPicker::kDefaultFlags, ColourData(0.0, 0.0, 0.8, ColourSpace::HSV));
  HeadlessInput::drag(cursorOnScreen(), onDisc(0, picker->getWheel()->getRadius() / 2));
  ColourData const colour = picker->getColour();
  EXPECT_NEAR(colour.getHue(), HSColourWheel::convertDisplayToHueAngle(0.0), 1.0);
  EXPECT_NEAR(colour.getSaturation(), 0.5, 0.05);
  EXPECT_NEAR(colour.getValue(), 0.8, 1e-9); // the wheel keeps the brightness
  EXPECT_EQ(text(picker->getHueBox(2)).str(), L"80.00");
  EXPECT_EQ(text(picker->getComponentBox(ColourData::kComponent0)).str(),
            std::to_wstring(static_cast<int>(colour.getRed() * 255.0 + 0.5)));
  EXPECT_FALSE(events.empty());
  EXPECT_EQ(events.back().colour, colour);
}

TEST_F(ColourPickerInput, SlidingTheAlphaSliderShowsInTheAlphaBox) {
  open(ColourPicker::kDefaultFlags | ColourPicker::kAlpha, ColourData(0.5, 0.5, 0.5));
  Slider* alpha = picker->getComponentSlider(ColourData::kAlpha);
  HeadlessInput::clickOn(*alpha, XY<int>(alpha->valueToX(0.0), alpha->height() / 2));
  EXPECT_NEAR(picker->getColour().getAlpha(), 0.0, 0.01);
  EXPECT_EQ(text(picker->getComponentBox(ColourData::kAlpha)).str(), L"0");
}

TEST_F(ColourPickerInput, ASampleFromTheEyeDropperSetsAlphaToOne) {
  open(ColourPicker::kDefaultFlags | ColourPicker::kAlpha, ColourData(0.5, 0.5, 0.5, ColourSpace::RGB, 0.3));
  PatchWindow patch(Zo::Box<int>(900, 300, 1000, 400), Colour(0x33 / 255.0, 0x66 / 255.0, 0xcc / 255.0));
  colourEyeDropper* dropper = picker->getEyeDropper();
  ASSERT_NE(dropper, nullptr);
  HeadlessInput::clickOn(*dropper);
  ASSERT_TRUE(dropper->enabled());
  HeadlessInput::click(XY<int>(950, 350));
  EXPECT_FALSE(dropper->enabled());

  ColourData const colour = picker->getColour();
  EXPECT_EQ(colour.getAlpha(), 1.0);
  auto byte = [](double channel) { return static_cast<int>(std::lround(channel * 255.0)); };
  EXPECT_EQ((Rgb{byte(colour.getRed()), byte(colour.getGreen()), byte(colour.getBlue())}), (Rgb{0x33, 0x66, 0xcc}));
  unsigned hex = 0;
  ASSERT_EQ(std::swscanf(text(picker->getHexBox()).c_str(), L"%6X", &hex), 1);
  EXPECT_TRUE(near(Rgb{int(hex >> 16), int(hex >> 8 & 0xff), int(hex & 0xff)}, Rgb{0x33, 0x66, 0xcc}));
  EXPECT_EQ(text(picker->getComponentBox(ColourData::kAlpha)).str(), L"255");
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].colour, colour);
}

} // namespace
