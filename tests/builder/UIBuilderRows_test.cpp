#include "BuilderTestSupport.h"

#include <zowidgets/builder/ChoiceParamHost.h>
#include <zowidgets/builder/SliderParamHost.h>
#include <zowidgets/builder/TitledGlob.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/panels/WidgetGroup.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>
#include <zowidgets/host/widgets/text/LinkAwareMultiLineTextBox.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>

#include <cstring>

using namespace BuilderTest;

namespace {

struct UIBuilderRows : HeadlessScreenTest {
  StandardPanel* panel = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(16 * UifStd::getRowHeight(), 30 * UifStd::getRowHeight()));
  }
  int top(Glob const* widget) const { return widget->getY() + widget->height(); }
};

TEST_F(UIBuilderRows, EachParameterKindGetsItsRowWidget) {
  ParamList children{boolParam("inner", false)};
  ParamList params{boolParam("b", true),
                   intParam("i", 3, 0, 10),
                   doubleParam("d", 0.5, 0, 1),
                   choiceParam("c", 2),
                   textParam("t", L"x"),
                   Zo::Ptr<iParam>(new LabelParam(L"Note", "l", L"Some words")),
                   Zo::Ptr<iParam>(new ActionParam(L"Go", "a", {}, {})),
                   Zo::Ptr<iParam>(new GroupParam(L"Group", "g", {}, children))};
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
  EXPECT_NE(rowWidget<Checkbox>(*built, "b"), nullptr);
  EXPECT_NE(rowWidget<SliderParamHost>(*built, "i"), nullptr);
  EXPECT_NE(rowWidget<SliderParamHost>(*built, "d"), nullptr);
  EXPECT_NE(rowWidget<ChoiceParamHost>(*built, "c"), nullptr);
  EXPECT_NE(rowWidget<TitleTextBox>(*built, "t"), nullptr);
  EXPECT_NE(rowWidget<LinkAwareMultiLineTextBox>(*built, "l"), nullptr);
  EXPECT_NE(rowWidget<TitledGlob<PushButton>>(*built, "a"), nullptr);
  EXPECT_NE(rowWidget<MinimizableGroup>(*built, "g"), nullptr);
  EXPECT_NE(rowWidget<Checkbox>(*built, "inner"), nullptr);
  EXPECT_STREQ(built->getWidget("b")->idstring(), "HostWidget");
  // Group children join the list as they are reached.
  EXPECT_EQ(params.size(), 9u);
}

TEST_F(UIBuilderRows, RowsStackDownThePanelOneRowGapApart) {
  ParamList params{boolParam("a", true), boolParam("b", true), boolParam("c", true)};
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
  Glob* a = built->getWidget("a");
  Glob* b = built->getWidget("b");
  Glob* c = built->getWidget("c");
  int const pitch = UifStd::getRowHeight() + UifStd::getRowGap();
  EXPECT_EQ(top(a), panel->getUserArea().y1);
  EXPECT_EQ(top(a) - top(b), pitch);
  EXPECT_EQ(top(b) - top(c), pitch);
  EXPECT_EQ(top(a) - c->getY() - UifStd::getRowGap(), UIBuilder::calcHeight(params, 0));
}

TEST_F(UIBuilderRows, FoldingAGroupMovesTheRowsBelowItUpAndUnfoldingBackDown) {
  ParamList children{boolParam("one", true), boolParam("two", true), boolParam("three", true)};
  ParamList params{Zo::Ptr<iParam>(new GroupParam(L"Group", "g", {}, children)), boolParam("after", true)};
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
  auto* group = rowWidget<MinimizableGroup>(*built, "g");
  ASSERT_NE(group, nullptr);
  Glob* after = built->getWidget("after");
  Glob* groupRow = built->getWidget("g");
  int const openTop = top(after);
  EXPECT_EQ(top(groupRow) - top(after), groupRow->height()) << "open, the row below comes after the group";
  int const openHeight = group->height();
  HeadlessInput::clickOn(*group, XY<int>(group->width() / 2, group->height() - 4));
  pump();
  ASSERT_TRUE(group->isMinimized());
  int const folded = openHeight - group->height();
  ASSERT_GT(folded, 0);
  EXPECT_EQ(top(after), openTop + folded) << "folded, the row below moves up by what the group gave";
  EXPECT_EQ(top(groupRow) - top(after), group->height() + UifStd::getRowGap()) << "a row gap apart, as before";
  group->setMinimized(false);
  pump();
  EXPECT_EQ(top(after), openTop) << "unfolded, it goes back";
}

