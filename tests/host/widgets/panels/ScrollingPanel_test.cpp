#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/panels/VerticalScrollingBase.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

#include <string>
#include <vector>

namespace {

struct VerticalScrollingBaseTest : HeadlessScreenTest {
  int const row = UifStd::getRowHeight();
  int const rowGap = UifStd::getRowGap();
  VerticalScrollingBase* panel = nullptr;
  std::vector<TextLabel*> rows;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    StandardPanel::InitArgs args(XY<int>(240, 5 * row + 4 * rowGap + 2 * StandardPanel::getDefaultBorder().top()));
    args.screenPosition = XY<int>(100, 100);
    panel = new VerticalScrollingBase(args);
    GlobManager::realize(panel);
    for (int i = 0; i < 20; ++i) {
      TextLabel::InitArgs label(XY<int>(panel->getView()->width(), row));
      label.text = LightweightString<wchar_t>((L"Row " + std::to_wstring(i)).c_str());
      rows.push_back(panel->createManagedWidget<TextLabel>(label));
    }
    panel->recalcWidgetsHeight();
    panel->resetView();
  }

  // The rows replaced by twelve buttons, "Page 0" to "Page 11", the one of
  // each index in `hidden` hidden.
  std::vector<PushButton*> pageButtons(std::vector<int> const& hidden) {
    panel->unmanageAllWidgets(true);
    std::vector<PushButton*> buttons;
    for (int i = 0; i < 12; ++i)
      buttons.push_back(panel->createManagedWidget<PushButton>(
          PushButton::InitArgs(LightweightString<wchar_t>((L"Page " + std::to_wstring(i)).c_str()),
                               XY<int>(panel->getView()->width(), row))));
    for (int index : hidden)
      buttons[static_cast<std::size_t>(index)]->setVisible(false);
    panel->recalcWidgetsHeight();
    panel->resetView();
    return buttons;
  }

  // A row's top, measured down from the top of the view.
  int topInView(Glob const* widget) const { return panel->getView()->height() - (widget->getY() + widget->height()); }
  bool fullyShown(Glob const* widget) const {
    return topInView(widget) >= 0 && topInView(widget) + widget->height() <= panel->getView()->height();
  }
};

TEST_F(VerticalScrollingBaseTest, StacksManagedRowsFromTheTop) {
  EXPECT_EQ(panel->getWidgetsHeight(), 20 * row + 19 * rowGap);
  EXPECT_EQ(topInView(rows[0]), 0);
  EXPECT_EQ(topInView(rows[1]), row + rowGap);
  EXPECT_EQ(panel->getView()->width() + UifStd::getWidgetGap() + ScrollBar::thickness(), panel->getUserArea().width());
  EXPECT_NEAR(panel->getScrollBar()->getThumbSize(),
              static_cast<double>(panel->getView()->height()) / panel->getWidgetsHeight(), 1e-9);
}

TEST_F(VerticalScrollingBaseTest, RevealWidgetScrollsJustEnough) {
  panel->revealWidget(rows[12]);
  EXPECT_TRUE(fullyShown(rows[12]));
  EXPECT_EQ(topInView(rows[12]) + row, panel->getView()->height()) << "at the bottom edge";
  int const offset = panel->getScrollOffset();
  panel->revealWidget(rows[11]);
  EXPECT_EQ(panel->getScrollOffset(), offset) << "already shown";
  panel->revealWidget(rows[2]);
  EXPECT_EQ(topInView(rows[2]), 0) << "at the top edge";
  panel->resetView();
  EXPECT_EQ(panel->getScrollOffset(), 0);
  EXPECT_EQ(topInView(rows[0]), 0);
}

TEST_F(VerticalScrollingBaseTest, TheWheelScrollsARowPerNotchWithinTheRows) {
  HeadlessInput::wheel(HeadlessInput::pointOn(*rows[0]), -2);
  EXPECT_EQ(panel->getScrollOffset(), 2 * (row + rowGap)) << "a row and its gap: rows come and go whole";
  EXPECT_EQ(topInView(rows[2]), 0);
  HeadlessInput::wheel(HeadlessInput::pointOn(*panel->getView()), 10);
  EXPECT_EQ(panel->getScrollOffset(), 0);
  HeadlessInput::wheel(HeadlessInput::pointOn(*panel->getView()), -1000);
  EXPECT_EQ(panel->getScrollOffset(), panel->getWidgetsHeight() - panel->getView()->height());
  EXPECT_EQ(panel->getScrollBar()->getThumbPosition(), 1.0);
}

