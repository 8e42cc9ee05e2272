#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/ScrollListItemWidget.h>
#include <zowidgets/host/widgets/lists/TreeView.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace {

using HeadlessInput::key;

// The wheel turned `steps` notches (away from the user) with Shift held, as a
// person gives it: the pointer moves there first.
void shiftWheel(XY<int> point, int steps) {
  HeadlessInput::moveTo(point);
  InputRouter::mouseWheel(point, steps, kKeyShift);
}

constexpr wchar_t kLongName[] = L"Interview with the harbour master at dawn, wide shot";

// Reels whose interviews have long names, and takes under each interview.
class InterviewsAdaptor : public iTreeViewAdaptor {
public:
  std::map<std::wstring, std::vector<std::wstring>> children{
      {L"", {L"Reel 1", L"Reel 2"}},
      {L"Reel 1", {kLongName, L"Cutaway"}},
      {kLongName, {L"Take 1", L"Take 2"}},
  };
  std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const override {
    std::vector<Item> items;
    auto found = children.find(parentId.str());
    if (found == children.end())
      return items;
    for (std::wstring const& name : found->second) {
      Item item;
      item.id = LightweightString<wchar_t>(name.c_str());
      item.text = UIString(item.id);
      items.push_back(item);
    }
    return items;
  }
  bool hasChildItems(LightweightString<wchar_t> const& id) const override { return children.count(id.str()) > 0; }
};

struct TreeSidewaysTest : HeadlessScreenTest {
  InterviewsAdaptor interviews;
  TreeView* tree = nullptr;

  void openTree(int width = 200) {
    int const height = 6 * UifStd::getRowHeight();
    StandardPanel* panel = openPanel(XY<int>(width + 40, height + 40));
    TreeView::InitArgs args(XY<int>(width, height));
    args.adaptor = &interviews;
    args.setBorder(Border());
    tree = panel->createWidget<TreeView>(args, Glob::UserTopLeft(0, 0));
  }
  HorizontalScroller const& sideways() const { return tree->sideways(); }
  ScrollBar& bar() const { return *sideways().getBar(); }
  int viewWidth() const { return tree->getVisibleBox().width(); }
  // The long row's arrow, text and margins side by side.
  static int longRowWidth() {
    int const indent = ScrollListItemWidget::lookFor(UifStd::getColourScheme()).textIndent;
    double const text = Glib::TextDescription::calcBounds(kLongName, UifStd::getFont()).width();
    return static_cast<int>(std::ceil(indent / 2.0 + 3 * TreeView::indentStep() + text + indent / 2.0));
  }
};

TEST_F(TreeSidewaysTest, RowsThatFitShowNoSidewaysBar) {
  openTree();
  EXPECT_FALSE(sideways().isBarShown());
  EXPECT_FALSE(bar().isVisible());
  EXPECT_EQ(tree->getVisibleBox().height(), 6 * UifStd::getRowHeight());
}

TEST_F(TreeSidewaysTest, OpeningARowWiderThanTheViewBringsTheBarUnderTheRows) {
  openTree();
  tree->expand(L"Reel 1");
  ASSERT_TRUE(sideways().isBarShown());
  EXPECT_TRUE(bar().isVisible());
  EXPECT_EQ(sideways().contentWidth(), longRowWidth() - TreeView::indentStep())
      << "a depth-one row: its indent, arrow and text";
  EXPECT_EQ(tree->getVisibleBox().height(), 6 * UifStd::getRowHeight() - ScrollBar::thickness());
  Zo::Box<int> const view = tree->getVisibleBox();
  EXPECT_EQ(bar().canvasBox().y1, view.y0);
  EXPECT_EQ(bar().canvasBox().width(), view.width());
}

TEST_F(TreeSidewaysTest, TheWidestRowSeenKeepsTheRangeUntilTheTreeIsRefreshed) {
  openTree();
  tree->expand(L"Reel 1");
  int const range = sideways().contentWidth();
  tree->collapse(L"Reel 1");
  EXPECT_TRUE(sideways().isBarShown()) << "the bar does not come and go as rows do";
  EXPECT_EQ(sideways().contentWidth(), range);
  tree->refresh(0);
  EXPECT_FALSE(sideways().isBarShown());
}

TEST_F(TreeSidewaysTest, ShiftAndTheWheelScrollTheRowsSideways) {
  openTree();
  tree->expand(L"Reel 1");
  shiftWheel(HeadlessInput::pointOn(*tree->getRowGlob(1)), -1);
  int const expected = std::min(3 * HorizontalScroller::stepWidth(), sideways().contentWidth() - viewWidth());
  EXPECT_EQ(sideways().offset(), expected);
  EXPECT_EQ(tree->getScrollOffset(), 0);
  shiftWheel(HeadlessInput::pointOn(*tree->getRowGlob(1)), 5);
  EXPECT_EQ(sideways().offset(), 0);
}

TEST_F(TreeSidewaysTest, DraggingTheThumbShowsTheEndOfTheLongestRow) {
  openTree();
  tree->expand(L"Reel 1");
  int const y = bar().height() / 2;
  HeadlessInput::drag(HeadlessInput::pointOn(bar(), XY<int>(bar().thumbStart() + bar().thumbLength() / 2, y)),
                      HeadlessInput::pointOn(bar(), XY<int>(bar().width() - 1, y)));
  EXPECT_EQ(sideways().offset(), sideways().contentWidth() - viewWidth());
}

TEST_F(TreeSidewaysTest, ArrowsAreFoundWhereTheScrollHasMovedThem) {
  openTree();
  tree->expand(L"Reel 1");
  int const step = TreeView::indentStep();
  tree->setSidewaysOffset(step);
  // Where a top-level arrow would be unscrolled now lies the second
  // level's.
  int const indent = ScrollListItemWidget::lookFor(tree->getPalette()).textIndent;
  Glob const& row = *tree->getRowGlob(1);
  HeadlessInput::clickOn(row, XY<int>(indent / 2 + step / 2, row.height() / 2));
  EXPECT_TRUE(tree->isExpanded(kLongName));
  EXPECT_EQ(tree->getSelectedIndex(), -1) << "a click on an arrow selects nothing";
}

TEST_F(TreeSidewaysTest, TheKeyboardBringsTheSelectedRowsStartIntoSight) {
  openTree();
  tree->expand(L"Reel 1");
  tree->claimKbdFocus();
  key(kKeyDown);
  tree->setSidewaysOffset(sideways().contentWidth());
  ASSERT_GT(sideways().offset(), 0);
  key(kKeyUp);
  EXPECT_EQ(tree->getSelectedIndex(), 0);
  EXPECT_EQ(sideways().offset(), 0) << "a top-level row starts at the left edge";
}

} // namespace
