#include "support/PatchWindow.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/colour/ComponentTextBox.h>
#include <zowidgets/colour/DropDownColourPickerButton.h>
#include <zowidgets/colour/EyeDropper.h>
#include <zowidgets/colour/HSColourWheel.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/ColourSwatch.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

struct DropDownColourPickerButtonTest : HeadlessScreenTest {
  StandardPanel* window = nullptr;
  DropDownColourPickerButton* button = nullptr;
  std::vector<ColourPickerEvent> events;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    int const row = UifStd::getRowHeight();
    window = openPanel(XY<int>(row * 12, row * 4), XY<int>(200, 700));
    DropDownColourPickerButton::InitArgs args(XY<int>(row * 3, row),
                                              ColourPicker::InitArgs(ColourPicker::kDefaultFlags, ColourData()));
    args.callback =
        Broadcaster<ColourPickerEvent>::makeCallback([this](ColourPickerEvent const& e) { events.push_back(e); });
    button = window->createWidget<DropDownColourPickerButton>(args, Glob::UserTopLeft(0, 0));
  }

  ColourPicker* openPicker() {
    HeadlessInput::clickOn(*button);
    pump();
    return button->getDropDownPanel();
  }

  static void retype(ComponentTextBox& box, std::string const& text) {
    HeadlessInput::clickOn(box, XY<int>(box.getFieldBox().x0 + box.getFieldBox().width() / 2, box.height() / 2));
    HeadlessInput::key('a', kKeyCtrl);
    HeadlessInput::typeText(text);
    HeadlessInput::key(kKeyReturn);
  }

  Rgb swatchPixel() {
    ColourSwatch const& swatch = *button->getSwatch();
    return rgbOf(widgetPixel(swatch, XY<int>(swatch.width() / 2, swatch.height() / 2)));
  }
};

TEST_F(DropDownColourPickerButtonTest, IsAFlatLatchingButtonWithASwatch) {
  EXPECT_STREQ(button->idstring(), "DropDownColourPickerButton");
  EXPECT_EQ(button->getStyle(), Button::kStyleFlat);
  EXPECT_TRUE(button->isLatching());
  ColourSwatch* swatch = button->getSwatch();
  ASSERT_NE(swatch, nullptr);
  EXPECT_EQ(swatch->parent(), button);
  int const indent = UifStd::getIndentWidth();
  EXPECT_EQ(swatch->height(), button->height() - 2 * indent);
  EXPECT_EQ(swatch->getX(), indent);
  EXPECT_EQ(swatch->getY(), indent);
  EXPECT_LT(swatch->getX() + swatch->width(), button->width() - indent); // the chevron shows
}

TEST_F(DropDownColourPickerButtonTest, SetColourShowsOnTheSwatchAndReadsBackAsRGB) {
  button->setColour(NormalisedRGB(0.2f, 0.4f, 0.8f, 0.5f));
  EXPECT_EQ(button->getSwatch()->getColour(), ColourData(0.2f, 0.4f, 0.8f, ColourSpace::RGB, 0.5f));
  NormalisedRGB const back = button->getColour();
  EXPECT_FLOAT_EQ(back.r, 0.2f);
  EXPECT_FLOAT_EQ(back.b, 0.8f);
  EXPECT_FLOAT_EQ(back.a, 0.5f);
  button->setColour(NormalisedRGB(1.0f, 0.0f, 0.0f));
  pump();
  EXPECT_TRUE(near(swatchPixel(), Rgb{255, 0, 0}));
}

