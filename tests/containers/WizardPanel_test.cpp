#include "support/WidgetTestSupport.h"

#include "containers/WizardTestStages.h"

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/values/ImageView.h>

#include <vector>

namespace {

struct WizardPanelTest : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
    setResourceLanguage("en");
  }

  // Stages titled by the letters, the lowercase ones disabled.
  std::vector<Zo::Ptr<TestStage>> makeStages(std::wstring const& letters) {
    std::vector<Zo::Ptr<TestStage>> made;
    for (wchar_t letter : letters) {
      bool const enabled = static_cast<wint_t>(letter) == std::towupper(letter);
      made.emplace_back(
          new TestStage(UIString(LightweightString<wchar_t>(std::wstring(1, std::towupper(letter)))), enabled));
    }
    return made;
  }

  WizardPanel* openWizard(std::vector<Zo::Ptr<TestStage>> const& stages) {
    WizardPanel::StageList list(stages.begin(), stages.end());
    int const row = UifStd::getRowHeight();
    WizardPanel::InitArgs args(WizardPanel::calcSize(XY<int>(16 * row, 6 * row), StandardPanel::kPoot), list);
    args.standardWidgets = StandardPanel::kPoot;
    args.screenPosition = XY<int>(300, 300);
    auto* wizard = new WizardPanel(args);
    wizard->addListener(Broadcaster<WizardPanelEvent>::makeCallback(
        [this](WizardPanelEvent const& event) { finishedEvents.push_back(event.kind); }));
    GlobManager::realize(wizard);
    pump();
    return wizard;
  }

  static void click(Glob const& button) {
    HeadlessInput::clickOn(button);
    pump();
  }

  static std::wstring titleOf(WizardPanel const& wizard) { return wizard.getTitle().getString().str(); }

  static TestStagePage* pageOf(WizardPanel const& wizard) { return dynamic_cast<TestStagePage*>(wizard.getPage()); }

  std::vector<int> finishedEvents;
};

TEST_F(WizardPanelTest, TheFirstStageShowsWithNumberedTitleAndTheNextButtonFocused) {
  auto stages = makeStages(L"ABC");
  WizardPanel* wizard = openWizard(stages);
  EXPECT_EQ(wizard->getCurrentStage(), 0);
  EXPECT_EQ(titleOf(*wizard), L"1/3 : A");
  ASSERT_NE(pageOf(*wizard), nullptr);
  EXPECT_EQ(&pageOf(*wizard)->stage(), stages[0].get());
  EXPECT_EQ(wizard->getPage()->parent(), wizard);
  EXPECT_EQ(wizard->getPage()->getSize(), wizard->getUserArea().getDimensions());
  EXPECT_EQ(get_kbd_focus(), wizard->getNextButton());
  EXPECT_EQ(wizard->getNextButton()->getLabel(), resourceStrW(iWizardStage::kNextTextId));
  EXPECT_EQ(wizard->getBackButton()->getLabel(), resourceStrW(iWizardStage::kBackTextId));
  EXPECT_EQ(wizard->getNextButton()->getIconName(), "tree-collapsed.png");
  EXPECT_TRUE(wizard->getNextButton()->isIconTrailing());
  EXPECT_EQ(wizard->getBackButton()->getIconName(), "scroll-left.png");
  EXPECT_TRUE(wizard->getNextButton()->isActive());
  EXPECT_FALSE(wizard->getBackButton()->isActive()) << "nothing lies before the first stage";
  // The buttons sit in the footer under the page, next at the right.
  EXPECT_GE(wizard->getPage()->getY(), wizard->getNextButton()->getY() + wizard->getNextButton()->height());
  EXPECT_LT(wizard->getBackButton()->getX(), wizard->getNextButton()->getX());
  EXPECT_EQ(wizard->getBackButton()->width(), wizard->getNextButton()->width());
}

