#include "BuilderTestSupport.h"

#include <zowidgets/builder/ChoiceParamHost.h>
#include <zowidgets/builder/SliderParamHost.h>
#include <zowidgets/host/base/JSON.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>

using namespace BuilderTest;

namespace {

struct UIBuilderJSON : HeadlessScreenTest {
  StandardPanel* panel = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(16 * UifStd::getRowHeight(), 12 * UifStd::getRowHeight()));
  }
  Zo::Ptr<UIBuilder::Params> build(wchar_t const* json) { return UIBuilder::buildFromJSON(json, panel); }
  static Zo::Ptr<JSON::Element> parse(wchar_t const* json) { return JSON::parse(json); }
  static int top(Glob const* widget) { return widget->getY() + widget->height(); }
  static int pitch() { return UifStd::getRowHeight() + UifStd::getRowGap(); }
};

wchar_t const* const kWorkedExample = LR"({"rows": [
  {"type": "bool", "name": "b", "legend": "Enabled", "default": true},
  {"type": "int", "name": "n", "legend": "Count", "min": 0, "max": 10, "default": 3, "visible if": "b=true"},
  {"type": "int", "name": "m", "legend": "Mode", "values": {"Fast": 1, "Best": 2}, "choice": "2",
   "visible if": "b=false"},
  {"type": "text", "name": "t", "legend": "Title", "hint": "your name", "advance": true}
]})";

TEST_F(UIBuilderJSON, TheWorkedExampleBuildsFourRowsAndMergesTheAlternates) {
  int const heightBefore = panel->height();
  UIBuilder builder(panel);
  Zo::Ptr<UIBuilder::Params> built = builder.build(parse(kWorkedExample));
  EXPECT_EQ(builder.getLegendWidth(),
            DropDownMenuButton::calcWidth({L"Enabled", L"Count", L"Mode", L"Title"}, UifStd::getFont()) -
                Button::getRevealIndicatorWidth());

  Checkbox* b = rowWidget<Checkbox>(*built, "b");
  ASSERT_NE(b, nullptr);
  EXPECT_TRUE(b->getWidgetValue());
  EXPECT_EQ(top(built->getWidget("b")), panel->getUserArea().y1);
  EXPECT_EQ(built->getWidget("b")->getX(), panel->getUserArea().x0);

  SliderParamHost* n = rowWidget<SliderParamHost>(*built, "n");
  ASSERT_NE(n, nullptr);
  EXPECT_DOUBLE_EQ(n->getSlider()->getMinValue(), 0.0);
  EXPECT_DOUBLE_EQ(n->getSlider()->getMaxValue(), 10.0);
  EXPECT_DOUBLE_EQ(n->getSlider()->getPosition(), 3.0);
  EXPECT_EQ(n->getTextBox()->getString(), L"3");

  ChoiceParamHost* m = rowWidget<ChoiceParamHost>(*built, "m");
  ASSERT_NE(m, nullptr);
  EXPECT_EQ(m->getWidgetValue(), 2u);
  EXPECT_EQ(m->getMenuButton()->getBtn().getSelectedItemNameW(), L"Best");

  TitleTextBox* t = rowWidget<TitleTextBox>(*built, "t");
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(t->getGhostLabel().getString(), L"your name");

  // Row 2 shares row 1's slot, and the panel loses one row's height and gap.
  EXPECT_EQ(built->getWidget("m")->getY(), built->getWidget("n")->getY());
  EXPECT_EQ(top(built->getWidget("t")), built->getWidget("m")->getY() - UifStd::getRowGap());
  EXPECT_EQ(panel->height(), heightBefore - pitch());
}

TEST_F(UIBuilderJSON, ALabelRowsTextTakesNoRoomFromTheOtherRowsLegends) {
  std::wstring const note = L"A note as long as a sentence, which stands across the whole of its row";
  std::wstring const json = LR"({"rows": [
    {"type": "int", "name": "n", "legend": "Count", "min": 0, "max": 10, "default": 3},
    {"type": "label", "name": "l", "legend": ")" +
                            note + LR"("}]})";
  UIBuilder builder(panel);
  Zo::Ptr<UIBuilder::Params> built = builder.build(parse(json.c_str()));
  EXPECT_EQ(builder.getLegendWidth(),
            DropDownMenuButton::calcWidth({L"Count"}, UifStd::getFont()) - Button::getRevealIndicatorWidth());
  SliderParamHost* n = rowWidget<SliderParamHost>(*built, "n");
  ASSERT_NE(n, nullptr);
  EXPECT_GT(n->getSlider()->width(), panel->getUserArea().width() / 3) << "the slider keeps its room";

  // The same from parameters.
  UIBuilder fromParams(panel);
  fromParams.build(
      GenericParam::ParamList{
          Zo::Ptr<GenericParam::iParam>(new GenericParam::IntParam(L"Count", "n", {}, 3, 0, 10)),
          Zo::Ptr<GenericParam::iParam>(new GenericParam::LabelParam(UIString(note.c_str()), "l", note.c_str()))},
      configb());
  EXPECT_EQ(fromParams.getLegendWidth(), builder.getLegendWidth());
}

