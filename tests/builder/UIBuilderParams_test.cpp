#include "BuilderTestSupport.h"

#include <zowidgets/builder/BuilderRules.h>
#include <zowidgets/builder/ChoiceParamHost.h>
#include <zowidgets/builder/SliderParamHost.h>
#include <zowidgets/builder/TitledGlob.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/host/widgets/values/Slider.h>

using namespace BuilderTest;

namespace {

struct UIBuilderParamsTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  Heard heard;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(16 * UifStd::getRowHeight(), 20 * UifStd::getRowHeight()));
  }
  Zo::Ptr<UIBuilder::Params> build(ParamList const& params) {
    Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
    built->addListener(heard.callback());
    return built;
  }
  static int top(Glob const* widget) { return widget->getY() + widget->height(); }
};

TEST_F(UIBuilderParamsTest, AListenerIsToldOfAChangeByTheParametersId) {
  Zo::Ptr<iParam> count = intParam("count", 1, 0, 10);
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{count});
  count->setValueFromString(L"4");
  ASSERT_EQ(heard.names.size(), 1u);
  EXPECT_EQ(heard.names[0], "count");
}

TEST_F(UIBuilderParamsTest, AParameterIsFoundByItsIdInGroupsTooAndItsValueReadsWhatTheUserTyped) {
  Zo::Ptr<iParam> count = intParam("count", 1, 0, 10);
  Zo::Ptr<iParam> inner = intParam("copies", 2, 1, 5);
  Zo::Ptr<iParam> group(new GroupParam(L"Output", "output", {}, ParamList{inner}));
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{count, group});
  EXPECT_EQ(built->getParam("count").get(), count.get());
  EXPECT_EQ(built->getParam("output").get(), group.get());
  ASSERT_NE(built->getParam("copies").get(), nullptr) << "inside its group";
  EXPECT_EQ(built->getParam("copies")->getID(), "copies");
  EXPECT_EQ(built->getParam("nothing").get(), nullptr);

  auto* host = dynamic_cast<UIBuilder::HostWidgetBase*>(built->getWidget("count"));
  ASSERT_NE(host, nullptr);
  NumericTextBox* box = dynamic_cast<SliderParamHost*>(host->getChild())->getTextBox();
  ASSERT_NE(box, nullptr);
  HeadlessInput::clickOn(*box);
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::typeText("7");
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(built->getParam("count")->getValueAsString().str(), L"7");
}

TEST_F(UIBuilderParamsTest, AButtonAddedUnderBuiltRowsIsReachedByTabAfterThem) {
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{boolParam("on", false), textParam("name", L"clip")});
  auto* render =
      panel->createWidget<PushButton>(PushButton::InitArgs(UIString(L"Render"), XY<int>(80, PushButton::calcHeight())),
                                      Glob::Below(UifStd::getRowGap(), built->getWidget("name")));
  auto* name =
      dynamic_cast<TitleTextBox*>(dynamic_cast<UIBuilder::HostWidgetBase*>(built->getWidget("name"))->getChild());
  ASSERT_NE(name, nullptr);
  HeadlessInput::clickOn(*name);
  ASSERT_EQ(get_kbd_focus(), name);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), render) << "not left out because the rows have an order";
  HeadlessInput::key(kKeyTab);
  EXPECT_TRUE(get_kbd_focus() != render && get_kbd_focus() != name) << "and on round to the first row";
}

TEST_F(UIBuilderParamsTest, AnActionSettingThreeValuesIsHeardOnceAfterwardsIfItSaysSo) {
  Zo::Ptr<iParam> a = intParam("a", 0, 0, 10), b = intParam("b", 0, 0, 10), c = intParam("c", 0, 0, 10);
  std::size_t heardDuring = 99;
  bool result = true;
  auto callback = Zo::Ptr<GenericParam::ActionParam::Callback>(
      new FunctionCallback<GenericParam::ActionParam::CallbackData, bool>([&](auto const&) {
        a->setValueFromString(L"1");
        b->setValueFromString(L"2");
        c->setValueFromString(L"3");
        heardDuring = heard.names.size();
        return result;
      }));
  Zo::Ptr<GenericParam::ActionParam> action(new GenericParam::ActionParam(L"Set all", "setall", {}, callback));
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{a, b, c, action});
  built->handleActionParam(action);
  EXPECT_EQ(heardDuring, 0u);
  ASSERT_EQ(heard.names.size(), 1u);
  EXPECT_EQ(heard.names[0], "setall");

  result = false;
  built->handleActionParam(action);
  EXPECT_EQ(heard.names.size(), 1u);
  EXPECT_EQ(a->getValueAsString(), L"1");
}

