#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/Menu.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <string>

namespace {

// A menu of `rows` encoder names, far taller than the screen when long.
Menu encoders(int rows, int selected) {
  std::vector<MenuItem> items;
  for (int index = 0; index < rows; ++index)
    items.emplace_back(UIString(LightweightString<wchar_t>(L"encoder " + std::to_wstring(index))));
  return Menu(std::move(items), selected);
}

struct MenuScrollingTest : HeadlessScreenTest {
  std::vector<MenuData::Change> changes;

  // How the menu ended, leaving out the highlight's moves.
  std::vector<MenuData::Change> endings() const {
    std::vector<MenuData::Change> kept;
    for (MenuData::Change const& change : changes)
      if (change.kind != MenuData::Change::kHighlighted)
        kept.push_back(change);
    return kept;
  }
  MenuWindow* open(int rows, int selected) {
    return MenuWindow::open(encoders(rows, selected), XY<int>(300, 700),
                            [this](MenuData::Change const& change) { changes.push_back(change); });
  }
  static bool rowInView(MenuWindow const& window, int row) {
    Zo::Box<int> const box = window.rowBox(row);
    return box.y0 >= 0 && box.y1 <= window.height();
  }
  static XY<int> pointOnRow(MenuWindow const& window, int row) {
    Zo::Box<int> const box = window.rowBox(row);
    return HeadlessInput::pointOn(window, XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
  }
};

TEST_F(MenuScrollingTest, AMenuThatFitsHasNoScrollBar) {
  MenuWindow* window = open(10, 3);
  EXPECT_EQ(window->getScrollBar(), nullptr);
  EXPECT_EQ(window->height(), MenuWindow::calcSize(encoders(10, 3)).y);
  EXPECT_EQ(window->maxScrollOffset(), 0);
}

TEST_F(MenuScrollingTest, AMenuTallerThanTheScreenIsTheScreensHeightWithABarAndOpensOnItsChosenRow) {
  int const screenHeight = screen().screenSize().y;
  MenuWindow* window = open(200, 150);
  ASSERT_GT(MenuWindow::calcSize(encoders(200, 150)).y, screenHeight);
  EXPECT_EQ(window->height(), screenHeight);
  EXPECT_GE(window->screenPosition().y, 0);
  EXPECT_LE(window->screenPosition().y + window->height(), screenHeight);
  ASSERT_NE(window->getScrollBar(), nullptr);
  EXPECT_TRUE(window->getScrollBar()->isVertical());
  EXPECT_TRUE(rowInView(*window, 150));
  EXPECT_FALSE(rowInView(*window, 0));
  // The rows keep clear of the bar.
  EXPECT_LE(window->rowBox(150).x1, window->getScrollBar()->getX());
  Rgb const highlight = rgbOf(window->getPalette().selection());
  Zo::Box<int> const row = window->rowBox(150);
  // At the band's right end, past the row's text.
  XY<int> const inBand(row.x1 - UifStd::getIndentWidth() - 2, (row.y0 + row.y1) / 2);
  EXPECT_TRUE(near(rgbOf(widgetPixel(*window, inBand)), highlight, 8));
}

TEST_F(MenuScrollingTest, TheKeysBringTheHighlightIntoViewAtEitherEnd) {
  MenuWindow* window = open(200, 150);
  HeadlessInput::key(kKeyHome);
  EXPECT_EQ(window->getHighlighted(), 0);
  EXPECT_EQ(window->getScrollOffset(), 0);
  EXPECT_TRUE(rowInView(*window, 0));
  HeadlessInput::key(kKeyEnd);
  EXPECT_EQ(window->getHighlighted(), 199);
  EXPECT_EQ(window->getScrollOffset(), window->maxScrollOffset());
  EXPECT_TRUE(rowInView(*window, 199));
  EXPECT_DOUBLE_EQ(window->getScrollBar()->getThumbPosition(), 1.0);
}

TEST_F(MenuScrollingTest, TheWheelScrollsARowANotchAndAClickThenChoosesTheRowUnderThePointer) {
  MenuWindow* window = open(200, 150);
  int const before = window->getScrollOffset();
  XY<int> const middle = HeadlessInput::pointOn(*window, XY<int>(10, window->height() / 2));
  HeadlessInput::moveTo(middle);
  int const hovered = window->getHighlighted();
  HeadlessInput::wheel(middle, 3);
  EXPECT_EQ(window->getScrollOffset(), before - 3 * UifStd::getRowHeight());
  EXPECT_EQ(window->getHighlighted(), hovered - 3) << "the row now under the pointer";
  int const row = 140;
  ASSERT_TRUE(rowInView(*window, row));
  HeadlessInput::click(pointOnRow(*window, row));
  std::vector<MenuData::Change> const ended = endings();
  ASSERT_EQ(ended.size(), 1u);
  EXPECT_EQ(ended[0].kind, MenuData::Change::kChosen);
  EXPECT_EQ(ended[0].index, row);
}

TEST_F(MenuScrollingTest, ThePressOnTheBarsTrackScrollsAPageAndKeepsTheMenuOpen) {
  MenuWindow* window = open(200, 0);
  EXPECT_EQ(window->getScrollOffset(), 0);
  ScrollBar* bar = window->getScrollBar();
  ASSERT_NE(bar, nullptr);
  // Near the bottom end of the track, below the thumb (the track is
  // measured from the bar's top).
  int const nearTrackEnd = bar->height() - (bar->trackStart() + bar->trackLength()) + 4;
  HeadlessInput::click(HeadlessInput::pointOn(*bar, XY<int>(bar->width() / 2, nearTrackEnd)));
  EXPECT_GT(window->getScrollOffset(), 0);
  EXPECT_TRUE(endings().empty());
  EXPECT_FALSE(window->isClosing());
}

} // namespace