TEST_F(UIBuilderJSON, ALineOfTextOfATypeTheBuilderDoesNotKnowTakesNoLegendRoomEither) {
  UIBuilder builder(panel);
  builder.build(parse(LR"({"rows": [
    {"type": "int", "name": "n", "legend": "Count", "min": 0, "max": 10, "default": 3},
    {"type": "Note", "legend": "A note as long as a sentence, which stands across the whole of its row"}]})"));
  EXPECT_EQ(builder.getLegendWidth(),
            DropDownMenuButton::calcWidth({L"Count"}, UifStd::getFont()) - Button::getRevealIndicatorWidth());
}

TEST_F(UIBuilderJSON, TextMenuAndFileRowsStartTheirControlsAtTheSlidersLegendColumn) {
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [
    {"type": "float", "name": "q", "legend": "Export quality", "min": 0, "max": 1, "default": 0.5},
    {"type": "text", "name": "t", "legend": "Name", "value": "clip"},
    {"type": "int", "name": "m", "legend": "Mode", "values": {"Fast": 1, "Best": 2}, "choice": "2"},
    {"type": "file", "name": "f", "legend": "File", "value": "/tmp/clip.mov"}]})");
  SliderParamHost* slider = rowWidget<SliderParamHost>(*built, "q");
  TitleTextBox* text = rowWidget<TitleTextBox>(*built, "t");
  ChoiceParamHost* menu = rowWidget<ChoiceParamHost>(*built, "m");
  ASSERT_TRUE(slider && text && menu);
  // The slider keeps the theme's edge (a pixel) clear inside its column.
  int const column = slider->getSlider()->canvasBox().x0 - slider->canvasBox().x0;
  EXPECT_NEAR(text->getFieldBox().x0, column, 1);
  EXPECT_NEAR(menu->getMenuButton()->getBtn().canvasBox().x0 - menu->canvasBox().x0, column, 1);
  auto* file =
      dynamic_cast<TitleMenuButton*>(dynamic_cast<UIBuilder::HostWidgetBase*>(built->getWidget("f"))->getChild());
  ASSERT_NE(file, nullptr);
  EXPECT_NEAR(file->getBtn().canvasBox().x0 - file->canvasBox().x0, column, 1);
}

TEST_F(UIBuilderJSON, ParametersDieWithTheirRowsSoRulesAndStateHaveNoEffect) {
  Zo::Ptr<UIBuilder::Params> built = build(kWorkedExample);
  EXPECT_TRUE(built->getParams().empty());
  EXPECT_EQ(built->getWidgets().size(), 4u);
  // "visible if" needs the parameter: both alternates stay shown.
  EXPECT_TRUE(built->getWidget("n")->isVisible());
  EXPECT_TRUE(built->getWidget("m")->isVisible());
  configb saved;
  built->saveState(saved);
  EXPECT_EQ(saved.size(), 0u);
  // The row's value is its own: no parameter manages it.
  Checkbox* b = rowWidget<Checkbox>(*built, "b");
  ValServer<bool>* value = b->getDataAdaptor().dynamicCast<ValClient<bool>>()->getServer();
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->getManager(), nullptr);
  EXPECT_TRUE(value->get());
}

TEST_F(UIBuilderJSON, ActiveIfIsStoredButNeverRunAndLimitsAreDropped) {
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [
    {"type": "int", "name": "a", "legend": "A", "min": 0, "max": 10, "default": 5},
    {"type": "int", "name": "b", "legend": "B", "min": 0, "max": 10, "default": 2,
     "must not be lower than": "a", "active if": "a=5,c=1"}]})");
  EXPECT_EQ(built->getPostConditions().size(), 1u);
  EXPECT_TRUE(built->getWidget("b")->isActive());
  EXPECT_EQ(rowWidget<SliderParamHost>(*built, "b")->getTextBox()->getString(), L"2");
}