TEST_F(UIBuilderParamsTest, ClickingAnActionButtonThatChangesThreeValuesGivesOneListenerCall) {
  Zo::Ptr<iParam> a = intParam("a", 0, 0, 10), b = intParam("b", 0, 0, 10), c = intParam("c", 0, 0, 10);
  auto callback = Zo::Ptr<GenericParam::ActionParam::Callback>(
      new FunctionCallback<GenericParam::ActionParam::CallbackData, bool>([&](auto const&) {
        a->setValueFromString(L"5");
        b->setValueFromString(L"6");
        c->setValueFromString(L"7");
        return true;
      }));
  Zo::Ptr<iParam> action(new GenericParam::ActionParam(L"Presets", "presets", {}, callback));
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{a, b, c, action});
  PushButton* button = rowWidget<TitledGlob<PushButton>>(*built, "presets")->getChild();
  HeadlessInput::clickOn(*button);
  pump();
  EXPECT_EQ(heard.names, std::vector<std::string>{"presets"});
  EXPECT_EQ(rowWidget<SliderParamHost>(*built, "c")->getTextBox()->getString(), L"7");
}

TEST_F(UIBuilderParamsTest, HidingARowTakesItsHeightAndGapFromCalcHeight) {
  ParamList params{boolParam("a", true), boolParam("b", true), boolParam("c", true)};
  Zo::Ptr<UIBuilder::Params> built = build(params);
  unsigned short const all = built->calcHeight();
  EXPECT_EQ(all, UIBuilder::calcHeight(params, 0));
  built->getWidget("b")->setVisible(false);
  EXPECT_EQ(built->calcHeight(), all - UifStd::getRowHeight() - UifStd::getRowGap());
  built->getWidget("b")->setVisible(true);
  EXPECT_EQ(built->calcHeight(), all);
}

TEST_F(UIBuilderParamsTest, WithEveryRowHiddenCalcHeightIsZero) {
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{boolParam("a", true), boolParam("b", true)});
  built->getWidget("a")->setVisible(false);
  built->getWidget("b")->setVisible(false);
  EXPECT_EQ(built->calcHeight(), 0);
  EXPECT_EQ(UIBuilder::Params(ParamList{}, {}, {}).calcHeight(), 0);
}

TEST_F(UIBuilderParamsTest, ALowerLimitAgainstATextParameterHasNoEffect) {
  Zo::Ptr<iParam> text = textParam("t", L"50");
  BuilderRules::LowerLimitConstraint limit(text);
  EXPECT_EQ(limit.constrain(L"3"), L"3");
  Zo::Ptr<iParam> value = intParam("v", 5, 0, 100);
  value->isGreaterThan("t");
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{text, value});
  value->setValueFromString(L"3");
  EXPECT_EQ(value->getValueAsString(), L"3");
}

TEST_F(UIBuilderParamsTest, SettingD2BelowD1EndsWithTheTextOfD1) {
  Zo::Ptr<iParam> d1 = doubleParam("d1", 0.5, 0, 1);
  Zo::Ptr<iParam> d2 = doubleParam("d2", 0.8, 0, 1);
  d2->isGreaterThan("d1");
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{d1, d2});
  d2->setValueFromString(L"0.2");
  EXPECT_EQ(d2->getValueAsString(), d1->getValueAsString());
  // Moving the other one past it changes nothing here.
  d1->setValueFromString(L"0.9");
  EXPECT_EQ(d2->getValueAsString(), L"0.5");
}

TEST_F(UIBuilderParamsTest, AnUpperLimitKeepsAValueBelowTheOther) {
  Zo::Ptr<iParam> low = intParam("low", 7, 0, 10);
  Zo::Ptr<iParam> high = intParam("high", 5, 0, 10);
  low->isLessThan("high");
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{low, high});
  // A value already past the limit stays until it is next set.
  EXPECT_EQ(low->getValueAsString(), L"7");
  low->setValueFromString(L"9");
  EXPECT_EQ(low->getValueAsString(), L"5");
}