TEST_F(VerticalScrollingBaseTest, TheRowTheWheelBringsUnderTheStillPointerIsTheOneHovered) {
  XY<int> const pointer = HeadlessInput::pointOn(*rows[0]);
  HeadlessInput::moveTo(pointer);
  EXPECT_EQ(InputRouter::hoveredWidget(), rows[0]);
  HeadlessInput::wheel(pointer, -2);
  EXPECT_EQ(InputRouter::hoveredWidget(), rows[2]);
}

TEST_F(VerticalScrollingBaseTest, DraggingTheScrollBarScrollsTheView) {
  ScrollBar* bar = panel->getScrollBar();
  XY<int> const grab(bar->width() / 2, bar->height() - 1 - (bar->thumbStart() + bar->thumbLength() / 2));
  int const slack = bar->trackLength() - bar->thumbLength();
  HeadlessInput::drag(HeadlessInput::pointOn(*bar, grab), HeadlessInput::pointOn(*bar, grab) - XY<int>(0, slack));
  EXPECT_EQ(bar->getThumbPosition(), 1.0);
  EXPECT_EQ(panel->getScrollOffset(), panel->getWidgetsHeight() - panel->getView()->height());
  EXPECT_TRUE(fullyShown(rows.back()));
  HeadlessInput::clickOn(*bar, XY<int>(bar->width() / 2, bar->height() - 1 - ScrollBar::thickness() / 2));
  EXPECT_EQ(panel->getScrollOffset(), panel->getWidgetsHeight() - panel->getView()->height() - (row + rowGap));
}

TEST_F(VerticalScrollingBaseTest, HiddenRowsTakeNoRoom) {
  rows[1]->setVisible(false);
  panel->recalcWidgetsHeight();
  EXPECT_EQ(panel->getWidgetsHeight(), 19 * row + 18 * rowGap);
  EXPECT_EQ(topInView(rows[2]), row + rowGap);
}

TEST_F(VerticalScrollingBaseTest, ARowThatChangesItsHeightHasTheRowsRestackedUnderIt) {
  rows[3]->resize(rows[3]->width(), 3 * row);
  EXPECT_EQ(panel->getWidgetsHeight(), 22 * row + 19 * rowGap);
  EXPECT_EQ(topInView(rows[4]), topInView(rows[3]) + 3 * row + rowGap);
  EXPECT_NEAR(panel->getScrollBar()->getThumbSize(),
              static_cast<double>(panel->getView()->height()) / panel->getWidgetsHeight(), 1e-9);
}

TEST_F(VerticalScrollingBaseTest, RowsAsWideAsTheViewFollowItsWidthAndNarrowerOnesKeepTheirs) {
  rows[5]->resize(60, row);
  int const wider = panel->width() + 100;
  panel->resize(wider, panel->height());
  EXPECT_EQ(rows[0]->width(), panel->getView()->width());
  EXPECT_EQ(rows[19]->width(), panel->getView()->width());
  EXPECT_EQ(rows[5]->width(), 60);
  EXPECT_EQ(panel->getView()->width() + UifStd::getWidgetGap() + ScrollBar::thickness(), panel->getUserArea().width());
  panel->resize(wider - 150, panel->height());
  EXPECT_EQ(rows[0]->width(), panel->getView()->width());
  EXPECT_EQ(topInView(rows[1]), row + rowGap) << "still stacked from the top";
}