TEST_F(UIBuilderRows, AGroupInsideAGroupRestoresParentsAndWidthInReverse) {
  ParamList inner{boolParam("deep", true)};
  ParamList outer{Zo::Ptr<iParam>(new GroupParam(L"Inner", "inner", {}, inner)), boolParam("mid", true)};
  ParamList params{Zo::Ptr<iParam>(new GroupParam(L"Outer", "outer", {}, outer)), boolParam("after", true)};
  UIBuilder builder(panel);
  unsigned short const width = builder.getWidth();
  Zo::Ptr<UIBuilder::Params> built = builder.build(params, configb());
  EXPECT_EQ(builder.getWidth(), width);
  ASSERT_EQ(builder.getParents().size(), 1u);
  EXPECT_EQ(builder.getParents().front(), panel);
  int const inset = WidgetGroupEx::childXOffset();
  EXPECT_EQ(built->getWidget("outer")->width(), width);
  EXPECT_EQ(built->getWidget("inner")->width(), width - inset);
  EXPECT_EQ(built->getWidget("deep")->width(), width - 2 * inset);
  EXPECT_EQ(built->getWidget("mid")->width(), width - inset);
  EXPECT_EQ(built->getWidget("after")->width(), width);
  EXPECT_EQ(built->getWidget("deep")->parent()->parent(), built->getWidget("inner"));
  EXPECT_EQ(built->getWidget("after")->parent(), panel);
}

TEST_F(UIBuilderRows, ARowHiddenByItsRuleAtBuildTakesNoHeight) {
  Zo::Ptr<iParam> shown = boolParam("shown", false);
  Zo::Ptr<iParam> hidden = intParam("hidden", 1, 0, 5);
  hidden->setVisibleIf(GenericParam::Condition("shown", L"true"));
  ParamList params{shown, hidden, boolParam("below", true)};
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
  Glob* hiddenRow = built->getWidget("hidden");
  EXPECT_FALSE(hiddenRow->isVisible());
  EXPECT_EQ(hiddenRow->height(), 0);
  EXPECT_EQ(top(built->getWidget("below")), built->getWidget("shown")->getY());
}

TEST_F(UIBuilderRows, ADoubleWithSliderOnlyHintHasNoBoxAndNoExtraTabStop) {
  Zo::Ptr<iParam> param = doubleParam("d", 0.25, 0, 1);
  param->setPresentationHints(GenericParam::kHintSliderOnly);
  int const width = 12 * UifStd::getRowHeight();
  Glob* row = UIBuilder::createWidget(param, panel, static_cast<unsigned short>(width), 40, Glob::UserTopLeft(0, 0),
                                      WidgetSurround());
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->parent(), panel);
  auto* host = dynamic_cast<SliderParamHost*>(static_cast<UIBuilder::HostWidgetBase*>(row)->getChild());
  ASSERT_NE(host, nullptr);
  EXPECT_EQ(host->getTextBox(), nullptr);
  // The titled slider takes the whole row.
  EXPECT_EQ(host->getTitledSlider()->width(), width);
  // The slider is the panel's only stop: there is no other to go to.
  EXPECT_TRUE(panel->tabOrder().contains(host->getSlider()));
  EXPECT_EQ(panel->tabOrder().next(host->getSlider(), true), nullptr);
}

TEST_F(UIBuilderRows, ADoubleWithoutTheHintHasABoxWithItsOwnTabStop) {
  Zo::Ptr<iParam> param = doubleParam("d", 0.25, 0, 1);
  Glob* row = UIBuilder::createWidget(param, panel, 300, 40, Glob::UserTopLeft(0, 0), WidgetSurround());
  auto* host = dynamic_cast<SliderParamHost*>(static_cast<UIBuilder::HostWidgetBase*>(row)->getChild());
  ASSERT_NE(host->getTextBox(), nullptr);
  EXPECT_EQ(panel->tabOrder().next(host->getSlider(), true), host->getTextBox());
  EXPECT_EQ(host->getTextBox()->getString(), L"0.25");
}

TEST_F(UIBuilderRows, IntSliderIncrementIsAFiveHundredthOfTheRangeAtLeastOne) {
  ParamList params{intParam("small", 5, 0, 100), intParam("large", 5, 0, 100000)};
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
  EXPECT_DOUBLE_EQ(rowWidget<SliderParamHost>(*built, "small")->getSlider()->getIncrement(), 1.0);
  EXPECT_DOUBLE_EQ(rowWidget<SliderParamHost>(*built, "large")->getSlider()->getIncrement(), 200.0);
}

