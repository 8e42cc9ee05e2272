#include "BuilderTestSupport.h"

#include <zowidgets/builder/ChoiceParamHost.h>
#include <zowidgets/builder/SliderParamHost.h>
#include <zowidgets/host/headless/HeadlessInput.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>
#include <zowidgets/host/widgets/popups/Menu.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>

// A form built from a description has no parameters behind it once built,
// yet a person using it must find every row working: sliders follow drags and
// clicks, number boxes and sliders follow each other, menus take their rows.

using namespace BuilderTest;

namespace {

wchar_t const* const kForm = LR"({"rows": [
  {"type": "bool", "name": "b", "legend": "Enabled", "default": true},
  {"type": "int", "name": "n", "legend": "Count", "min": 0, "max": 10, "default": 3},
  {"type": "float", "name": "g", "legend": "Gain", "min": 0, "max": 1, "default": 0.5},
  {"type": "int", "name": "m", "legend": "Mode", "values": {"Fast": 1, "Best": 2, "Draft": 7}, "choice": "2"},
  {"type": "text", "name": "t", "legend": "Title", "hint": "your name"}
]})";

struct UIBuilderJSONForm : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  Zo::Ptr<UIBuilder::Params> built;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(16 * UifStd::getRowHeight(), 12 * UifStd::getRowHeight()));
    built = UIBuilder::buildFromJSON(kForm, panel);
    pump();
  }
  SliderParamHost* row(char const* id) const { return rowWidget<SliderParamHost>(*built, id); }
  static XY<int> onSlider(Slider const& slider, double value) {
    return HeadlessInput::pointOn(slider, XY<int>(slider.valueToX(value), slider.height() / 2));
  }
  static void replaceText(Glob const& box, char const* text) {
    HeadlessInput::clickOn(box);
    HeadlessInput::key(kKeyHome);
    HeadlessInput::key(kKeyEnd, kKeyShift);
    HeadlessInput::typeText(text);
    HeadlessInput::key(kKeyReturn);
  }
};

TEST_F(UIBuilderJSONForm, TheBuildKeepsNoParameters) {
  EXPECT_TRUE(built->getParams().empty());
  EXPECT_EQ(built->getWidgets().size(), 5u);
}

TEST_F(UIBuilderJSONForm, DraggingAWholeNumberSliderMovesItAndItsBox) {
  Slider* slider = row("n")->getSlider();
  HeadlessInput::drag(onSlider(*slider, 3), onSlider(*slider, 8));
  pump();
  EXPECT_DOUBLE_EQ(slider->getPosition(), 8.0);
  EXPECT_EQ(row("n")->getTextBox()->getString(), L"8");
}

TEST_F(UIBuilderJSONForm, ClickingTheTrackJumpsThereAndTheBoxFollows) {
  Slider* slider = row("g")->getSlider();
  HeadlessInput::click(onSlider(*slider, 0.9));
  pump();
  EXPECT_NEAR(slider->getPosition(), 0.9, 0.02);
  EXPECT_NE(slider->getPosition(), 0.5);
  // The box shows the value to the digits its range makes worth reading
  // ("0.9xx") and holds it exactly.
  using Text = LightweightString<wchar_t>;
  NumericTextBox* box = row("g")->getTextBox();
  EXPECT_EQ(box->getValue(), slider->getPosition());
  EXPECT_NEAR((DataConvert::convert<Text, double>(box->getString())), slider->getPosition(), 0.0005);
  EXPECT_LE(box->getString().view().size(), 5u);
}

TEST_F(UIBuilderJSONForm, TypingIntoTheNumberBoxMovesTheSlider) {
  replaceText(*row("n")->getTextBox(), "7");
  pump();
  EXPECT_DOUBLE_EQ(row("n")->getSlider()->getPosition(), 7.0);
  EXPECT_EQ(row("n")->getTextBox()->getString(), L"7");
}

TEST_F(UIBuilderJSONForm, ANumberOutsideTheRangeIsKeptInside) {
  replaceText(*row("n")->getTextBox(), "70");
  pump();
  EXPECT_DOUBLE_EQ(row("n")->getSlider()->getPosition(), 10.0);
  EXPECT_EQ(row("n")->getTextBox()->getString(), L"10");
}

TEST_F(UIBuilderJSONForm, ArrowKeysOnAFocusedSliderStepIt) {
  Slider* slider = row("n")->getSlider();
  HeadlessInput::click(onSlider(*slider, 3));
  HeadlessInput::key(kKeyRight);
  HeadlessInput::key(kKeyRight);
  pump();
  EXPECT_DOUBLE_EQ(slider->getPosition(), 5.0);
  EXPECT_EQ(row("n")->getTextBox()->getString(), L"5");
}

TEST_F(UIBuilderJSONForm, TakingAMenuRowShowsIt) {
  ChoiceParamHost* mode = rowWidget<ChoiceParamHost>(*built, "m");
  DropDownMenuButton& button = mode->getMenuButton()->getBtn();
  HeadlessInput::clickOn(button);
  pump();
  MenuWindow* menu = button.getMenuWindow();
  ASSERT_NE(menu, nullptr);
  Zo::Box<int> const third = menu->rowBox(2);
  HeadlessInput::clickOn(*menu, XY<int>((third.x0 + third.x1) / 2, (third.y0 + third.y1) / 2));
  pump();
  EXPECT_EQ(mode->getWidgetValue(), 7u);
  EXPECT_EQ(button.getSelectedItemNameW(), L"Draft");
}

TEST_F(UIBuilderJSONForm, TickingTheBoxAndTypingTextStay) {
  Checkbox* enabled = rowWidget<Checkbox>(*built, "b");
  HeadlessInput::clickOn(*enabled);
  pump();
  EXPECT_FALSE(enabled->getWidgetValue());
  TitleTextBox* title = rowWidget<TitleTextBox>(*built, "t");
  replaceText(*title, "Ada");
  pump();
  EXPECT_EQ(title->getString(), L"Ada");
}

TEST_F(UIBuilderJSONForm, TheRowsValuesDieWithThePanel) {
  ValServer<double>* gain = row("g")->getSlider()->getDataAdaptor().dynamicCast<ValClient<double>>()->getServer();
  ASSERT_NE(gain, nullptr);
  Zo::Ptr<ValServer<double>> watch(gain);
  EXPECT_GT(watch->refCount(), 1);
  built = nullptr;
  delete panel;
  panel = nullptr;
  pump();
  EXPECT_EQ(watch->refCount(), 1);
}

} // namespace