TEST_F(UIBuilderJSON, AnEmptyListBuildsNothing) {
  UIBuilder builder(panel);
  Zo::Ptr<UIBuilder::Params> built = builder.build(parse(LR"({"rows": []})"));
  ASSERT_TRUE(built);
  EXPECT_TRUE(built->getWidgets().empty());
  EXPECT_TRUE(built->getParams().empty());
  EXPECT_TRUE(panel->getChildren().empty());
  EXPECT_EQ(builder.getLegendWidth(),
            std::max(DropDownMenuButton::calcWidth({}, UifStd::getFont()) - Button::getRevealIndicatorWidth(), 0));
  EXPECT_EQ(UIBuilder::getNumParams(parse(LR"({"rows": []})")), 0);
}

TEST_F(UIBuilderJSON, ARootWithTwoChildrenHasNoCountButBuildsItsFirst) {
  Zo::Ptr<JSON::Element> root = parse(LR"({"rows": [{"type": "bool", "name": "x", "legend": "X"},
    {"type": "bool", "name": "y", "legend": "Y"}], "more": [{"type": "bool", "name": "z"}]})");
  EXPECT_EQ(UIBuilder::getNumParams(root), 0);
  EXPECT_EQ(UIBuilder::getNumParams(parse(LR"({"rows": [{"type": "bool"}, {"type": "bool"}]})")), 2);
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::buildFromJSON(root, panel);
  EXPECT_EQ(built->getWidgets().size(), 2u);
  EXPECT_NE(built->getWidget("y"), nullptr);
  EXPECT_EQ(built->getWidget("z"), nullptr);
}

TEST_F(UIBuilderJSON, MinEqualToMaxMeansNoRange) {
  Zo::Ptr<UIBuilder::Params> built =
      build(LR"({"rows": [{"type": "int", "name": "n", "legend": "N", "min": 5, "max": 5, "default": 40}]})");
  SliderParamHost* row = rowWidget<SliderParamHost>(*built, "n");
  Slider::InitArgs defaults;
  EXPECT_DOUBLE_EQ(row->getSlider()->getMinValue(), defaults.minValue);
  EXPECT_DOUBLE_EQ(row->getSlider()->getMaxValue(), defaults.maxValue);
  EXPECT_DOUBLE_EQ(row->getSlider()->getIncrement(), 0.0);
  // No range on the box either: a typed 40 is not clamped.
  EXPECT_EQ(row->getTextBox()->getString(), L"40");
}

TEST_F(UIBuilderJSON, NumericKeysIgnoreCaseAndTheDefaultIsNotClamped) {
  Zo::Ptr<UIBuilder::Params> built =
      build(LR"({"rows": [{"type": "float", "name": "f", "legend": "F", "Min": 1, "MAX": 2, "Default": 7.5}]})");
  SliderParamHost* row = rowWidget<SliderParamHost>(*built, "f");
  EXPECT_DOUBLE_EQ(row->getSlider()->getMinValue(), 1.0);
  EXPECT_DOUBLE_EQ(row->getSlider()->getMaxValue(), 2.0);
  EXPECT_EQ(row->getTextBox()->getString(), L"7.5");
}

TEST_F(UIBuilderJSON, TooltipsAreResourceIdsAndAnythingElseIsNone) {
  EXPECT_EQ(UIBuilder::getTooltip(parse(LR"({"tooltip": 12})")), 12u);
  EXPECT_EQ(UIBuilder::getTooltip(parse(LR"({"Tooltip": 7.9})")), 7u);
  EXPECT_EQ(UIBuilder::getTooltip(parse(LR"({"tooltip": -3})")), UIBuilder::kNoTooltip);
  EXPECT_EQ(UIBuilder::getTooltip(parse(LR"({"tooltip": "Help"})")), UIBuilder::kNoTooltip);
  EXPECT_EQ(UIBuilder::getTooltip(parse(LR"({"min": 1})")), UIBuilder::kNoTooltip);
  EXPECT_EQ(UIBuilder::getTooltip(Zo::Ptr<JSON::Element>()), UIBuilder::kNoTooltip);
  Zo::Ptr<UIBuilder::Params> built =
      build(LR"({"rows": [{"type": "bool", "name": "b", "legend": "B", "tooltip": 4242}]})");
  UIString const tooltip = rowWidget<Checkbox>(*built, "b")->getTooltip();
  EXPECT_EQ(tooltip.resId(), 4242u);
  EXPECT_TRUE(tooltip.text().empty());
}