TEST_F(UIBuilderParamsTest, LimitsBothWaysDoNotKeepTheParametersAlive) {
  Zo::Ptr<GenericParam::ParamLife> lowLife, highLife;
  {
    Zo::Ptr<iParam> low = intParam("low", 2, 0, 10);
    Zo::Ptr<iParam> high = intParam("high", 8, 0, 10);
    low->isLessThan("high");
    high->isGreaterThan("low");
    lowLife = dynamic_cast<GenericParam::ParamBase&>(*low).getLife();
    highLife = dynamic_cast<GenericParam::ParamBase&>(*high).getLife();
    Zo::Ptr<UIBuilder::Params> built = build(ParamList{low, high});
    low->setValueFromString(L"9");
    EXPECT_EQ(low->getValueAsString(), L"8");
    GlobManager::requestDeletion(panel);
    pump();
  }
  EXPECT_FALSE(lowLife->isAlive());
  EXPECT_FALSE(highLife->isAlive());
}

TEST_F(UIBuilderParamsTest, ALimitAgainstAParameterThatIsGoneHasNoEffect) {
  Zo::Ptr<iParam> value = intParam("value", 5, 0, 100);
  {
    Zo::Ptr<iParam> floor = intParam("floor", 50, 0, 100);
    BuilderRules::LowerLimitConstraint limit(floor);
    EXPECT_EQ(limit.constrain(L"10"), L"50");
    value->addValueConstraint(Zo::Ptr<GenericParam::iValueConstraint>(new BuilderRules::LowerLimitConstraint(floor)));
    value->setValueFromString(L"10");
    EXPECT_EQ(value->getValueAsString(), L"50");
  }
  value->setValueFromString(L"10");
  EXPECT_EQ(value->getValueAsString(), L"10");
}

TEST_F(UIBuilderParamsTest, TwoConditionsOnOneRowMakeItActiveOnlyWhenBothHold) {
  Zo::Ptr<iParam> a = boolParam("a", true), b = boolParam("b", false);
  Zo::Ptr<iParam> dependent = intParam("dep", 1, 0, 10);
  dependent->setActiveIf(GenericParam::Condition("a", L"true"));
  dependent->setActiveIf(GenericParam::Condition("b", L"true"));
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{a, b, dependent});
  Glob* row = built->getWidget("dep");
  EXPECT_FALSE(row->isActive());
  b->setValueFromString(L"true");
  EXPECT_TRUE(row->isActive());
  a->setValueFromString(L"false");
  EXPECT_FALSE(row->isActive());
}

TEST_F(UIBuilderParamsTest, AnInactiveSliderRowTakesNoClickWheelOrTypingAndLooksInactive) {
  Zo::Ptr<iParam> gate = boolParam("gate", false);
  Zo::Ptr<iParam> dependent = intParam("dep", 5, 0, 10);
  dependent->setActiveIf(GenericParam::Condition("gate", L"true"));
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{gate, dependent});
  auto* row = rowWidget<SliderParamHost>(*built, "dep");
  Slider* slider = row->getTitledSlider()->getChild();
  NumericTextBox* box = row->getTextBox();
  ASSERT_NE(box, nullptr);
  EXPECT_FALSE(slider->isActive());
  EXPECT_FALSE(box->isActive());
  HeadlessInput::clickOn(*slider, XY<int>(slider->width() - 2, slider->height() / 2));
  HeadlessInput::wheel(HeadlessInput::pointOn(*slider), 2);
  HeadlessInput::clickOn(*box);
  HeadlessInput::typeText("9\n");
  EXPECT_EQ(dependent->getValueAsString(), L"5");
  // Made active, the same click takes it.
  gate->setValueFromString(L"true");
  EXPECT_TRUE(slider->isActive());
  HeadlessInput::clickOn(*slider, XY<int>(slider->width() - 2, slider->height() / 2));
  EXPECT_NE(dependent->getValueAsString(), L"5");
}

TEST_F(UIBuilderParamsTest, AConditionOnAMissingParameterKeepsTheRowInactive) {
  Zo::Ptr<iParam> dependent = intParam("dep", 1, 0, 10);
  dependent->setActiveIf(GenericParam::Condition("nowhere", L"true"));
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{dependent});
  EXPECT_FALSE(built->getWidget("dep")->isActive());
}

