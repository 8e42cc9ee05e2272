#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/ScrollListGridViewBase.h>

#include <string>
#include <vector>

namespace {

using Item = ScrollListGridViewBase::ItemWidgetBase;

// A grid of square cells, filled the way pickers fill theirs.
class SquareGrid : public ScrollListGridViewBase {
public:
  using ScrollListGridViewBase::ScrollListGridViewBase;
  int cell = UifStd::getRowHeight() * 2;

  void addGroup(int count, UIString const& title) {
    if (!title.getString().empty())
      addSeparator(title);
    int const perRow = itemsPerRow(cell);
    Glob* row = nullptr;
    Glob* previous = nullptr;
    for (int i = 0; i < count; ++i) {
      if (i % perRow == 0) {
        row = addRow();
        previous = nullptr;
      }
      auto* item = new Item(Item::InitArgs(XY<int>(cell, cell)));
      row->addChild(item, previous ? Glob::RightOf(0, previous) : Glob::TopLeft(0, 0));
      addItemWidget(item);
      previous = item;
    }
  }
  void clear() {
    unmanageAllWidgets(true);
    forgetGridContents();
  }
};

// Reads the grid's choice on its click message, and clears it, as a picker
// does.
class Picker : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  SquareGrid* grid = nullptr;
  std::vector<int> picked;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
    if (message == ScrollListGridViewBase::kItemClickMsg && sender == grid) {
      picked.push_back(grid->getSelectedItem());
      grid->clearSelection();
    }
    return 1;
  }
};

struct GridTest : HeadlessScreenTest {
  Picker* picker = nullptr;
  SquareGrid* grid = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    StandardPanel::InitArgs args(XY<int>(400, 300));
    args.screenPosition = XY<int>(50, 50);
    picker = new Picker(args);
    GlobManager::realize(picker);
    grid = picker->createWidget<SquareGrid>(SquareGrid::InitArgs(XY<int>(360, 260)), Glob::UserTopLeft(0, 0));
    picker->grid = grid;
    perRow = grid->itemsPerRow(grid->cell);
  }
  int perRow = 0;
};

TEST_F(GridTest, GroupsMakeSeparatorsRowsAndNumberedItems) {
  grid->addGroup(perRow + 2, L"Faces");
  grid->addGroup(3, L"Animals");
  EXPECT_GE(perRow, 2);
  EXPECT_EQ(grid->getSeparatorCount(), 2);
  EXPECT_EQ(grid->getRowCount(), 3);
  EXPECT_EQ(grid->getItemCount(), perRow + 5);
  EXPECT_EQ(grid->getItem(perRow + 4)->getItemIndex(), perRow + 4);
  Glob* secondRow = grid->getItem(perRow)->parent();
  EXPECT_EQ(secondRow->height(), grid->cell) << "a row is as tall as its items";
  EXPECT_EQ(grid->getItem(1)->getX(), grid->cell) << "items sit side by side";
  EXPECT_GT(grid->getWidgetsHeight(), 3 * grid->cell);
}

TEST_F(GridTest, AClickSelectsTheItemAndTellsTheParentWhichIsPicked) {
  grid->addGroup(10, L"");
  HeadlessInput::clickOn(*grid->getItem(3));
  EXPECT_EQ(picker->picked, std::vector<int>({3}));
  EXPECT_EQ(grid->getSelectedItem(), -1) << "the parent cleared it";
  HeadlessInput::clickOn(*grid->getItem(3));
  EXPECT_EQ(picker->picked, std::vector<int>({3, 3})) << "a second click on the same item works";
  EXPECT_TRUE(grid->hasKbdFocus());
}

TEST_F(GridTest, ArrowKeysMoveAcrossAndBetweenRows) {
  grid->addGroup(2 * perRow + 1, L"All");
  grid->claimKbdFocus();
  HeadlessInput::key(kKeyRight);
  EXPECT_EQ(grid->getSelectedItem(), 0) << "the first key picks the first item";
  HeadlessInput::key(kKeyRight);
  EXPECT_EQ(grid->getSelectedItem(), 1);
  EXPECT_TRUE(grid->getItem(1)->isSelected());
  HeadlessInput::key(kKeyDown);
  EXPECT_EQ(grid->getSelectedItem(), perRow + 1) << "straight down";
  HeadlessInput::key(kKeyDown);
  EXPECT_EQ(grid->getSelectedItem(), 2 * perRow) << "the nearest item of a short row";
  HeadlessInput::key(kKeyUp);
  EXPECT_EQ(grid->getSelectedItem(), perRow);
  HeadlessInput::key(kKeyLeft);
  EXPECT_EQ(grid->getSelectedItem(), perRow - 1) << "left from a row's start goes to the row above's end";
  HeadlessInput::key(kKeyEnd);
  EXPECT_EQ(grid->getSelectedItem(), 2 * perRow);
  HeadlessInput::key(kKeyHome);
  EXPECT_EQ(grid->getSelectedItem(), 0);
  EXPECT_TRUE(picker->picked.empty()) << "moving is not picking";
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(picker->picked, std::vector<int>({0}));
}

