#include "support/WidgetTestSupport.h"

#include "ShotsTableAdaptor.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>

#include <string>

namespace {

struct SidewaysGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }
};

// A shot log whose columns are wider together than the table: the current
// cell, in the third column, has been brought into sight, so the first
// column is cut at the left edge; both bars show.
TEST_F(SidewaysGolden, ATableScrolledSidewaysToItsCurrentCell) {
  for (double scale : {1.0, 2.0}) {
    UifStd::setScale(scale);
    int const line = UifStd::getRowHeight();
    StandardPanel* panel = openPanel(XY<int>(line * 12, line * 8), XY<int>(40, 40),
                                     StandardPanel::kTitle | StandardPanel::kPoot, L"Shot log");
    ShotsTableAdaptor shots(12);
    TableWidget::InitArgs args(XY<int>(panel->getUserArea().width(), panel->getUserArea().height()));
    args.adaptor = &shots;
    args.options = TableWidget::kShowTitles | TableWidget::kFramed;
    args.setBorder(Border());
    auto* table = panel->createWidget<TableWidget>(args, Glob::UserTopLeft(0, 0));
    table->setColumnWidth(0, line * 6);
    table->setColumnWidth(1, line * 3);
    table->setColumnWidth(2, line * 5);
    table->setColumnWidth(3, line * 3);
    table->claimKbdFocus();
    table->setCurPos(XY<int>(2, 3));
    ASSERT_TRUE(table->sideways().isBarShown());
    ASSERT_GT(table->sideways().offset(), 0);
    std::string const name = scale == 1.0 ? "/table_sideways.png" : "/table_sideways_scale2.png";
    EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR + name));
    delete panel;
  }
}

} // namespace