TEST_F(UIBuilderParamsTest, SaveStateCommitsAHalfTypedTextBoxFirst) {
  Zo::Ptr<iParam> name = textParam("name", L"old");
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{name, boolParam("b", true)});
  TitleTextBox* box = rowWidget<TitleTextBox>(*built, "name");
  HeadlessInput::clickOn(*box);
  ASSERT_EQ(get_kbd_focus(), box);
  HeadlessInput::key(kKeyEnd);
  HeadlessInput::typeText("er");
  EXPECT_EQ(name->getValueAsString(), L"old");
  configb saved;
  saved.set("stale", L"1");
  built->saveState(saved);
  EXPECT_EQ(name->getValueAsString(), L"older");
  EXPECT_EQ(saved.getString("name"), L"older");
  EXPECT_FALSE(saved.in("stale"));
  EXPECT_NE(get_kbd_focus(), box);
}

TEST_F(UIBuilderParamsTest, RestoreStateSetsValuesAndTheRulesFollow) {
  Zo::Ptr<iParam> show = boolParam("show", false);
  Zo::Ptr<iParam> extra = intParam("extra", 1, 0, 10);
  extra->setVisibleIf(GenericParam::Condition("show", L"true"));
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{show, extra});
  EXPECT_FALSE(built->getWidget("extra")->isVisible());
  configb saved;
  saved.set("show", L"true");
  saved.set("extra", L"8");
  built->restoreState(saved);
  EXPECT_TRUE(built->getWidget("extra")->isVisible());
  EXPECT_EQ(rowWidget<SliderParamHost>(*built, "extra")->getTextBox()->getString(), L"8");
}

TEST_F(UIBuilderParamsTest, TickingABoxShowsTheDependentRowAndMovesTheRowsBelow) {
  Zo::Ptr<iParam> advanced = boolParam("advanced", false, L"Advanced");
  Zo::Ptr<iParam> detail = intParam("detail", 3, 0, 10, L"Detail");
  detail->setVisibleIf(GenericParam::Condition("advanced", L"true"));
  Zo::Ptr<iParam> last = boolParam("last", true, L"Last");
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{advanced, detail, last});
  Glob* lastRow = built->getWidget("last");
  int const before = top(lastRow);
  EXPECT_EQ(before, built->getWidget("advanced")->getY());

  HeadlessInput::clickOn(*rowWidget<Checkbox>(*built, "advanced"));
  pump();
  EXPECT_EQ(advanced->getValueAsString(), L"true");
  EXPECT_TRUE(built->getWidget("detail")->isVisible());
  EXPECT_EQ(top(lastRow), before - UifStd::getRowHeight() - UifStd::getRowGap());
  EXPECT_EQ(heard.names, std::vector<std::string>{"advanced"});

  HeadlessInput::clickOn(*rowWidget<Checkbox>(*built, "advanced"));
  pump();
  EXPECT_FALSE(built->getWidget("detail")->isVisible());
  EXPECT_EQ(top(lastRow), before);
}

TEST_F(UIBuilderParamsTest, DraggingOneSliderPastAnothersLimitStopsThere) {
  Zo::Ptr<iParam> in = intParam("in", 40, 0, 100, L"In");
  Zo::Ptr<iParam> out = intParam("out", 60, 0, 100, L"Out");
  out->isGreaterThan("in");
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{in, out});
  Slider* outSlider = rowWidget<SliderParamHost>(*built, "out")->getSlider();
  XY<int> const from = HeadlessInput::pointOn(*outSlider, XY<int>(outSlider->valueToX(60), outSlider->height() / 2));
  XY<int> const to = HeadlessInput::pointOn(*outSlider, XY<int>(outSlider->valueToX(10), outSlider->height() / 2));
  HeadlessInput::drag(from, to);
  pump();
  EXPECT_EQ(out->getValueAsString(), L"40");
  EXPECT_DOUBLE_EQ(outSlider->getPosition(), 40.0);
  EXPECT_EQ(rowWidget<SliderParamHost>(*built, "out")->getTextBox()->getString(), L"40");
}