TEST_F(VerticalScrollingBaseTest, UpAndDownTakeTheKeyboardFromRowToRowInSight) {
  std::vector<PushButton*> const buttons = pageButtons({2});
  HeadlessInput::clickOn(*buttons[0]);
  ASSERT_TRUE(buttons[0]->hasKbdFocus());
  HeadlessInput::key(kKeyUp);
  EXPECT_TRUE(buttons[0]->hasKbdFocus()) << "the first row keeps it";
  HeadlessInput::key(kKeyDown);
  EXPECT_TRUE(buttons[1]->hasKbdFocus());
  HeadlessInput::key(kKeyDown);
  EXPECT_TRUE(buttons[3]->hasKbdFocus()) << "past the hidden row";
  for (int i = 0; i < 8; ++i)
    HeadlessInput::key(kKeyDown);
  EXPECT_TRUE(buttons[11]->hasKbdFocus());
  EXPECT_TRUE(fullyShown(buttons[11])) << "scrolled into view";
  HeadlessInput::key(kKeyUp);
  EXPECT_TRUE(buttons[10]->hasKbdFocus());
  HeadlessInput::key(kKeyDown, kKeyShift);
  EXPECT_TRUE(buttons[10]->hasKbdFocus()) << "with a modifier, not a row step";
}

TEST_F(VerticalScrollingBaseTest, HomeAndEndTakeTheKeyboardToTheFirstAndLastRowsThatTakeIt) {
  std::vector<PushButton*> const buttons = pageButtons({0, 11});
  HeadlessInput::clickOn(*buttons[3]);
  ASSERT_TRUE(buttons[3]->hasKbdFocus());
  HeadlessInput::key(kKeyEnd);
  EXPECT_TRUE(buttons[10]->hasKbdFocus()) << "the last row that can take it";
  EXPECT_TRUE(fullyShown(buttons[10])) << "scrolled into view";
  HeadlessInput::key(kKeyEnd);
  EXPECT_TRUE(buttons[10]->hasKbdFocus()) << "and stays";
  HeadlessInput::key(kKeyHome);
  EXPECT_TRUE(buttons[1]->hasKbdFocus()) << "past the hidden first row";
  EXPECT_TRUE(fullyShown(buttons[1]));
}

TEST_F(VerticalScrollingBaseTest, UnmanagingForgetsOrDeletesTheRows) {
  panel->unmanageAllWidgets(false);
  EXPECT_TRUE(panel->getManagedWidgets().empty());
  EXPECT_TRUE(is_good_glob_ptr(rows[0]));
  EXPECT_EQ(panel->getWidgetsHeight(), 0);
  TextLabel::InitArgs label(XY<int>(panel->getView()->width(), row));
  TextLabel* fresh = panel->createManagedWidget<TextLabel>(label);
  panel->unmanageAllWidgets(true);
  EXPECT_FALSE(is_good_glob_ptr(fresh));
  EXPECT_TRUE(is_good_glob_ptr(rows[0]));
}

TEST_F(VerticalScrollingBaseTest, ADeletedRowIsForgotten) {
  panel->getView()->removeWidget(rows[0]);
  panel->recalcWidgetsHeight();
  EXPECT_EQ(panel->getManagedWidgets().size(), 19u);
  EXPECT_EQ(topInView(rows[1]), 0);
}

} // namespace

namespace {

// Rows of a box each, inside a titled row as the gallery makes them: the
// keyboard lands on the box, a row's child.
TEST_F(VerticalScrollingBaseTest, TabIntoARowOutOfSightScrollsItIntoView) {
  panel->unmanageAllWidgets(true);
  std::vector<TextBox*> boxes;
  for (int i = 0; i < 20; ++i) {
    auto* holder =
        panel->createManagedWidget<StandardPanel>(StandardPanel::InitArgs(XY<int>(panel->getView()->width(), row)));
    boxes.push_back(
        holder->createWidget<TextBox>(TextBox::InitArgs(GlobCreationInfo(XY<int>(100, row))), Glob::UserTopLeft(0, 0)));
  }
  panel->recalcWidgetsHeight();
  panel->resetView();
  HeadlessInput::clickOn(*boxes[0]);
  ASSERT_TRUE(boxes[0]->hasKbdFocus());
  for (int i = 0; i < 9; ++i)
    HeadlessInput::key(kKeyTab);
  ASSERT_TRUE(boxes[9]->hasKbdFocus());
  EXPECT_GT(panel->getScrollOffset(), 0);
  EXPECT_TRUE(fullyShown(boxes[9]->parent()));
  for (int i = 0; i < 9; ++i)
    HeadlessInput::key(kKeyTab, kKeyShift);
  ASSERT_TRUE(boxes[0]->hasKbdFocus());
  EXPECT_EQ(panel->getScrollOffset(), 0);
}

} // namespace