TEST_F(DropDownColourPickerButtonTest, OpeningOnANewSwatchColourShowsThatColourAndClosingKeepsTheLastEdit) {
  button->setColour(NormalisedRGB(0.0f, 0.5f, 1.0f));
  ColourPicker* picker = openPicker();
  ASSERT_NE(picker, nullptr);
  EXPECT_EQ(button->getState(), 1);
  EXPECT_EQ(picker->getColour(), ColourData(0.0f, 0.5f, 1.0f));
  EXPECT_EQ(picker->getHexBox()->getString().str(), L"007FFF");

  // The user drags on the wheel, then types a red: the swatch follows each.
  HSColourWheel* wheel = picker->getWheel();
  XY<double> const centre = wheel->getCentre();
  XY<double> const cursor = wheel->getCursor();
  auto onWheel = [&](double x, double y) {
    return HeadlessInput::pointOn(*wheel, XY<int>(static_cast<int>(centre.x + x), static_cast<int>(centre.y + y)));
  };
  HeadlessInput::drag(onWheel(cursor.x, cursor.y), onWheel(0.0, -wheel->getRadius() / 2));
  pump();
  ColourData const dragged = picker->getColour();
  EXPECT_NEAR(dragged.getSaturation(), 0.5, 0.05);
  EXPECT_EQ(button->getSwatch()->getColour(), dragged);
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back().colour, dragged);

  retype(*picker->getComponentBox(ColourData::kComponent0), "255");
  pump();
  ColourData const typed = picker->getColour();
  EXPECT_DOUBLE_EQ(typed.getRed(), 1.0);
  EXPECT_EQ(button->getSwatch()->getColour(), typed);
  Rgb const expected{255, static_cast<int>(typed.getGreen() * 255.0 + 0.5),
                     static_cast<int>(typed.getBlue() * 255.0 + 0.5)};
  EXPECT_TRUE(near(swatchPixel(), expected, 1)) << swatchPixel() << " " << expected;

  // A press outside dismisses the picker; the swatch keeps the last edit.
  Glob* host = button->getDropDownHost();
  HeadlessInput::click(XY<int>(1500, 200));
  pump();
  EXPECT_FALSE(is_good_glob_ptr(host));
  EXPECT_EQ(button->getState(), 0);
  EXPECT_EQ(button->getSwatch()->getColour(), typed);
  EXPECT_TRUE(near(swatchPixel(), expected, 1));

  // Opened again, it starts from the swatch.
  picker = openPicker();
  ASSERT_NE(picker, nullptr);
  EXPECT_EQ(picker->getColour(), typed);
}

TEST_F(DropDownColourPickerButtonTest, EscapeTakesBackTheEditsAndTellsTheListenersOfTheColourRestored) {
  button->setColour(NormalisedRGB(0.0f, 0.5f, 1.0f));
  ColourData const opening = button->getSwatch()->getColour();
  ColourPicker* picker = openPicker();
  ASSERT_NE(picker, nullptr);
  retype(*picker->getComponentBox(ColourData::kComponent0), "255");
  pump();
  ASSERT_DOUBLE_EQ(button->getSwatch()->getColour().getRed(), 1.0);
  events.clear();
  Glob* host = button->getDropDownHost();
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(host));
  EXPECT_EQ(button->getSwatch()->getColour(), opening);
  EXPECT_TRUE(near(swatchPixel(), Rgb{0, 128, 255}, 1)) << swatchPixel();
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events.back().colour, opening);

  // Opened and closed by Escape with nothing edited, no one hears anything.
  ASSERT_NE(openPicker(), nullptr);
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_EQ(events.size(), 1u);
}

TEST_F(DropDownColourPickerButtonTest, TheDataAdaptorBindsTheSwatchAndEveryPickerOpened) {
  ValServer<ColourData> data(ColourData(0.1, 0.2, 0.3));
  button->setDataAdaptor(Zo::Ptr<ValAdaptorBase<ColourData>>(new ValAdaptor<ColourData, ColourData>(&data)));
  EXPECT_EQ(button->getSwatch()->getColour(), data.get());
  EXPECT_EQ(button->getDropDownArgs().dataAdaptor, button->getColourDataAdaptor());
  data = ColourData(0.9, 0.9, 0.1);
  EXPECT_EQ(button->getSwatch()->getColour(), data.get());

  ColourPicker* picker = openPicker();
  ASSERT_NE(picker, nullptr);
  EXPECT_EQ(picker->getColour(), data.get());
  retype(*picker->getComponentBox(ColourData::kComponent2), "255");
  EXPECT_DOUBLE_EQ(data.get().getBlue(), 1.0);
  EXPECT_EQ(button->getSwatch()->getColour(), data.get());
  // Data changed elsewhere shows in the open picker, and is not echoed back.
  std::size_t const heard = events.size();
  data = ColourData(0.0, 0.0, 0.0);
  EXPECT_EQ(picker->getHexBox()->getString().str(), L"000000");
  EXPECT_EQ(events.size(), heard);
  button->setActive(false, kRedrawNow); // closes the picker before the data goes
  pump();
}