TEST_F(WizardPanelTest, ADisabledStageIsSkippedAndNotCountedBothWays) {
  auto stages = makeStages(L"AbC");
  WizardPanel* wizard = openWizard(stages);
  EXPECT_EQ(titleOf(*wizard), L"1/2 : A");
  click(*wizard->getNextButton());
  EXPECT_EQ(wizard->getCurrentStage(), 2);
  EXPECT_EQ(titleOf(*wizard), L"2/2 : C");
  EXPECT_EQ(stages[1]->pagesMade, 0);
  EXPECT_TRUE(wizard->getNextButton()->getIconName().empty()) << "the last stage shows no arrow";
  EXPECT_TRUE(wizard->getBackButton()->isActive());

  click(*wizard->getBackButton());
  EXPECT_EQ(wizard->getCurrentStage(), 0);
  EXPECT_EQ(titleOf(*wizard), L"1/2 : A");
  EXPECT_EQ(stages[0]->pagesMade, 2) << "each visit makes a new page";
  EXPECT_EQ(stages[1]->pagesMade, 0);
}

TEST_F(WizardPanelTest, TheOldPageGoesOnceTheClickIsDone) {
  auto stages = makeStages(L"AB");
  WizardPanel* wizard = openWizard(stages);
  Glob* first = wizard->getPage();
  click(*wizard->getNextButton());
  EXPECT_FALSE(is_good_glob_ptr(first));
  EXPECT_EQ(wizard->getChildren().size(), 3u) << "two buttons and one page";
}

TEST_F(WizardPanelTest, WithOneEnabledStageTheTitleHasNoNumberAndNextFinishes) {
  auto stages = makeStages(L"Abc");
  WizardPanel* wizard = openWizard(stages);
  EXPECT_EQ(titleOf(*wizard), L"A");
  EXPECT_TRUE(wizard->getNextButton()->getIconName().empty());
  EXPECT_FALSE(wizard->getBackButton()->isActive());
  click(*wizard->getNextButton());
  EXPECT_EQ(finishedEvents, (std::vector<int>{WizardPanelEvent::kFinished}));
  EXPECT_FALSE(is_good_glob_ptr(wizard)) << "a finished wizard closes itself";
  EXPECT_EQ(stages[1]->pagesMade + stages[2]->pagesMade, 0);
}

TEST_F(WizardPanelTest, AStageDisabledWhileCurrentStaysOnShowAndIsNoLongerCounted) {
  auto stages = makeStages(L"ABC");
  WizardPanel* wizard = openWizard(stages);
  click(*wizard->getNextButton());
  ASSERT_EQ(wizard->getCurrentStage(), 1);
  WizardStagePanel* page = wizard->getPage();
  EXPECT_EQ(wizard->getLogicalStageIndex(1), 2);

  stages[1]->enabled = false;
  page->broadcast(WizardStagePanelEvent{WizardStagePanelEvent::kStateChanged});
  EXPECT_EQ(wizard->getPage(), page);
  EXPECT_EQ(wizard->getCurrentStage(), 1);
  EXPECT_EQ(wizard->getLogicalStageIndex(1), 1);
  EXPECT_EQ(wizard->getNumActiveStages(), 2);
  // Back still goes to A, and from A next skips the disabled stage to C.
  click(*wizard->getBackButton());
  EXPECT_EQ(wizard->getCurrentStage(), 0);
  click(*wizard->getNextButton());
  EXPECT_EQ(wizard->getCurrentStage(), 2);
}

TEST_F(WizardPanelTest, DisablingTheStagesAfterTheCurrentMakesItTheLast) {
  auto stages = makeStages(L"ABC");
  WizardPanel* wizard = openWizard(stages);
  click(*wizard->getNextButton());
  ASSERT_EQ(wizard->getCurrentStage(), 1);
  EXPECT_FALSE(wizard->getNextButton()->getIconName().empty());

  stages[2]->enabled = false;
  wizard->getPage()->broadcast(WizardStagePanelEvent{WizardStagePanelEvent::kStateChanged});
  EXPECT_EQ(wizard->getLastActiveStage(), 1);
  EXPECT_EQ(titleOf(*wizard), L"2/2 : B");
  EXPECT_TRUE(wizard->getNextButton()->getIconName().empty());
  click(*wizard->getNextButton());
  EXPECT_EQ(finishedEvents.size(), 1u);
  EXPECT_EQ(stages[2]->pagesMade, 0);
}

