#include "support/MessageLog.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/ScrollList.h>
#include <zowidgets/host/widgets/lists/ScrollListItemWidget.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <string>
#include <vector>

namespace {

using HeadlessInput::click;
using HeadlessInput::key;
using HeadlessInput::pointOn;

std::vector<LightweightString<wchar_t>> numberedLines(int count) {
  std::vector<LightweightString<wchar_t>> lines;
  lines.reserve(count);
  for (int i = 0; i < count; ++i)
    lines.emplace_back((L"Clip " + std::to_wstring(i)).c_str());
  return lines;
}

struct ScrollListTest : HeadlessScreenTest {
  int const line = UifStd::getRowHeight();
  MessageLog* panel = nullptr;
  ScrollList* list = nullptr;
  std::vector<ScrollListEvent> events;

  ScrollList* openList(int lines, int mode = ScrollList::kSingleSelection, int linesShown = 6) {
    StandardPanel* window = openPanel(XY<int>(300, linesShown * line + 40));
    panel = static_cast<MessageLog*>(
        window->addChild(new MessageLog(XY<int>(260, linesShown * line)), Glob::UserTopLeft(0, 0)));
    ScrollList::InitArgs listArgs(XY<int>(240, linesShown * line));
    listArgs.strings = numberedLines(lines);
    listArgs.selectionMode = mode;
    list = panel->createChild<ScrollList>(listArgs, Glob::TopLeft(0, 0));
    list->addListener(ScrollList::makeCallback([this](ScrollListEvent const& event) { events.push_back(event); }));
    return list;
  }
  void clickRow(int index, int modifiers = 0) {
    ScrollListItemWidget* row = list->getRowWidget(index);
    ASSERT_NE(row, nullptr) << "row " << index << " is not in sight";
    click(pointOn(*row), kMouseLeft, modifiers);
  }
  std::vector<int> selected() const { return list->getSelectedIndices(); }
};

TEST_F(ScrollListTest, EnteredWithNothingCurrentTheFirstItemWearsTheRingAndDownSelectsIt) {
  openList(20);
  ASSERT_EQ(list->getRowWidget(0)->isCurrent(), false);
  ASSERT_TRUE(set_kbd_focus(list));
  pump();
  EXPECT_TRUE(list->getRowWidget(0)->isCurrent()) << "the list shows that it has the keys";
  EXPECT_TRUE(selected().empty()) << "nothing is chosen by entering";
  key(kKeyDown);
  pump();
  EXPECT_EQ(selected(), std::vector<int>{0}) << "Down takes the ringed item";
  EXPECT_TRUE(list->getRowWidget(0)->isCurrent());
  key(kKeyDown);
  pump();
  EXPECT_FALSE(list->getRowWidget(0)->isCurrent());
  EXPECT_TRUE(list->getRowWidget(1)->isCurrent());
  set_kbd_focus(nullptr);
  pump();
  EXPECT_FALSE(list->getRowWidget(1)->isCurrent()) << "without the keys no ring";
}

TEST_F(ScrollListTest, RowsAreMadeOnlyForTheLinesInSight) {
  openList(1'000'000);
  int const bound = list->linesPerPage() + 1;
  EXPECT_LE(list->liveRowCount(), bound);
  EXPECT_GE(list->liveRowCount(), list->linesPerPage());
  EXPECT_EQ(list->getRowWidget(0)->getLabel(), LightweightString<wchar_t>(L"Clip 0"));
  list->claimKbdFocus();
  key(kKeyEnd);
  EXPECT_EQ(list->getCurrentIndex(), 999'999);
  EXPECT_LE(list->liveRowCount(), bound);
  ASSERT_NE(list->getRowWidget(999'999), nullptr);
  EXPECT_EQ(list->getRowWidget(999'999)->getLabel(), LightweightString<wchar_t>(L"Clip 999999"));
  EXPECT_EQ(list->getRowWidget(0), nullptr) << "the first row left with its line";
  for (int step = 0; step < 50; ++step)
    HeadlessInput::wheel(pointOn(*list), 1);
  EXPECT_LE(list->liveRowCount(), bound);
  EXPECT_EQ(list->getView()->getChildren().size(), static_cast<size_t>(list->liveRowCount()));
}

TEST_F(ScrollListTest, AClickSelectsOneRowAndReportsIt) {
  openList(20);
  clickRow(3);
  EXPECT_EQ(list->getSelectedIndex(), 3);
  EXPECT_EQ(selected(), std::vector<int>({3}));
  EXPECT_EQ(list->getCurrentIndex(), 3);
  EXPECT_TRUE(list->getRowWidget(3)->isSelected());
  EXPECT_TRUE(list->hasKbdFocus());
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].kind, ScrollListEvent::kSelectionChanged);
  EXPECT_EQ(events[0].index, 3);
  EXPECT_EQ(panel->messages, std::vector<std::string>({ScrollList::kSelectionChangedMsg}));
  clickRow(1);
  EXPECT_EQ(selected(), std::vector<int>({1}));
  EXPECT_FALSE(list->getRowWidget(3)->isSelected());
}

TEST_F(ScrollListTest, ShiftClickSelectsTheRangeFromTheAnchor) {
  openList(20, ScrollList::kMultipleSelection);
  clickRow(2);
  clickRow(5, kKeyShift);
  EXPECT_EQ(selected(), std::vector<int>({2, 3, 4, 5}));
  clickRow(0, kKeyShift);
  EXPECT_EQ(selected(), std::vector<int>({0, 1, 2})) << "the anchor stays at the plain click";
  EXPECT_EQ(list->getCurrentIndex(), 0);
}

TEST_F(ScrollListTest, CtrlClickTogglesRowsOneByOne) {
  openList(20, ScrollList::kMultipleSelection);
  clickRow(1);
  clickRow(4, kKeyCtrl);
  clickRow(3, kKeyCtrl);
  EXPECT_EQ(selected(), std::vector<int>({1, 3, 4}));
  clickRow(4, kKeyCtrl);
  EXPECT_EQ(selected(), std::vector<int>({1, 3}));
  EXPECT_EQ(list->getSelectionCount(), 2);
  clickRow(5, kKeyShift);
  EXPECT_EQ(selected(), std::vector<int>({4, 5})) << "Shift ranges from the last toggled row";
}

TEST_F(ScrollListTest, SingleSelectionTreatsModifiedClicksAsPlainOnes) {
  openList(20);
  clickRow(1);
  clickRow(4, kKeyShift);
  EXPECT_EQ(selected(), std::vector<int>({4}));
  clickRow(2, kKeyCtrl);
  EXPECT_EQ(selected(), std::vector<int>({2}));
}

TEST_F(ScrollListTest, ArrowKeysMoveTheSelectionAndShiftExtendsIt) {
  openList(20, ScrollList::kMultipleSelection);
  clickRow(2);
  key(kKeyDown);
  EXPECT_EQ(selected(), std::vector<int>({3}));
  key(kKeyDown, kKeyShift);
  key(kKeyDown, kKeyShift);
  EXPECT_EQ(selected(), std::vector<int>({3, 4, 5}));
  key(kKeyUp, kKeyShift);
  EXPECT_EQ(selected(), std::vector<int>({3, 4}));
  key(kKeyUp);
  EXPECT_EQ(selected(), std::vector<int>({3}));
  key(kKeyUp);
  key(kKeyUp);
  key(kKeyUp);
  key(kKeyUp);
  EXPECT_EQ(selected(), std::vector<int>({0})) << "stops at the first line";
}

TEST_F(ScrollListTest, PageKeysHomeAndEndMoveAndScrollToShow) {
  openList(100);
  clickRow(0);
  int const page = list->linesPerPage();
  key(kKeyPageDown);
  EXPECT_EQ(list->getSelectedIndex(), page - 1);
  key(kKeyPageDown);
  EXPECT_EQ(list->getSelectedIndex(), 2 * (page - 1));
  EXPECT_GE(list->getLastVisibleIndex(), 2 * (page - 1));
  EXPECT_NE(list->getRowWidget(2 * (page - 1)), nullptr);
  key(kKeyEnd);
  EXPECT_EQ(list->getSelectedIndex(), 99);
  EXPECT_EQ(list->getLastVisibleIndex(), 99);
  EXPECT_NEAR(list->getScrollBar()->getThumbPosition(), 1.0, 1e-9);
  key(kKeyPageUp);
  EXPECT_EQ(list->getSelectedIndex(), 99 - (page - 1));
  key(kKeyHome);
  EXPECT_EQ(list->getSelectedIndex(), 0);
  EXPECT_EQ(list->getScrollOffset(), 0);
}

TEST_F(ScrollListTest, CtrlMovesTheCursorAloneAndCtrlSpaceToggles) {
  openList(20, ScrollList::kMultipleSelection);
  clickRow(1);
  key(kKeyDown, kKeyCtrl);
  key(kKeyDown, kKeyCtrl);
  EXPECT_EQ(list->getCurrentIndex(), 3);
  EXPECT_EQ(selected(), std::vector<int>({1}));
  EXPECT_TRUE(list->getRowWidget(3)->isCurrent());
  key(' ', kKeyCtrl);
  EXPECT_EQ(selected(), std::vector<int>({1, 3}));
  key(' ', kKeyCtrl);
  EXPECT_EQ(selected(), std::vector<int>({1}));
  key('a', kKeyCtrl);
  EXPECT_EQ(list->getSelectionCount(), 20);
}

TEST_F(ScrollListTest, DoubleClickAndReturnActivateARow) {
  openList(20);
  HeadlessInput::doubleClick(pointOn(*list->getRowWidget(4)));
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.back().kind, ScrollListEvent::kItemActivated);
  EXPECT_EQ(events.back().index, 4);
  events.clear();
  key(kKeyDown);
  key(kKeyReturn);
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[1].kind, ScrollListEvent::kItemActivated);
  EXPECT_EQ(events[1].index, 5);
  EXPECT_EQ(panel->messages.back(), ScrollList::kItemActivatedMsg);
}

TEST_F(ScrollListTest, TheWheelAndTheBarScrollAndRowsFollow) {
  openList(100);
  HeadlessInput::wheel(pointOn(*list), -1);
  EXPECT_EQ(list->getScrollOffset(), 3 * line);
  EXPECT_EQ(list->getFirstVisibleIndex(), 3);
  ScrollListItemWidget* row = list->getRowWidget(3);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->getY() + row->height(), list->getView()->height()) << "the first line in sight is at the top";
  ScrollBar* bar = list->getScrollBar();
  EXPECT_TRUE(bar->isVisible());
  click(pointOn(*bar, XY<int>(bar->width() / 2, bar->height() - bar->trackStart() - 1)), kMouseLeft);
  EXPECT_NE(list->getScrollOffset(), 3 * line) << "a press on the track moves the view";
}

TEST_F(ScrollListTest, AScrollByAPageIsOnePaint) {
  openList(100);
  ASSERT_NE(list->getRowWidget(0), nullptr);
  Canvas::paintAllPending();
  int const before = list->canvas()->paintCount();
  list->setScrollOffset(list->linesPerPage() * line);
  EXPECT_EQ(list->canvas()->paintCount(), before + 1) << "rows leaving and arriving paint together";
  EXPECT_EQ(list->getFirstVisibleIndex(), list->linesPerPage());
}

TEST_F(ScrollListTest, AShortListHasNoScrollBarAndRowsTakeTheWidth) {
  openList(3);
  EXPECT_FALSE(list->getScrollBar()->isVisible());
  EXPECT_EQ(list->getRowWidget(0)->width(), list->getUserArea().width());
  EXPECT_EQ(list->liveRowCount(), 3);
  click(pointOn(*list, XY<int>(10, 5))); // below the last line
  EXPECT_EQ(list->getSelectedIndex(), -1);
  EXPECT_TRUE(list->hasKbdFocus());
}

TEST_F(ScrollListTest, ANewLineHeightKeepsTheSelectionAndRemakesTheRows) {
  openList(50);
  clickRow(2);
  list->setLineHeight(static_cast<unsigned short>(line * 2));
  ScrollListItemWidget* after = list->getRowWidget(2);
  ASSERT_NE(after, nullptr);
  EXPECT_EQ(after->height(), line * 2);
  EXPECT_TRUE(after->isSelected());
  EXPECT_EQ(list->getSelectedIndex(), 2);
  EXPECT_LE(list->liveRowCount(), list->linesPerPage() + 1);
}

TEST_F(ScrollListTest, GoingToSingleSelectionKeepsOnlyTheCurrentRow) {
  openList(20, ScrollList::kMultipleSelection);
  clickRow(1);
  clickRow(4, kKeyShift);
  ASSERT_EQ(list->getSelectionCount(), 4);
  list->setSelectionMode(ScrollList::kSingleSelection);
  EXPECT_EQ(selected(), std::vector<int>({4}));
  EXPECT_FALSE(list->getRowWidget(1)->isSelected());
}

TEST_F(ScrollListTest, ResizingKeepsTheRowsInSightAndWidensThem) {
  openList(50);
  ScrollListItemWidget* row = list->getRowWidget(1);
  row->setName("kept");
  list->resize(list->width() + 40, list->height());
  ASSERT_EQ(list->getRowWidget(1), row);
  EXPECT_EQ(row->getName(), LightweightString<char>("kept")) << "the same widget, not a new one";
  EXPECT_EQ(row->width(), list->getView()->width());
  list->resize(list->width(), list->height() + 3 * line);
  EXPECT_LE(list->liveRowCount(), list->linesPerPage() + 1);
  EXPECT_NE(list->getRowWidget(list->getLastVisibleIndex()), nullptr);
}

TEST_F(ScrollListTest, NewStringsDropTheSelectionAndReturnToTheTop) {
  openList(50);
  clickRow(2);
  key(kKeyEnd);
  list->setStrings(numberedLines(10));
  EXPECT_EQ(list->getSelectedIndex(), -1);
  EXPECT_EQ(list->getScrollOffset(), 0);
  EXPECT_EQ(list->size(), 10);
  EXPECT_EQ(list->getRowWidget(0)->getLabel(), LightweightString<wchar_t>(L"Clip 0"));
}

TEST_F(ScrollListTest, TheVisibleBoxCutsRowsAtTheEdges) {
  openList(50);
  list->setScrollOffset(line / 2);
  Zo::Box<int> const visible = list->getVisibleBox();
  EXPECT_EQ(visible, list->getView()->canvasBox());
  ScrollListItemWidget* top = list->getRowWidget(0);
  ASSERT_NE(top, nullptr);
  Zo::Box<int> const rowBox = top->canvasBox();
  EXPECT_GT(rowBox.y1, visible.y1) << "half of the first row is above the view";
  EXPECT_LT(rowBox.y0, visible.y1);
}

TEST_F(ScrollListTest, RowsComeFromTheVirtualFactory) {
  struct Numbered : ScrollList {
    using ScrollList::ScrollList;
    int made = 0;

  protected:
    ScrollListItemWidget* makeWidget(unsigned short index, LightweightString<wchar_t> const& text,
                                     Palette const& palette, unsigned short width, unsigned short height) override {
      ++made;
      auto* row = ScrollList::makeWidget(index, text, palette, width, height);
      row->setName("made");
      return row;
    }
  };
  StandardPanel* host = openPanel(XY<int>(300, 200));
  ScrollList::InitArgs args(XY<int>(200, 5 * line));
  args.strings = numberedLines(30);
  auto* numbered = host->createWidget<Numbered>(args, Glob::UserTopLeft(0, 0));
  ASSERT_NE(numbered->getRowWidget(4), nullptr);
  EXPECT_EQ(numbered->made, 5) << "rows made with the subclass's factory, once the list was asked";
  EXPECT_EQ(numbered->getRowWidget(4)->getName(), LightweightString<char>("made"));
  numbered->scrollToShow(6);
  EXPECT_EQ(numbered->made, 7) << "two lines came into sight";
}

TEST_F(ScrollListTest, AListShownWithoutBeingAskedMakesItsRowsWhenPainted) {
  openList(10);
  Canvas::paintAllPending();
  EXPECT_EQ(list->getView()->getChildren().size(), 6u);
}

TEST_F(ScrollListTest, ASelectedRowIsDrawnInTheSelectionColour) {
  openList(10);
  clickRow(1);
  Palette const& palette = list->getPalette();
  ScrollListItemWidget* row = list->getRowWidget(1);
  EXPECT_TRUE(
      near(rgbOf(widgetPixel(*row, XY<int>(row->width() - 3, row->height() / 2))), rgbOf(palette.selection()), 2));
  ScrollListItemWidget* plain = list->getRowWidget(2);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*plain, XY<int>(plain->width() - 3, plain->height() / 2))),
                   rgbOf(ScrollListItemWidget::lookFor(palette).background), 2));
}

} // namespace