TEST_F(DropDownColourPickerButtonTest, TheEyeDropperPicksIntoTheSwatchWithThePickerOpen) {
  PatchWindow patch(Zo::Box<int>(1200, 200, 1300, 300), Colour(0.8, 0.2, 0.4));
  ColourPicker* picker = openPicker();
  ASSERT_NE(picker, nullptr);
  Glob* host = button->getDropDownHost();
  HeadlessInput::clickOn(*picker->getEyeDropper());
  ASSERT_TRUE(picker->getEyeDropper()->enabled());
  HeadlessInput::click(XY<int>(1250, 250));
  pump();
  // The press that sampled was the dropper's, not a dismissal.
  ASSERT_TRUE(is_good_glob_ptr(host));
  EXPECT_EQ(button->getState(), 1);
  ColourData const picked = picker->getColour();
  EXPECT_TRUE(near(Rgb{int(std::lround(picked.getRed() * 255)), int(std::lround(picked.getGreen() * 255)),
                       int(std::lround(picked.getBlue() * 255))},
                   rgbOf(Colour(0.8, 0.2, 0.4))));
  EXPECT_EQ(button->getSwatch()->getColour(), picked);
  EXPECT_TRUE(near(swatchPixel(), rgbOf(Colour(0.8, 0.2, 0.4)), 1));
}

TEST_F(DropDownColourPickerButtonTest, DeactivatingTheButtonClosesItsPicker) {
  ColourPicker* picker = openPicker();
  ASSERT_NE(picker, nullptr);
  button->setActive(false, kRedrawNow);
  pump();
  EXPECT_EQ(button->getDropDownHost(), nullptr);
  EXPECT_EQ(button->getState(), 0);
  EXPECT_FALSE(button->getSwatch()->isActive());
}

} // namespace

TEST_F(DropDownColourPickerButtonTest, ThePointerIsAHandOverTheButtonAndItsSwatch) {
  EXPECT_EQ(button->getDefaultMouseCursor(), kCursorHand);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*button->getSwatch()));
  EXPECT_EQ(screen().cursor(), kCursorHand);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*window, XY<int>(window->width() - 4, 4)));
  EXPECT_EQ(screen().cursor(), kCursorDefault);
}

TEST_F(DropDownColourPickerButtonTest, SuppressedColourChangesLeaveTheSwatchAndListenersAlone) {
  button->setColour(NormalisedRGB(0.0f, 0.0f, 1.0f));
  ColourData const before = button->getSwatch()->getColour();
  ColourPicker* picker = openPicker();
  ASSERT_NE(picker, nullptr);
  button->setSuppressColourChanges(true);
  EXPECT_TRUE(button->areColourChangesSuppressed());
  retype(*picker->getComponentBox(ColourData::kComponent0), "255");
  pump();
  EXPECT_DOUBLE_EQ(picker->getColour().getRed(), 1.0);
  EXPECT_EQ(button->getSwatch()->getColour(), before);
  EXPECT_TRUE(events.empty());

  button->setSuppressColourChanges(false);
  retype(*picker->getComponentBox(ColourData::kComponent1), "255");
  pump();
  EXPECT_EQ(button->getSwatch()->getColour(), picker->getColour());
  ASSERT_EQ(events.size(), 1u);
}