TEST_F(WizardPanelTest, NextOnTheLastStageFinishesWithoutAskingThePage) {
  auto stages = makeStages(L"AB");
  stages[1]->agreesToLeave = false;
  WizardPanel* wizard = openWizard(stages);
  click(*wizard->getNextButton());
  EXPECT_EQ(stages[0]->completionRequests, 1) << "leaving a middle stage forward asks it";
  ASSERT_EQ(wizard->getCurrentStage(), 1);
  click(*wizard->getNextButton());
  EXPECT_EQ(stages[1]->completionRequests, 0);
  EXPECT_EQ(finishedEvents.size(), 1u);
}

TEST_F(WizardPanelTest, AStageThatRefusesToBeLeftKeepsItsPage) {
  auto stages = makeStages(L"AB");
  stages[0]->agreesToLeave = false;
  WizardPanel* wizard = openWizard(stages);
  WizardStagePanel* page = wizard->getPage();
  click(*wizard->getNextButton());
  EXPECT_EQ(stages[0]->completionRequests, 1);
  EXPECT_EQ(wizard->getCurrentStage(), 0);
  EXPECT_EQ(wizard->getPage(), page);
  EXPECT_EQ(stages[1]->pagesMade, 0);
}

TEST_F(WizardPanelTest, ALastStageThatMustCheckHoldsNextInactiveUntilItMayFinish) {
  auto stages = makeStages(L"AB");
  stages[1]->canAdvance = false;
  WizardPanel* wizard = openWizard(stages);
  click(*wizard->getNextButton());
  ASSERT_EQ(wizard->getCurrentStage(), 1);
  EXPECT_FALSE(wizard->getNextButton()->isActive());
  click(*wizard->getNextButton());
  EXPECT_TRUE(finishedEvents.empty());

  stages[1]->canAdvance = true;
  wizard->getPage()->broadcast(WizardStagePanelEvent{WizardStagePanelEvent::kStateChanged});
  EXPECT_TRUE(wizard->getNextButton()->isActive());
  click(*wizard->getNextButton());
  EXPECT_EQ(finishedEvents.size(), 1u);
}

TEST_F(WizardPanelTest, ASecondSetStageToTheCurrentStageChangesNothingNotEvenARedraw) {
  auto stages = makeStages(L"ABC");
  WizardPanel* wizard = openWizard(stages);
  WizardStagePanel* page = wizard->getPage();
  int const paints = wizard->paintCount();
  int const screenPaints = screen().paintsShown();
  wizard->setStage(0, kRedrawNow);
  pump();
  EXPECT_EQ(wizard->getPage(), page);
  EXPECT_EQ(stages[0]->pagesMade, 1);
  EXPECT_EQ(wizard->paintCount(), paints);
  EXPECT_EQ(screen().paintsShown(), screenPaints);
}

TEST_F(WizardPanelTest, AnIndexPastTheEndIsIgnored) {
  auto stages = makeStages(L"AB");
  WizardPanel* wizard = openWizard(stages);
  WizardStagePanel* page = wizard->getPage();
  wizard->setStage(2, kRedrawNow);
  wizard->setStage(WizardPanel::kNoStage, kRedrawNow);
  EXPECT_EQ(wizard->getCurrentStage(), 0);
  EXPECT_EQ(wizard->getPage(), page);
}