// A drag goes through the parameter, its constraint and handlers, the built
// panel and its listeners, and both widgets of the row show the stored value
// after one repaint.
TEST_F(UIBuilderParamsTest, ADragTravelsTheWholeRoadAndBothWidgetsShowTheStoredValue) {
  Zo::Ptr<iParam> floor = doubleParam("floor", 0.3, 0, 1, L"Floor");
  Zo::Ptr<iParam> level = doubleParam("level", 0.5, 0, 1, L"Level");
  level->isGreaterThan("floor");
  Zo::Ptr<iParam> note = boolParam("note", true, L"Note");
  note->setVisibleIf(GenericParam::Condition("level", L"0.3"));
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{floor, level, note});
  SliderParamHost* row = rowWidget<SliderParamHost>(*built, "level");
  Slider* slider = row->getSlider();
  EXPECT_FALSE(built->getWidget("note")->isVisible());
  Canvas* canvas = panel->canvas();
  XY<int> const from = HeadlessInput::pointOn(*slider, XY<int>(slider->valueToX(0.5), slider->height() / 2));
  XY<int> const to = HeadlessInput::pointOn(*slider, XY<int>(slider->valueToX(0.0), slider->height() / 2));
  HeadlessInput::moveTo(from);
  HeadlessInput::press();
  int const paintsBefore = canvas->paintCount();
  HeadlessInput::moveTo(to);
  EXPECT_EQ(canvas->paintCount(), paintsBefore + 1);
  HeadlessInput::release();
  pump();
  EXPECT_EQ(level->getValueAsString(), L"0.3");
  EXPECT_DOUBLE_EQ(slider->getPosition(), 0.3);
  EXPECT_EQ(row->getTextBox()->getString(), L"0.3");
  EXPECT_TRUE(built->getWidget("note")->isVisible());
  ASSERT_FALSE(heard.names.empty());
  EXPECT_EQ(heard.names.back(), "level");
}

TEST_F(UIBuilderParamsTest, TypingIntoTheNumericBoxMovesTheSlider) {
  Zo::Ptr<iParam> count = intParam("count", 2, 0, 10);
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{count});
  SliderParamHost* row = rowWidget<SliderParamHost>(*built, "count");
  HeadlessInput::clickOn(*row->getTextBox());
  HeadlessInput::key(kKeyHome);
  HeadlessInput::key(kKeyEnd, kKeyShift);
  HeadlessInput::typeText("9");
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(count->getValueAsString(), L"9");
  EXPECT_DOUBLE_EQ(row->getSlider()->getPosition(), 9.0);
}

TEST_F(UIBuilderParamsTest, PickingAChoiceFromTheMenuStoresItsNumber) {
  Zo::Ptr<iParam> mode = choiceParam("mode", 1);
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{mode});
  ChoiceParamHost* row = rowWidget<ChoiceParamHost>(*built, "mode");
  EXPECT_EQ(row->getMenuButton()->getSelectedItem(), 0);
  DropDownMenuButton& button = row->getMenuButton()->getBtn();
  HeadlessInput::clickOn(button);
  pump();
  MenuWindow* menu = button.getMenuWindow();
  ASSERT_NE(menu, nullptr);
  Zo::Box<int> const third = menu->rowBox(2);
  HeadlessInput::clickOn(*menu, XY<int>((third.x0 + third.x1) / 2, (third.y0 + third.y1) / 2));
  pump();
  EXPECT_EQ(mode->getValueAsString(), L"7");
  EXPECT_EQ(row->getMenuButton()->getSelectedItem(), 2);
  EXPECT_EQ(heard.names, std::vector<std::string>{"mode"});
  // And back from the data to the menu.
  mode->setValueFromString(L"2");
  EXPECT_EQ(row->getMenuButton()->getSelectedItem(), 1);
}

TEST_F(UIBuilderParamsTest, ReturnInAnAdvancingTextRowMovesTheFocusOn) {
  auto* first = new GenericParam::TextParam(L"First", "first", {}, L"", {}, GenericParam::TextParam::kPlain, true);
  Zo::Ptr<UIBuilder::Params> built = build(ParamList{Zo::Ptr<iParam>(first), textParam("second", L"")});
  HeadlessInput::clickOn(*rowWidget<TitleTextBox>(*built, "first"));
  HeadlessInput::typeText("Ada");
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(first->getValueAsString(), L"Ada");
  EXPECT_EQ(get_kbd_focus(), rowWidget<TitleTextBox>(*built, "second"));
}

} // namespace