TEST_F(UIBuilderJSON, AnUnknownOrMissingTypeGivesALineOfText) {
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [{"type": "date", "legend": "Just words"},
    {"legend": "More words"}, {"type": "Bool", "name": "b", "legend": "B"}]})");
  ASSERT_EQ(panel->getChildren().size(), 3u);
  auto* host = dynamic_cast<UIBuilder::HostWidgetBase*>(panel->getChildren()[0]);
  ASSERT_NE(host, nullptr);
  auto* label = dynamic_cast<TextLabel*>(host->getChild());
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->getString().getString(), L"Just words");
  EXPECT_EQ(label->height(), UifStd::getRowHeight());
  // Type words are compared exactly: "Bool" is not a row kind.
  EXPECT_NE(dynamic_cast<TextLabel*>(static_cast<UIBuilder::HostWidgetBase*>(panel->getChildren()[2])->getChild()),
            nullptr);
  EXPECT_TRUE(built->getWidgets().empty());
}

TEST_F(UIBuilderJSON, RowsWithoutANameShareTheEmptyIdAndOnlyTheFirstIsMapped) {
  Zo::Ptr<UIBuilder::Params> built =
      build(LR"({"rows": [{"type": "bool", "legend": "First"}, {"type": "bool", "legend": "Second"}]})");
  ASSERT_EQ(built->getWidgets().size(), 1u);
  EXPECT_EQ(rowWidget<Checkbox>(*built, "")->getLabel(), L"First");
}

TEST_F(UIBuilderJSON, AKeyOfTheWrongTypeCountsAsAbsent) {
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [{"type": "bool", "name": "b", "legend": "B", "default": "yes"},
                    {"type": "int", "name": "n", "legend": "N", "default": "4"}]})");
  EXPECT_FALSE(rowWidget<Checkbox>(*built, "b")->getWidgetValue());
  EXPECT_EQ(rowWidget<SliderParamHost>(*built, "n")->getTextBox()->getString(), L"-1");
}

TEST_F(UIBuilderJSON, ValuesThatAreAnArrayMakeNoChoiceRow) {
  Zo::Ptr<UIBuilder::Params> built =
      build(LR"({"rows": [{"type": "int", "name": "n", "legend": "N", "values": [1, 2], "default": 5}]})");
  EXPECT_EQ(rowWidget<ChoiceParamHost>(*built, "n"), nullptr);
  SliderParamHost* n = rowWidget<SliderParamHost>(*built, "n");
  ASSERT_NE(n, nullptr);
  EXPECT_EQ(n->getTextBox()->getString(), L"5");
}

TEST_F(UIBuilderJSON, TheFirstRowHasNoSurroundAndLaterRowsKeepARowGapAbove) {
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [{"type": "bool", "name": "a", "legend": "A"},
    {"type": "bool", "name": "b", "legend": "B"}, {"type": "other", "legend": "Some text"},
    {"type": "label", "name": "c", "legend": "C"}]})");
  Glob* a = built->getWidget("a");
  Glob* b = built->getWidget("b");
  Glob* c = built->getWidget("c");
  EXPECT_EQ(a->getWidgetSurround(), WidgetSurround::none());
  EXPECT_EQ(b->getWidgetSurround(), UifStd::getRowSeparator(kRelativeAbove));
  EXPECT_EQ(top(a), panel->getUserArea().y1);
  EXPECT_EQ(top(b), a->getY() - UifStd::getRowGap());
  // The line of text between b and c keeps the same gap on both sides.
  ASSERT_EQ(panel->getChildren().size(), 4u);
  Glob const* text = panel->getChildren()[2];
  EXPECT_EQ(top(text), b->getY() - UifStd::getRowGap());
  EXPECT_EQ(top(c), text->getY() - UifStd::getRowGap());
}

TEST_F(UIBuilderJSON, ChoicesFollowTheirAttributesAndTheChoiceText) {
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [
    {"type": "int", "name": "first", "values": {"Low": 10, "Mid": 20, "High": 30}},
    {"type": "int", "name": "picked", "values": {"Low": 10, "Mid": 20}, "choice": "20"},
    {"type": "int", "name": "none", "values": {}}]})");
  ChoiceParamHost* first = rowWidget<ChoiceParamHost>(*built, "first");
  EXPECT_EQ(first->getWidgetValue(), 10u);
  EXPECT_EQ(first->getMenuButton()->getBtn().getMenu().size(), 3);
  EXPECT_EQ(first->getMenuButton()->getBtn().getMenu().item(2).text.getString(), L"High");
  EXPECT_EQ(rowWidget<ChoiceParamHost>(*built, "picked")->getWidgetValue(), 20u);
  ChoiceParamHost* none = rowWidget<ChoiceParamHost>(*built, "none");
  EXPECT_EQ(none->getWidgetValue(), 4294967295u);
  EXPECT_EQ(none->getMenuButton()->getBtn().getMenu().size(), 0);
}