TEST_F(WizardPanelTest, PageEventsGoForwardAndBackAsTheButtonsDo) {
  auto stages = makeStages(L"AbC");
  WizardPanel* wizard = openWizard(stages);
  wizard->getPage()->broadcast(WizardStagePanelEvent{WizardStagePanelEvent::kGoForward});
  pump();
  EXPECT_EQ(wizard->getCurrentStage(), 2);
  wizard->getPage()->broadcast(WizardStagePanelEvent{WizardStagePanelEvent::kGoBack});
  pump();
  EXPECT_EQ(wizard->getCurrentStage(), 0);
  EXPECT_EQ(stages[0]->completionRequests, 1);
}

TEST_F(WizardPanelTest, AnEmptyBackTextHidesTheBackButton) {
  auto stages = makeStages(L"AB");
  stages[1]->backText = UIString(L"");
  stages[1]->forwardText = UIString(L"Finish");
  WizardPanel* wizard = openWizard(stages);
  EXPECT_TRUE(wizard->getBackButton()->isVisible());
  click(*wizard->getNextButton());
  EXPECT_FALSE(wizard->getBackButton()->isVisible());
  EXPECT_EQ(wizard->getNextButton()->getLabel(), LightweightString<wchar_t>(L"Finish"));
  EXPECT_EQ(wizard->getNextButton()->width(), Button::calcWidth(UIString(L"Finish")))
      << "alone, the button keeps its own width";
}

TEST_F(WizardPanelTest, TheBackButtonIsInactiveWhenThePageCannotRetreat) {
  auto stages = makeStages(L"AB");
  stages[1]->canRetreat = false;
  WizardPanel* wizard = openWizard(stages);
  click(*wizard->getNextButton());
  EXPECT_FALSE(wizard->getBackButton()->isActive());
  click(*wizard->getBackButton());
  EXPECT_EQ(wizard->getCurrentStage(), 1);
}

TEST_F(WizardPanelTest, StagesShareTheWizardsDataAcrossPages) {
  auto stages = makeStages(L"AB");
  WizardPanel* wizard = openWizard(stages);
  ASSERT_TRUE(wizard->getData());
  EXPECT_EQ(stages[0]->getData().get(), wizard->getData().get());
  EXPECT_EQ(stages[1]->getData().get(), wizard->getData().get());
  wizard->getPage()->getData()->values().set("clip", L"Interview 3");
  click(*wizard->getNextButton());
  EXPECT_EQ(wizard->getPage()->getData()->values().getString("clip"), LightweightString<wchar_t>(L"Interview 3"));
}

TEST_F(WizardPanelTest, WithoutStagesThereIsNoPageAndTheButtonsStayAsMade) {
  WizardPanel* wizard = openWizard({});
  EXPECT_EQ(wizard->getPage(), nullptr);
  EXPECT_EQ(wizard->getLastActiveStage(), WizardPanel::kNoStage);
  EXPECT_EQ(wizard->getFirstActiveStage(), WizardPanel::kNoStage);
  EXPECT_EQ(wizard->getNextButton()->getLabel(), resourceStrW(iWizardStage::kNextTextId));
  click(*wizard->getNextButton());
  click(*wizard->getBackButton());
  EXPECT_TRUE(is_good_glob_ptr(wizard));
  EXPECT_TRUE(finishedEvents.empty());
}

TEST_F(WizardPanelTest, AnUntitledStageLeavesTheTitleEmpty) {
  std::vector<Zo::Ptr<TestStage>> stages{Zo::Ptr<TestStage>(new TestStage(UIString())),
                                         Zo::Ptr<TestStage>(new TestStage(UIString(L"Render")))};
  WizardPanel* wizard = openWizard(stages);
  EXPECT_TRUE(wizard->makeTitle(0).empty());
  EXPECT_EQ(wizard->makeTitle(1).getString(), LightweightString<wchar_t>(L"2/2 : Render"));
}

