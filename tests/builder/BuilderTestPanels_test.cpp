#include "BuilderTestSupport.h"

#include <zowidgets/builder/SliderParamHost.h>
#include <zowidgets/builder/TitledGlob.h>
#include <zowidgets/builder/UIBuilderJSONTestPanel.h>
#include <zowidgets/builder/UIBuilderTestPanel.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

using namespace BuilderTest;

namespace {

struct BuilderTestPanels : HeadlessScreenTest {
  template <class T> static T* findWindow() {
    for (Glob* window : GlobManager::topLevelWindows())
      if (auto* found = dynamic_cast<T*>(window))
        return found;
    return nullptr;
  }
  static void clickDoIt(StandardPanel& panel) {
    Zo::Box<int> const doIt = panel.getStandardWidgetBox(StandardPanel::kDoIt);
    HeadlessInput::clickOn(panel, XY<int>((doIt.x0 + doIt.x1) / 2, (doIt.y0 + doIt.y1) / 2));
    pump();
  }
};

TEST_F(BuilderTestPanels, TheJSONTestPanelOpensByItsCommandAndBuildsItsDescription) {
  ASSERT_TRUE(CommandMap::callCommand("makeUIBuilderTestPanel"));
  auto* panel = findWindow<UIBuilderJSONTestPanel>();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->getTitle().getString(), L"UIBuilder JSON Test");
  EXPECT_EQ(panel->getBuildButton()->getLabel(), L"Build");
  HeadlessInput::clickOn(*panel->getBuildButton());
  pump();
  StandardPanel* built = panel->getBuiltPanel();
  ASSERT_NE(built, nullptr);
  auto* result = static_cast<BuiltPanel*>(built);
  ASSERT_NE(result->getBuiltParams(), nullptr);
  // The label has no name: it is mapped under the empty id.
  EXPECT_EQ(result->getBuiltParams()->getWidgets().size(), 6u);
  EXPECT_EQ(built->getChildren().size(), 6u);
  EXPECT_EQ(panel->getStatus()->getString().getString(), L"6 rows built.");
  // Every row lies inside the panel's user area (the gap below the last
  // one aside).
  for (Glob* row : built->getChildren())
    EXPECT_GE(row->getY() + UifStd::getRowGap(), built->getUserArea().y0);
}

TEST_F(BuilderTestPanels, BuildingAgainReplacesThePanelAndBadJSONIsReported) {
  UIBuilderJSONTestPanel* panel = UIBuilderJSONTestPanel::open();
  panel->build();
  pump();
  StandardPanel* first = panel->getBuiltPanel();
  ASSERT_NE(first, nullptr);
  panel->getDescriptionBox()->setString(L"{\"rows\": [{\"type\": \"bool\", \"name\": \"only\"}]}");
  panel->build();
  pump();
  EXPECT_FALSE(is_good_glob_ptr(first));
  ASSERT_NE(panel->getBuiltPanel(), nullptr);
  EXPECT_EQ(panel->getStatus()->getString().getString(), L"1 row built.");

  panel->getDescriptionBox()->setString(L"{\"rows\": [");
  StandardPanel* kept = panel->getBuiltPanel();
  panel->build();
  pump();
  EXPECT_EQ(panel->getStatus()->getString().getString(),
            L"The description is not valid JSON: line 1, column 11: Invalid value.");
  EXPECT_EQ(panel->getBuiltPanel(), kept);
}

TEST_F(BuilderTestPanels, ABrokenDescriptionPutsTheCaretWhereTheParserStopped) {
  UIBuilderJSONTestPanel* panel = UIBuilderJSONTestPanel::open();
  MultiLineTextBox* box = panel->getDescriptionBox();
  box->setString(L"{\"rows\": [\n  {\"type\": \"bool\"}\n  {\"type\": \"int\"}\n]}");
  box->placeCaret(0);
  panel->build();
  pump();
  EXPECT_EQ(panel->getStatus()->getString().getString(),
            L"The description is not valid JSON: line 3, column 3: Missing a comma or ']' after an array element.");
  EXPECT_EQ(panel->getStatus()->getTooltip().getString(), panel->getStatus()->getString().getString())
      << "the whole message, which the line beside the button may cut";
  // Line 3, column 3: after the first line (11 characters with its break),
  // the second (19) and two spaces.
  EXPECT_EQ(box->editor().caret(), 11u + 19u + 2u);
  EXPECT_EQ(get_kbd_focus(), box);
}

TEST_F(BuilderTestPanels, TheTestPanelBuildsEveryKindWithRulesAndABuildAction) {
  ASSERT_TRUE(CommandMap::callCommand("UIBuilderTest2"));
  auto* panel = findWindow<UIBuilderTestPanel>();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->getTitle().getString(), L"UIBuilder Test Panel");
  EXPECT_EQ(panel->getDoItLabel().getString(), L"Build");
  UIBuilder::Params* built = panel->getBuiltParams();
  ASSERT_NE(built, nullptr);
  for (char const* id : {"about", "advanced", "quality", "strength", "low", "high", "speed", "name", "password",
                         "output", "overwrite", "copies", "reset"})
    EXPECT_NE(built->getWidget(id), nullptr) << id;
  EXPECT_FALSE(built->getWidget("strength")->isVisible());
  EXPECT_FALSE(built->getWidget("name")->isActive());
  int const heightBefore = panel->height();
  EXPECT_EQ(panel->getUserArea().height(), built->calcHeight());

  HeadlessInput::clickOn(*rowWidget<Checkbox>(*built, "advanced"));
  pump();
  EXPECT_TRUE(built->getWidget("strength")->isVisible());
  EXPECT_TRUE(built->getWidget("name")->isActive());
  EXPECT_EQ(panel->height(), heightBefore + UifStd::getRowHeight() + UifStd::getRowGap());
  EXPECT_EQ(panel->getUserArea().height(), built->calcHeight());
  EXPECT_EQ(panel->changesHeard(), 1);

  // The reset action puts Advanced back: one change is heard for it all.
  HeadlessInput::clickOn(*rowWidget<TitledGlob<PushButton>>(*built, "reset")->getChild());
  pump();
  EXPECT_EQ(panel->changesHeard(), 2);
  EXPECT_FALSE(built->getWidget("strength")->isVisible());
  EXPECT_EQ(panel->height(), heightBefore);

  GenericParam::ParamList const before = panel->getParams();
  clickDoIt(*panel);
  EXPECT_NE(panel->getParams()[0].get(), before[0].get());
  EXPECT_EQ(panel->changesHeard(), 0);
  EXPECT_NE(panel->getBuiltParams()->getWidget("quality"), nullptr);
}

TEST_F(BuilderTestPanels, TheTestPanelsLimitsHoldBothWays) {
  UIBuilderTestPanel* panel = UIBuilderTestPanel::open();
  GenericParam::ParamList const& params = panel->getParams();
  Zo::Ptr<iParam> low, high;
  for (Zo::Ptr<iParam> const& param : params) {
    if (param->getID() == "low")
      low = param;
    if (param->getID() == "high")
      high = param;
  }
  ASSERT_TRUE(low && high);
  low->setValueFromString(L"0.9");
  EXPECT_EQ(low->getValueAsString(), high->getValueAsString());
  high->setValueFromString(L"0.1");
  EXPECT_EQ(high->getValueAsString(), low->getValueAsString());
}

} // namespace