// Departure: the number box is two rows wide unless that would cut the
// digits of its range or value; then it widens, to at most half of the room
// beside the legend.
TEST_F(UIBuilderRows, ANumberBoxWidensOnlyWhereTwoRowsWouldCutItsDigits) {
  ParamList params{intParam("small", 5, 0, 100), intParam("huge", 250, -1, 2147483647), doubleParam("fine", 0.25, 0, 1),
                   doubleParam("big", 2e6, 0, 123456789.5)};
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
  int const usual = 2 * UifStd::getRowHeight();
  EXPECT_EQ(rowWidget<SliderParamHost>(*built, "small")->getTextBox()->width(), usual);
  EXPECT_EQ(rowWidget<SliderParamHost>(*built, "fine")->getTextBox()->width(), usual);
  for (char const* id : {"huge", "big"}) {
    SCOPED_TRACE(id);
    auto* host = rowWidget<SliderParamHost>(*built, id);
    NumericTextBox* box = host->getTextBox();
    EXPECT_GT(box->width(), usual);
    // The slider gives up what the box takes: the row keeps its width.
    EXPECT_EQ(host->getTitledSlider()->width() + UifStd::getWidgetGap() + box->width(), host->width());
  }
  EXPECT_GE(rowWidget<SliderParamHost>(*built, "huge")->getTextBox()->width(), TextBox::widthToShow(L"2147483647"));
  EXPECT_GE(rowWidget<SliderParamHost>(*built, "big")->getTextBox()->width(),
            TextBox::widthToShow(rowWidget<SliderParamHost>(*built, "big")->getTextBox()->getString()));
}

TEST_F(UIBuilderRows, ANegativeFractionADragGivesShowsWholeWithItsSign) {
  ParamList params{doubleParam("gain", 0, -24, 12)};
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
  auto* host = rowWidget<SliderParamHost>(*built, "gain");
  NumericTextBox* box = host->getTextBox();
  EXPECT_EQ(NumericTextBox::longestTextFor(-24, 12), LightweightString<wchar_t>(L"-24.88"));
  // A click on the slider's track a fifth of the way along.
  Slider* slider = host->getSlider();
  HeadlessInput::clickOn(*slider, XY<int>(slider->width() / 5, slider->height() / 2));
  pump();
  std::string const shown = box->getString().toUTF8().str();
  ASSERT_TRUE(shown.starts_with("-")) << shown;
  EXPECT_NE(shown.find('.'), std::string::npos) << shown;
  EXPECT_GE(box->width(), TextBox::widthToShow(box->getString())) << shown << " is cut";
  EXPECT_LT(std::abs(dynamic_cast<GenericParam::DoubleParam&>(*params[0]).getValue() - box->getValue()), 0.01);
}

TEST_F(UIBuilderRows, AWideNumberBoxTakesAtMostHalfTheRoomBesideTheLegend) {
  int const width = 6 * UifStd::getRowHeight();
  Glob* row =
      UIBuilder::createWidget(intParam("huge", 250, -2147483647, 2147483647), panel, static_cast<unsigned short>(width),
                              40, Glob::UserTopLeft(0, 0), WidgetSurround());
  auto* host = dynamic_cast<SliderParamHost*>(static_cast<UIBuilder::HostWidgetBase*>(row)->getChild());
  ASSERT_NE(host, nullptr);
  int const room = width - 40 - UifStd::getWidgetGap();
  // The limit is what holds the box here, not the digits.
  ASSERT_GT(TextBox::widthToShow(L"-2147483647"), room / 2);
  EXPECT_EQ(host->getTextBox()->width(), std::max(2 * UifStd::getRowHeight(), room / 2));
  EXPECT_GE(host->getTitledSlider()->width() - 40, room / 2);
}

TEST_F(UIBuilderRows, IntAndDoubleSlidersMarkDifferentPointsOfInterest) {
  auto* count = new GenericParam::IntParam(L"Count", "count", {}, 2, 0, 10);
  auto* amount = new GenericParam::DoubleParam(L"Amount", "amount", {}, 0.5, 0, 1);
  amount->step = 0.1;
  ParamList params{Zo::Ptr<iParam>(count), Zo::Ptr<iParam>(amount)};
  count->setValue(7);
  amount->setValue(0.8);
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
  Slider* countSlider = rowWidget<SliderParamHost>(*built, "count")->getSlider();
  Slider* amountSlider = rowWidget<SliderParamHost>(*built, "amount")->getSlider();
  EXPECT_DOUBLE_EQ(countSlider->getPointOfInterest(), 7.0);  // the current value
  EXPECT_DOUBLE_EQ(amountSlider->getPointOfInterest(), 0.5); // the default
  EXPECT_DOUBLE_EQ(countSlider->getPosition(), 7.0);
  EXPECT_DOUBLE_EQ(amountSlider->getPosition(), 0.8);
  EXPECT_DOUBLE_EQ(amountSlider->getIncrement(), 0.1);
}