TEST_F(WizardPanelTest, AStageImageStandsBottomLeftAndTheContentStartsRightOfIt) {
  auto stages = makeStages(L"AB");
  stages[0]->imageName = "magnify.png";
  WizardPanel* wizard = openWizard(stages);
  ImageView* image = wizard->getPage()->getImageView();
  ASSERT_NE(image, nullptr);
  EXPECT_FALSE(image->getImage().empty());
  Border const& border = wizard->getPage()->getBorder();
  EXPECT_EQ(image->getPosition(), XY<int>(border.left(), border.bottom()));
  EXPECT_EQ(wizard->getPage()->getUserArea().x0,
            border.left() + image->width() + StandardPanel::getDefaultBorder().left());
  click(*wizard->getNextButton());
  EXPECT_EQ(wizard->getPage()->getImageView(), nullptr);
  EXPECT_EQ(wizard->getPage()->getUserArea().x0, wizard->getPage()->getBorder().left());
}

TEST_F(WizardPanelTest, ANewLanguageReachesTheTitleAndButtonsThroughHandleUIChange) {
  auto stages = makeStages(L"AB");
  WizardPanel* wizard = openWizard(stages);
  ASSERT_TRUE(setResourceLanguage("de"));
  wizard->handleUIChange(0);
  EXPECT_EQ(wizard->getNextButton()->getLabel(), LightweightString<wchar_t>(L"Next")) << "only flag 8 reloads";
  wizard->handleUIChange(WizardPanel::kTextsChanged);
  EXPECT_EQ(wizard->getNextButton()->getLabel(), LightweightString<wchar_t>(L"Weiter"));
  EXPECT_EQ(wizard->getBackButton()->getLabel(), LightweightString<wchar_t>(L"Zurück"));
}

TEST_F(WizardPanelTest, TabMovesFromNextToBack) {
  auto stages = makeStages(L"AB");
  WizardPanel* wizard = openWizard(stages);
  click(*wizard->getNextButton());
  ASSERT_TRUE(wizard->getNextButton()->claimKbdFocus());
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), wizard->getBackButton());
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(wizard->getCurrentStage(), 0);
  // Back, out of use on the first stage, has handed the keyboard to Next.
  EXPECT_EQ(get_kbd_focus(), wizard->getNextButton());
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(wizard->getCurrentStage(), 1);
}

TEST_F(WizardPanelTest, ReturnOnATickBoxOfThePageGoesToTheNextStageAndLeavesTheBoxAlone) {
  auto stages = makeStages(L"AB");
  WizardPanel* wizard = openWizard(stages);
  auto* box = wizard->getPage()->createWidget<Checkbox>(Checkbox::InitArgs(L"Make proxies first", XY<int>()),
                                                        Glob::UserTopLeft(0, 0));
  ASSERT_TRUE(box->claimKbdFocus());
  HeadlessInput::key(' ');
  ASSERT_TRUE(box->isChecked()) << "Space ticks";
  HeadlessInput::key(kKeyReturn);
  pump();
  EXPECT_EQ(wizard->getCurrentStage(), 1) << "Return is the wizard's Next";
}

TEST_F(WizardPanelTest, GoldenFirstAndLastStage) {
  auto stages = makeStages(L"AbC");
  stages[0]->imageName = "magnify.png";
  WizardPanel* wizard = openWizard(stages);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*wizard), ZO_GOLDEN_DIR "/wizard_first_stage.png"));
  click(*wizard->getNextButton());
  HeadlessInput::moveTo(XY<int>(0, 0));
  pump();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*wizard), ZO_GOLDEN_DIR "/wizard_last_stage.png"));
}

TEST_F(WizardPanelTest, GoldenAtDoubleScale) {
  UifStd::setScale(2.0);
  auto stages = makeStages(L"AbC");
  stages[0]->imageName = "magnify.png";
  WizardPanel* wizard = openWizard(stages);
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*wizard), ZO_GOLDEN_DIR "/wizard_first_stage_scale2.png"));
}

} // namespace