TEST_F(GridTest, TheSelectionScrollsIntoSight) {
  grid->addGroup(perRow * 20, L"Many");
  grid->claimKbdFocus();
  HeadlessInput::key(kKeyEnd);
  EXPECT_GT(grid->getScrollOffset(), 0);
  Glob* lastRow = grid->getItem(grid->getItemCount() - 1)->parent();
  EXPECT_GE(lastRow->getY(), 0);
  EXPECT_LE(lastRow->getY() + lastRow->height(), grid->getView()->height());
}

TEST_F(GridTest, TheItemUnderThePointerIsHighlighted) {
  grid->addGroup(4, L"");
  Item* item = grid->getItem(2);
  Colour const plain = item->getPalette().window();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*item, XY<int>(2, 2))), rgbOf(plain), 2));
  HeadlessInput::moveTo(HeadlessInput::pointOn(*item));
  EXPECT_TRUE(item->isMouseInside());
  EXPECT_TRUE(near(rgbOf(widgetPixel(*item, XY<int>(2, 2))), rgbOf(item->getPalette().window(2)), 2));
  HeadlessInput::moveTo(HeadlessInput::pointOn(*grid->getItem(0)));
  EXPECT_FALSE(item->isMouseInside());
}

TEST_F(GridTest, WithTheKeyboardTheItemTheKeysActOnWearsTheFocusRing) {
  grid->addGroup(6, L"");
  HeadlessInput::moveTo(XY<int>(0, 0));
  Item* first = grid->getItem(0);
  // The right side: inside the grid, away from anything the grid draws
  // round its own edge.
  XY<int> const edge(first->width() - 2, first->height() / 2);
  Colour const plain = first->getPalette().window();
  pump();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*first, edge)), rgbOf(plain), 2)) << "no ring without the keyboard";
  ASSERT_TRUE(grid->claimKbdFocus());
  pump();
  EXPECT_EQ(grid->keyboardItem(), 0) << "nothing selected: the keys start at the first";
  EXPECT_FALSE(near(rgbOf(widgetPixel(*first, edge)), rgbOf(plain), 2)) << "the first item is ringed";
  HeadlessInput::key(kKeyRight);
  HeadlessInput::key(kKeyRight);
  pump();
  Item* second = grid->getItem(1);
  EXPECT_EQ(grid->getSelectedItem(), 1);
  EXPECT_NE(rgbOf(widgetPixel(*second, edge)), rgbOf(second->getPalette().selection()))
      << "the ring shows on the selection";
  EXPECT_TRUE(near(rgbOf(widgetPixel(*first, edge)), rgbOf(plain), 2)) << "and leaves the first";
  grid->relinquishKbdFocus();
  pump();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*second, edge)), rgbOf(second->getPalette().selection()), 2))
      << "the keyboard gone, the ring goes";
}

TEST_F(GridTest, AfterAPickClearsTheSelectionTheKeysGoOnFromTheItemPicked) {
  grid->addGroup(8, L"");
  ASSERT_TRUE(grid->claimKbdFocus());
  HeadlessInput::key(kKeyRight);
  HeadlessInput::key(kKeyRight);
  HeadlessInput::key(kKeyRight);
  HeadlessInput::key(kKeyReturn);
  ASSERT_EQ(picker->picked, std::vector<int>{2});
  EXPECT_EQ(grid->getSelectedItem(), -1) << "the picker cleared it";
  EXPECT_EQ(grid->keyboardItem(), 2) << "the ring stays on the item picked";
  HeadlessInput::key(kKeyRight);
  EXPECT_EQ(grid->getSelectedItem(), 3) << "the first arrow moves on from it";
  grid->clearSelection();
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(picker->picked, (std::vector<int>{2, 3})) << "Return picks the item the ring is on";
}

TEST_F(GridTest, ClearingEmptiesTheGridForRefilling) {
  grid->addGroup(8, L"First");
  grid->setSelectedItem(2);
  grid->clear();
  EXPECT_EQ(grid->getItemCount(), 0);
  EXPECT_EQ(grid->getRowCount(), 0);
  EXPECT_EQ(grid->getSeparatorCount(), 0);
  EXPECT_EQ(grid->getSelectedItem(), -1);
  EXPECT_TRUE(grid->getView()->getChildren().empty());
  grid->addGroup(3, L"");
  HeadlessInput::clickOn(*grid->getItem(2));
  EXPECT_EQ(picker->picked, std::vector<int>({2}));
}

} // namespace
