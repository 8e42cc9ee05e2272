#include "support/WidgetTestSupport.h"

#include <zowidgets/containers/SplitTabsWidget.h>
#include <zowidgets/containers/SplitTabsWidgetTestPanel.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <string>
#include <vector>

namespace {

// Counts the merges and splits it is told of.
class CountingSplitTabs : public SplitTabsWidget {
public:
  using SplitTabsWidget::SplitTabsWidget;
  int merges = 0;
  int splits = 0;

protected:
  void handleTabsMerge() override { ++merges; }
  void handleTabsSplit() override { ++splits; }
};

constexpr int kMinSplitWidth = 300;

struct SplitTabsWidgetTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  CountingSplitTabs* tabs = nullptr;

  CountingSplitTabs* make(int width, bool withRightPages = true) {
    panel = openPanel(XY<int>(1000, 240), XY<int>(50, 100));
    tabs = panel->createWidget<CountingSplitTabs>(
        SplitTabsWidget::InitArgs(XY<int>(width, 200), static_cast<unsigned short>(kMinSplitWidth)),
        Glob::UserTopLeft(0, 0));
    tabs->addLeftPage<TextLabel>(L"L1", label(L"Left One"));
    tabs->addLeftPage<TextLabel>(L"L2", label(L"Left Two"));
    if (withRightPages) {
      tabs->addRightPage<TextLabel>(L"R1", label(L"Right One"));
      tabs->addRightPage<TextLabel>(L"R2", label(L"Right Two"));
    }
    tabs->resize(width, 200);
    return tabs;
  }
  static TextLabel::InitArgs label(wchar_t const* text) {
    TextLabel::InitArgs args;
    args.text = text;
    return args;
  }
  static std::vector<std::wstring> titles(TabbedDialogue const* dialogue) {
    std::vector<std::wstring> found;
    for (int index = 0; dialogue && index < dialogue->getNumTabs(); ++index)
      found.push_back(dialogue->getTab(index).title.getString().str());
    return found;
  }
  static XY<int> tabCentre(TabbedDialogue& dialogue, int index) {
    Zo::Box<int> const box = dialogue.getTabBox(index);
    return HeadlessInput::pointOn(*dialogue.getTabRow(), XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
  }
};

TEST_F(SplitTabsWidgetTest, WithNoRightPagesItStaysCoalescedAtAnySize) {
  make(400, false);
  EXPECT_STREQ(tabs->idstring(), "SplitTabsWidget");
  for (int width : {100, 400, 900, 4000}) {
    tabs->resize(width, 200);
    EXPECT_TRUE(tabs->isCoalesced()) << width;
    EXPECT_EQ(tabs->getSplitter(), nullptr);
    EXPECT_EQ(tabs->getLeftTabs()->width(), width);
  }
  EXPECT_EQ(tabs->splits, 0);
}

TEST_F(SplitTabsWidgetTest, WideEnoughItSplitsAtHalfTheWidth) {
  make(600);
  ASSERT_FALSE(tabs->isCoalesced());
  EXPECT_EQ(titles(tabs->getLeftTabs()), (std::vector<std::wstring>{L"L1", L"L2"}));
  EXPECT_EQ(titles(tabs->getRightTabs()), (std::vector<std::wstring>{L"R1", L"R2"}));
  int const t = Splitter::calcThickness();
  EXPECT_EQ(tabs->calcLeftTabsWidth(), int(float(600 - t) * 0.5f) - t / 2);
  EXPECT_EQ(tabs->getLeftTabs()->width(), tabs->calcLeftTabsWidth());
  EXPECT_EQ(tabs->getSplitter()->getX(), tabs->calcLeftTabsWidth());
  EXPECT_EQ(tabs->getRightTabs()->width(), 600 - (tabs->calcLeftTabsWidth() + t));
  EXPECT_EQ(tabs->getRightTabs()->getX() + tabs->getRightTabs()->width(), 600);
  EXPECT_EQ(tabs->getSplitter()->height(), 200);
}

TEST_F(SplitTabsWidgetTest, NarrowedItMergesLeftFirstAndWidenedItSplitsAtTheSameFraction) {
  make(600);
  XY<int> const grip = HeadlessInput::pointOn(*tabs->getSplitter());
  HeadlessInput::drag(grip, grip + XY<int>(60, 0));
  float const split = tabs->getSplit();
  ASSERT_NE(split, 0.5f);
  Glob* rightTwo = tabs->getRightPages()[1].widget;

  tabs->resize(kMinSplitWidth - 1, 200);
  EXPECT_TRUE(tabs->isCoalesced());
  EXPECT_EQ(tabs->getRightTabs(), nullptr);
  EXPECT_EQ(tabs->getSplitter(), nullptr);
  EXPECT_EQ(titles(tabs->getLeftTabs()), (std::vector<std::wstring>{L"L1", L"L2", L"R1", L"R2"}));
  EXPECT_EQ(tabs->getLeftTabs()->width(), kMinSplitWidth - 1);
  EXPECT_EQ(tabs->merges, 1);
  EXPECT_EQ(tabs->getLeftTabs()->getPage(3), rightTwo) << "the same page, not a new one";

  tabs->resize(700, 200);
  EXPECT_FALSE(tabs->isCoalesced());
  EXPECT_EQ(titles(tabs->getLeftTabs()), (std::vector<std::wstring>{L"L1", L"L2"}));
  EXPECT_EQ(titles(tabs->getRightTabs()), (std::vector<std::wstring>{L"R1", L"R2"}));
  EXPECT_EQ(tabs->getSplit(), split) << "the split is kept across both";
  EXPECT_EQ(tabs->getRightTabs()->getPage(1), rightTwo);
  EXPECT_EQ(tabs->splits, 2) << "once when first widened, once now";
}

TEST_F(SplitTabsWidgetTest, InTheMergedRowAClickShowsARightPage) {
  make(kMinSplitWidth - 20);
  ASSERT_TRUE(tabs->isCoalesced());
  TabbedDialogue* row = tabs->getLeftTabs();
  HeadlessInput::click(tabCentre(*row, 2));
  EXPECT_EQ(row->getCurrentTab(), 2);
  EXPECT_EQ(row->getCurrentPage(), tabs->getRightPages()[0].widget);
  EXPECT_TRUE(tabs->getRightPages()[0].widget->isVisible());
  EXPECT_FALSE(tabs->getLeftPages()[0].widget->isVisible());
}

TEST_F(SplitTabsWidgetTest, ARightPageChosenInTheOneRowIsTheOneShownOnItsSideWhenWidened) {
  make(kMinSplitWidth - 20);
  ASSERT_TRUE(tabs->isCoalesced());
  HeadlessInput::click(tabCentre(*tabs->getLeftTabs(), 3));
  Glob* rightTwo = tabs->getRightPages()[1].widget;
  ASSERT_EQ(tabs->getLeftTabs()->getCurrentPage(), rightTwo);
  tabs->resize(700, 200);
  ASSERT_FALSE(tabs->isCoalesced());
  EXPECT_EQ(tabs->getRightTabs()->getCurrentPage(), rightTwo);
  EXPECT_TRUE(rightTwo->isVisible());
  EXPECT_FALSE(tabs->getRightPages()[0].widget->isVisible());
}

TEST_F(SplitTabsWidgetTest, ARightPageAddedWhileCoalescedGoesInTheOneRowButCountsAsRight) {
  make(kMinSplitWidth - 20, false);
  tabs->addRightPage<TextLabel>(L"R1", label(L"Right One"));
  EXPECT_TRUE(tabs->isCoalesced());
  EXPECT_EQ(titles(tabs->getLeftTabs()), (std::vector<std::wstring>{L"L1", L"L2", L"R1"}));
  EXPECT_EQ(tabs->getLeftPages().size(), 2u);
  ASSERT_EQ(tabs->getRightPages().size(), 1u);
  tabs->resize(600, 200);
  EXPECT_FALSE(tabs->isCoalesced());
  EXPECT_EQ(titles(tabs->getRightTabs()), (std::vector<std::wstring>{L"R1"}));
  EXPECT_EQ(titles(tabs->getLeftTabs()), (std::vector<std::wstring>{L"L1", L"L2"}));
}

TEST_F(SplitTabsWidgetTest, ClickingTabsOnEachSideShowsTheirPages) {
  make(600);
  HeadlessInput::click(tabCentre(*tabs->getRightTabs(), 1));
  HeadlessInput::click(tabCentre(*tabs->getLeftTabs(), 1));
  EXPECT_TRUE(tabs->getRightPages()[1].widget->isVisible());
  EXPECT_TRUE(tabs->getLeftPages()[1].widget->isVisible());
  EXPECT_FALSE(tabs->getLeftPages()[0].widget->isVisible());
}

TEST_F(SplitTabsWidgetTest, TheSplitterStopsWhereTheLeftPageWouldGetNarrowerThanItsMinimum) {
  make(600);
  Glob* page = tabs->getLeftPages()[0].widget;
  page->setMinSize(XY<int>(150, 0));
  tabs->calcSplitterRange();
  XY<int> const grip = HeadlessInput::pointOn(*tabs->getSplitter());
  HeadlessInput::drag(grip, XY<int>(0, grip.y));
  ASSERT_FALSE(tabs->isCoalesced());
  EXPECT_GE(page->width(), 150 - 1) << "no narrower than its minimum, but for the fraction's rounding";
  int const frame = 2 * TabbedDialogue::calcBorderSize(2 | 4);
  EXPECT_LE(tabs->getLeftTabs()->width(), 150 + frame) << "and the bar went as far as that allowed";
  EXPECT_EQ(tabs->getSplitter()->getX(), tabs->getLeftTabs()->width()) << "the bar stands right of the left tabs";
}

TEST_F(SplitTabsWidgetTest, AKeyMoveThatMergesTheGroupsLeavesTheSplitterToBeDeletedAfterItsMessage) {
  make(600);
  HeadlessInput::clickOn(*tabs->getSplitter());
  // Raised after the range was taken, so the move lands below the new need
  // and the groups merge from inside the splitter's own message.
  tabs->getLeftPages()[0].widget->setMinSize(XY<int>(280, 0));
  HeadlessInput::key(kKeyHome);
  pump();
  EXPECT_TRUE(tabs->isCoalesced());
  EXPECT_EQ(tabs->getSplitter(), nullptr);
  EXPECT_EQ(titles(tabs->getLeftTabs()), (std::vector<std::wstring>{L"L1", L"L2", L"R1", L"R2"}));
  for (Glob const* child : tabs->getChildren())
    EXPECT_STRNE(child->idstring(), "Splitter");
}

TEST_F(SplitTabsWidgetTest, ArrowKeysOnTheSplitterMoveTheSplit) {
  make(600);
  float const before = tabs->getSplit();
  HeadlessInput::clickOn(*tabs->getSplitter());
  HeadlessInput::key(kKeyRight);
  EXPECT_GT(tabs->getSplit(), before);
  EXPECT_EQ(tabs->getSplitter()->getX(), tabs->calcLeftTabsWidth());
}

TEST_F(SplitTabsWidgetTest, GroupsTooNarrowForTheirPagesMerge) {
  make(600);
  tabs->getRightPages()[0].widget->setMinSize(XY<int>(400, 0));
  tabs->resize(600, 200);
  EXPECT_TRUE(tabs->shouldBeCoalesced());
  EXPECT_TRUE(tabs->isCoalesced());
}

TEST_F(SplitTabsWidgetTest, APageWithAMinimumRaisesThePanelsMinimum) {
  make(600);
  TextLabel::InitArgs wide = label(L"Wide");
  auto* page = tabs->addLeftPage<TextLabel>(L"L3", wide);
  page->setMinSize(XY<int>(420, 90));
  tabs->addMinSizeConstraint(page);
  EXPECT_EQ(tabs->getMinSize(), XY<int>(420, TabbedDialogue::calcHeightForContents(90)));
  Glob loose(GlobCreationInfo(XY<int>(5, 5)));
  loose.setMinSize(XY<int>(0, 500));
  tabs->addMinSizeConstraint(&loose);
  EXPECT_EQ(tabs->getMinSize().y, TabbedDialogue::calcHeightForContents(90)) << "no minimum width: ignored";
}

TEST_F(SplitTabsWidgetTest, TheTestCommandOpensL1L2R1R2) {
  ASSERT_TRUE(CommandMap::findCommand("SplitTabsWidgetTest").has_value());
  CommandMap::callCommand("SplitTabsWidgetTest", Cmd::Context{});
  SplitTabsWidgetTestPanel* opened = nullptr;
  for (Glob* window : GlobManager::topLevelWindows())
    if (auto* candidate = dynamic_cast<SplitTabsWidgetTestPanel*>(window))
      opened = candidate;
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(opened->windowTitle(), LightweightString<wchar_t>(L"SplitTabsWidget test"));
  SplitTabsWidget* split = opened->getTabs();
  EXPECT_FALSE(split->isCoalesced());
  std::vector<std::wstring> texts;
  for (auto const* group : {&split->getLeftPages(), &split->getRightPages()})
    for (SplitTabsWidget::Page const& page : *group)
      texts.push_back(static_cast<TextLabel*>(page.widget)->getString().getString().str());
  EXPECT_EQ(texts, (std::vector<std::wstring>{L"Left One", L"Left Two", L"Right One", L"Right Two"}));
  opened->resize(SplitTabsWidgetTestPanel::minSplitWidth() - 10, opened->height());
  EXPECT_TRUE(split->isCoalesced()) << "the tabs follow the window";
  EXPECT_EQ(titles(split->getLeftTabs()), (std::vector<std::wstring>{L"L1", L"L2", L"R1", L"R2"}));
}

} // namespace