TEST_F(UIBuilderRows, ADoubleStepIsUsedOnlyWithARange) {
  auto* unranged = new GenericParam::DoubleParam(L"Gain", "gain", {}, 0.5, 0, 0);
  unranged->step = 0.1;
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{Zo::Ptr<iParam>(unranged)}, panel, 0);
  EXPECT_DOUBLE_EQ(rowWidget<SliderParamHost>(*built, "gain")->getSlider()->getIncrement(), 0.0);
}

TEST_F(UIBuilderRows, AChoiceValueListedTwiceShowsItsFirstRowAndAnUnlistedOneLeavesTheRow) {
  using Choice = ChoiceParam::Choice;
  std::vector<Choice> const choices{{L"Low", {}, 5}, {L"Mid", {}, 7}, {L"Also low", {}, 5}, {L"High", {}, 9}};
  auto* choice = new ChoiceParam(L"Level", "level", {}, 7, choices);
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{Zo::Ptr<iParam>(choice)}, panel, 0);
  ChoiceParamHost* row = rowWidget<ChoiceParamHost>(*built, "level");
  ASSERT_NE(row, nullptr);
  DropDownMenuButton& menu = row->getMenuButton()->getBtn();
  EXPECT_EQ(menu.getSelectedItemNameW(), L"Mid");
  choice->setValue(5);
  EXPECT_EQ(menu.getSelectedItemNameW(), L"Low");
  choice->setValue(9);
  EXPECT_EQ(menu.getSelectedItemNameW(), L"High");
  choice->setValue(4); // carried by no row: the menu keeps what it showed
  EXPECT_EQ(menu.getSelectedItemNameW(), L"High");
}

TEST_F(UIBuilderRows, AddWithADuplicateIdKeepsTheFirstWidget) {
  ParamList params{boolParam("same", true, L"First"), boolParam("same", false, L"Second")};
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
  ASSERT_EQ(built->getWidgets().size(), 1u);
  auto* kept = rowWidget<Checkbox>(*built, "same");
  ASSERT_NE(kept, nullptr);
  EXPECT_TRUE(kept->getWidgetValue());
  // Both rows were made; only the map keeps one.
  EXPECT_EQ(panel->getChildren().size(), 2u);
}

TEST_F(UIBuilderRows, CalcHeightCountsRowsAndCompactTextRows) {
  int const rh = UifStd::getRowHeight();
  int const rg = UifStd::getRowGap();
  int const wg = UifStd::getWidgetGap();
  EXPECT_EQ(UIBuilder::calcHeight(ParamList{}, 0), 0);
  ParamList params{textParam("t1", L""), boolParam("b", true), textParam("t2", L"")};
  EXPECT_EQ(UIBuilder::calcHeight(params, 0), 3 * (rh + rg) - rg);
  EXPECT_EQ(UIBuilder::calcHeight(params, UIBuilder::kCompactText), (rh + wg + 2 * wg) + (rh + rg) + (rh + wg));
}

TEST_F(UIBuilderRows, CompactTextRowsShowTheLegendAsGhostTextAndSitFurtherApart) {
  ParamList params{textParam("first", L"", L"First name"), textParam("last", L"", L"Last name")};
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, UIBuilder::kCompactText);
  auto* first = rowWidget<TextBox>(*built, "first");
  auto* last = rowWidget<TextBox>(*built, "last");
  ASSERT_NE(first, nullptr);
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(rowWidget<TitleTextBox>(*built, "first"), nullptr);
  EXPECT_EQ(first->getGhostLabel().getString(), L"First name");
  EXPECT_EQ(first->height(), UifStd::getRowHeight() + UifStd::getWidgetGap());
  Glob* firstRow = built->getWidget("first");
  EXPECT_EQ(firstRow->getY() - top(built->getWidget("last")), 2 * UifStd::getWidgetGap());
}

TEST_F(UIBuilderRows, ABuildPaintsThePanelOnceWhateverItsLength) {
  ParamList params;
  for (int i = 0; i < 20; ++i)
    params.push_back(intParam(("p" + std::to_string(i)).c_str(), i, 0, 50));
  Canvas* canvas = panel->canvas();
  int const before = canvas->paintCount();
  UIBuilder::build(params, panel, 0);
  EXPECT_EQ(canvas->paintCount(), before + 1);
}