TEST_F(UIBuilderJSON, TextRowsTakeValueHintAndObfuscation) {
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [
    {"type": "text", "name": "user", "legend": "User", "value": "ada"},
    {"type": "text", "name": "pass", "legend": "Password", "obfuscated": true}]})");
  EXPECT_EQ(rowWidget<TitleTextBox>(*built, "user")->getString(), L"ada");
  EXPECT_FALSE(rowWidget<TitleTextBox>(*built, "user")->isObfuscatedDisplay());
  EXPECT_TRUE(rowWidget<TitleTextBox>(*built, "pass")->isObfuscatedDisplay());
}

TEST_F(UIBuilderJSON, ALabelRowShowsItsLegend) {
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [{"type": "label", "name": "l", "legend": "Read me"}]})");
  ASSERT_NE(built->getWidget("l"), nullptr);
  EXPECT_GE(built->getWidget("l")->height(), UifStd::getRowHeight());
}

TEST_F(UIBuilderJSON, TextThatDoesNotParseBuildsNothingAndSaysNothing) {
  for (wchar_t const* bad : {L"", L"{", L"[1, 2", L"not json", L"{\"rows\": 5}"}) {
    Zo::Ptr<UIBuilder::Params> built = build(bad);
    ASSERT_TRUE(built) << "for " << toNarrow(bad).c_str();
    EXPECT_TRUE(built->getWidgets().empty());
  }
  EXPECT_TRUE(panel->getChildren().empty());
}

TEST_F(UIBuilderJSON, ANullPanelGivesAnEmptyResult) {
  Zo::Ptr<UIBuilder::Params> built = UIBuilder::buildFromJSON(kWorkedExample, nullptr);
  ASSERT_TRUE(built);
  EXPECT_TRUE(built->getWidgets().empty());
}

TEST_F(UIBuilderJSON, RulesWithoutAnEqualsSignAreDropped) {
  int const heightBefore = panel->height();
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [{"type": "bool", "name": "a"},
    {"type": "bool", "name": "b", "visible if": "a", "active if": "a"},
    {"type": "bool", "name": "c", "visible if": "a"}]})");
  EXPECT_TRUE(built->getPostConditions().empty());
  EXPECT_EQ(panel->height(), heightBefore);
  EXPECT_NE(built->getWidget("c")->getY(), built->getWidget("b")->getY());
}

TEST_F(UIBuilderJSON, ARunOfThreeAlternatesShrinksThePanelByMoreThanItSaves) {
  int const heightBefore = panel->height();
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [{"type": "bool", "name": "k"},
    {"type": "bool", "name": "x1", "visible if": "k=1"},
    {"type": "bool", "name": "x2", "visible if": "k=2"},
    {"type": "bool", "name": "x3", "visible if": "k=3"}]})");
  // i = 2 gives 4 - 1 + 0 = 3; i = 3 gives 3 - 2 + 0 = 1: three rows come off.
  EXPECT_EQ(panel->height(), heightBefore - 3 * pitch());
  EXPECT_EQ(built->getWidget("x2")->getY(), built->getWidget("x1")->getY());
  EXPECT_EQ(built->getWidget("x3")->getY(), built->getWidget("x1")->getY());
}

TEST_F(UIBuilderJSON, ARunReachingTheFirstEntryIsLeftAlone) {
  int const heightBefore = panel->height();
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [
    {"type": "bool", "name": "x1", "visible if": "k=1"},
    {"type": "bool", "name": "x2", "visible if": "k=2"}]})");
  EXPECT_EQ(panel->height(), heightBefore);
  EXPECT_EQ(top(built->getWidget("x2")), built->getWidget("x1")->getY() - UifStd::getRowGap());
}

TEST_F(UIBuilderJSON, AlternatesOnDifferentParametersOrWithTheSamePatternAreNotMerged) {
  int const heightBefore = panel->height();
  Zo::Ptr<UIBuilder::Params> built = build(LR"({"rows": [{"type": "bool", "name": "k"},
    {"type": "bool", "name": "a", "visible if": "k=1"},
    {"type": "bool", "name": "b", "visible if": "j=2"},
    {"type": "bool", "name": "c", "visible if": "j=2"}]})");
  EXPECT_EQ(panel->height(), heightBefore);
}

} // namespace
