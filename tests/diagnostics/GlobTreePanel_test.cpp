#include "diagnostics/ProbeTestSupport.h"

#include <zowidgets/diagnostics/GlobDetailsView.h>
#include <zowidgets/diagnostics/GlobTreePanel.h>
#include <zowidgets/host/events/Clock.h>
#include <zowidgets/host/events/Timer.h>
#include <zowidgets/host/widgets/lists/TreeView.h>

namespace {

using WString = LightweightString<wchar_t>;

struct GlobTreePanelTest : InspectorTest {
  GlobTreePanel* tree = nullptr;

  void openTree() {
    HeadlessInput::moveTo(XY<int>(20, 20));
    tree = GlobTreePanel::create();
    pump();
  }
  std::vector<std::wstring> rows() const {
    std::vector<std::wstring> texts;
    TreeView const& view = *tree->getTree();
    for (int row = 0; row < view.rowCount(); ++row)
      texts.push_back(view.itemAt(row)->text.getString().str());
    return texts;
  }
  void clickText(int row) const {
    Glob* widget = tree->getTree()->getRowGlob(row);
    HeadlessInput::clickOn(*widget, XY<int>(widget->width() - 10, widget->height() / 2));
    pump();
  }
  std::vector<std::wstring> details() const {
    std::vector<std::wstring> lines;
    for (LabelledValue const& line : tree->getDetails()->describe())
      lines.push_back(line.label.str() + line.value.str());
    return lines;
  }
};

TEST_F(GlobTreePanelTest, OpensTitledGlobTreeWithEveryOtherWindowAtTheTop) {
  openTree();
  EXPECT_STREQ(tree->idstring(), "GlobTreePanel");
  EXPECT_EQ(tree->getTitle().getString().str(), L"Glob Tree");
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"StandardPanel, 300, 200"})) << "not itself";
  EXPECT_TRUE(details().empty());
  EXPECT_TRUE(isParentedTo(tree->getTree(), tree));
}

TEST_F(GlobTreePanelTest, OpeningAnItemListsTheWidgetsChildrenByTypeAndSize) {
  openTree();
  tree->getTree()->expand(GlobTreePanel::idOf(*panel));
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"StandardPanel, 300, 200", L"Swatch, 60, 40"}));
  EXPECT_EQ(tree->getTree()->itemAt(1)->id, GlobTreePanel::idOf(*swatch));
}

TEST_F(GlobTreePanelTest, SelectingAnItemShowsItsDetailsOneLineEach) {
  swatch->setName("red swatch");
  openTree();
  tree->getTree()->expand(GlobTreePanel::idOf(*panel));
  clickText(1);
  EXPECT_EQ(tree->getDetails()->getTarget(), swatch);
  XY<int> const screenAt = swatch->screenPosition();
  EXPECT_EQ(details(), (std::vector<std::wstring>{
                           L"Size : 60 x 40",
                           L"Position : " + std::to_wstring(swatch->getX()) + L", " + std::to_wstring(swatch->getY()),
                           L"Screen Position : " + std::to_wstring(screenAt.x) + L", " + std::to_wstring(screenAt.y),
                           L"Weight : light",
                           L"Visible : true",
                           L"Maximum Size : 0 x 0",
                           L"Margins : 0, 0, 0, 0",
                           L"Minimum Size : 0 x 0",
                           L"Legend : red swatch",
                       }));
  clickText(0);
  std::vector<std::wstring> const window = details();
  ASSERT_EQ(window.size(), 9u);
  EXPECT_EQ(window[3], L"Weight : heavy");
  EXPECT_EQ(window[8], L"Legend : Target");
}