TEST_F(UIBuilderRows, AnInactiveParameterGivesAnInactiveRowAndATooltip) {
  auto* param = new GenericParam::BoolParam(L"Loop", "loop", UIString(L"Play again at the end"), false);
  param->setActive(false);
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{Zo::Ptr<iParam>(param)}, panel, 0);
  Checkbox* box = rowWidget<Checkbox>(*built, "loop");
  EXPECT_FALSE(box->isActive());
  EXPECT_EQ(box->getTooltip().getString(), L"Play again at the end");
}

TEST_F(UIBuilderRows, SavedStateGivenToTheBuildIsRestoredFirst) {
  ParamList params{intParam("count", 1, 0, 10), textParam("name", L"old")};
  configb saved;
  saved.set("count", L"6");
  saved.set("name", L"new");
  UIBuilder builder(panel);
  Zo::Ptr<UIBuilder::Params> built = builder.build(params, saved);
  EXPECT_EQ(params[0]->getValueAsString(), L"6");
  EXPECT_EQ(rowWidget<SliderParamHost>(*built, "count")->getTextBox()->getString(), L"6");
  EXPECT_EQ(rowWidget<TitleTextBox>(*built, "name")->getString(), L"new");
}

// A kind of parameter the builder has no row for.
class TimecodeParam : public GenericParam::TextParamBase {
public:
  TimecodeParam() : TextParamBase("timecode", "start", L"Start", {}, L"01:00:00:00") {}
  Zo::Ptr<iParam> clone() const override { return Zo::Ptr<iParam>(new TimecodeParam(*this)); }
};

TEST_F(UIBuilderRows, ParametersWithoutARowKindGetNoRow) {
  ParamList params{Zo::Ptr<iParam>(new TimecodeParam), boolParam("b", true)};
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, panel, 0);
  EXPECT_EQ(built->getWidget("start"), nullptr);
  EXPECT_EQ(top(built->getWidget("b")), panel->getUserArea().y1);
}

TEST_F(UIBuilderRows, WithoutAPanelNothingIsMade) {
  UIBuilder builder(nullptr);
  EXPECT_EQ(builder.getWidth(), 0);
  Zo::Ptr<UIBuilder::Params> built = builder.build(ParamList{boolParam("b", true)}, configb());
  ASSERT_TRUE(built);
  EXPECT_TRUE(built->getWidgets().empty());
  EXPECT_EQ(UIBuilder::createWidget(boolParam("b", true), nullptr, 100, 10, Glob::UserTopLeft(0, 0), {}), nullptr);
}

TEST_F(UIBuilderRows, AParameterListOnAScrollingPanelStacksInItsView) {
  StandardPanel::InitArgs args(XY<int>(300, 4 * UifStd::getRowHeight()));
  auto* scrolling = new VerticalScrollingBase(args);
  GlobManager::realize(scrolling);
  ParamList params;
  for (int i = 0; i < 10; ++i)
    params.push_back(boolParam(("b" + std::to_string(i)).c_str(), true));
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(params, scrolling, 0);
  EXPECT_EQ(scrolling->getManagedWidgets().size(), 10u);
  EXPECT_GT(scrolling->getWidgetsHeight(), scrolling->getView()->height());
  EXPECT_EQ(built->getWidget("b0")->parent(), scrolling->getView());
}

TEST_F(UIBuilderRows, ARoundNumberTypedIntoAWideIntegerRowIsKept) {
  Zo::Ptr<iParam> bitRate = intParam("b", 200000, 0, 2147483647);
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::build(ParamList{bitRate}, panel, 0);
  NumericTextBox* box = rowWidget<SliderParamHost>(*built, "b")->getTextBox();
  // Their shortest texts are "3e+05", "1e+06", "5e+06", "2e+05".
  for (char const* typed : {"300000", "1000000", "5000000", "200000", "123456"}) {
    SCOPED_TRACE(typed);
    HeadlessInput::clickOn(*box);
    HeadlessInput::key('a', kKeyCtrl);
    HeadlessInput::typeText(typed);
    HeadlessInput::key(kKeyReturn);
    pump();
    std::wstring const expected(typed, typed + std::strlen(typed));
    EXPECT_EQ(bitRate->getValueAsString().str(), expected);
    EXPECT_EQ(box->getString().str(), expected) << "shown in digits";
  }
}

} // namespace