TEST_F(GlobTreePanelTest, TheTreeFollowsAWidgetMadeAndDestroyed) {
  TestClock clock(1000.0);
  openTree();
  tree->getTree()->expand(GlobTreePanel::idOf(*panel));
  Swatch* made = addSwatch(XY<int>(20, 20), XY<int>(150, 30), Colour(0.1, 0.8, 0.1));
  clock.advance(TimerTicks::kIntervalMs);
  pump();
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"StandardPanel, 300, 200", L"Swatch, 60, 40", L"Swatch, 20, 20"}));
  EXPECT_TRUE(tree->getTree()->isExpanded(GlobTreePanel::idOf(*panel))) << "open items stay open";
  panel->removeWidget(made);
  clock.advance(TimerTicks::kIntervalMs);
  pump();
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"StandardPanel, 300, 200", L"Swatch, 60, 40"}));
  EXPECT_FALSE(tree->refreshIfChanged()) << "nothing changed since";
}

TEST_F(GlobTreePanelTest, WindowsMadeAndClosedAreHeardFromTheWindowManager) {
  openTree();
  StandardPanel* other = openPanel(XY<int>(80, 50), XY<int>(600, 500));
  pump(); // no timer tick: the notifier's word alone
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"StandardPanel, 300, 200", L"StandardPanel, 80, 50"}));
  GlobManager::requestDeletion(other);
  pump();
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"StandardPanel, 300, 200"}));
}

TEST_F(GlobTreePanelTest, ADeadStampClearsTheDetails) {
  TestClock clock(1000.0);
  openTree();
  tree->getTree()->expand(GlobTreePanel::idOf(*panel));
  clickText(1);
  ASSERT_EQ(tree->getDetails()->getTarget(), swatch);
  WString const id = GlobTreePanel::idOf(*swatch);
  panel->removeWidget(swatch);
  EXPECT_TRUE(details().empty()) << "at once, before the tree hears of it";
  EXPECT_EQ(GlobTreePanel::widgetOf(id), nullptr);
  clock.advance(TimerTicks::kIntervalMs);
  pump();
  EXPECT_EQ(rows(), (std::vector<std::wstring>{L"StandardPanel, 300, 200"}));
  EXPECT_EQ(tree->getDetails()->getTarget(), nullptr);
}

TEST_F(GlobTreePanelTest, ItemIdsAreStampsAndOtherTextNamesNoWidget) {
  EXPECT_EQ(GlobTreePanel::widgetOf(GlobTreePanel::idOf(*swatch)), swatch);
  for (wchar_t const* bad : {L"", L"1.2", L"1.2.3.4", L"a.b.c", L"1..2", L"99999999999.1.1", L"1.2.3 "})
    EXPECT_EQ(GlobTreePanel::widgetOf(bad), nullptr) << std::wstring(bad).size();
}

TEST_F(GlobTreePanelTest, InspectorMenuChangesShowInTheTreesDetails) {
  TestClock clock(1000.0);
  GlobInspector* inspector = openInspectorAt(swatchCentreOnScreen(*swatch));
  chordAt(titlePoint(*inspector));
  dragHotSpotTo(*inspector, XY<int>(450, 330));
  openTree();
  tree->getTree()->expand(GlobTreePanel::idOf(*panel));
  clickText(0);
  ASSERT_EQ(tree->getDetails()->getTarget(), panel);
  int const gap = UifStd::getWidgetGap() + 1;
  EXPECT_EQ(details()[6], L"Margins : " + std::to_wstring(gap) + L", " + std::to_wstring(gap) + L", " +
                              std::to_wstring(gap) + L", " + std::to_wstring(gap));
  choose(*inspector->getInfoWidgets().at(1), L"Border", L"NoBorder");
  EXPECT_EQ(details()[6], L"Margins : 0, 0, 0, 0");
  choose(*inspector->getInfoWidgets().at(0), L"Visible", L"No");
  clock.advance(TimerTicks::kIntervalMs);
  pump();
  int const swatchRow = tree->getTree()->rowOf(GlobTreePanel::idOf(*swatch));
  ASSERT_GE(swatchRow, 0);
  clickText(swatchRow);
  EXPECT_EQ(details()[4], L"Visible : false");
}

} // namespace
