#include "support/WidgetTestSupport.h"

#include "ShotsTableAdaptor.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>
#include <zowidgets/host/widgets/values/ScrollBar.h>

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

constexpr int kColumns = 8;
constexpr int kColumnWidth = 100;

// Eight columns of 100 pixels, each cell filled with its column's colour,
// sortable and editable.
class ColouredColumns : public iTableAdaptor {
public:
  int rows = 4;
  int sortedBy = -1;
  std::vector<std::wstring> stored;

  static Colour colourOf(int column) { return Colour(0.1 + 0.1 * column, 0.8 - 0.08 * column, 0.3 + 0.05 * column); }

  int getSize() override { return rows; }
  std::vector<TableColumnDescription> getColumnDefinitions() override {
    std::vector<TableColumnDescription> columns;
    for (int column = 0; column < kColumns; ++column)
      columns.emplace_back(UIString(LightweightString<wchar_t>((L"C" + std::to_wstring(column)).c_str())),
                           kColumnWidth);
    return columns;
  }
  CellData getCellData(XY<int> const& pos, Palette const& palette) override {
    CellData data;
    data.palette = palette;
    data.text = UIString(LightweightString<wchar_t>(std::to_wstring(pos.x).c_str()));
    return data;
  }
  bool drawField(CellContext& context, CellData const&) override {
    // Clear of the grid line at the cell's left edge.
    Zo::Box<int> const box = context.box;
    context.renderer->renderPrimitive(
        Glib::RectDescription(Zo::Box<int>(box.x0 + 2, box.y0, box.x1, box.y1), colourOf(context.pos.x)));
    return true;
  }
  bool storeFieldText(CellContext& context, LightweightString<wchar_t> const& text) override {
    stored.push_back(std::to_wstring(context.pos.x) + L":" + text.str());
    return true;
  }
  bool sort(int column, bool) override {
    sortedBy = column;
    return true;
  }
};

struct TableSidewaysTest : HeadlessScreenTest {
  ColouredColumns wide;
  ShotsTableAdaptor narrow{40};
  TableWidget* table = nullptr;

  TableWidget* openTable(iTableAdaptor* adaptor, int width = 420) {
    int const height = TableWidget::calcHeight(5, TableWidget::kShowTitles);
    StandardPanel* panel = openPanel(XY<int>(width + 60, height + 60));
    TableWidget::InitArgs args(XY<int>(width, height));
    args.adaptor = adaptor;
    args.options = TableWidget::kShowTitles;
    args.setBorder(Border());
    table = panel->createWidget<TableWidget>(args, Glob::UserTopLeft(0, 0));
    return table;
  }
  HorizontalScroller const& sideways() const { return table->sideways(); }
  ScrollBar& bar() const { return *sideways().getBar(); }
  int viewWidth() const { return table->getVisibleBox().width(); }
  int maxOffset() const { return kColumns * kColumnWidth - viewWidth(); }
  // The screen point in the middle of a cell.
  XY<int> cellPoint(XY<int> cell) const {
    Zo::Box<int> const box = table->getCellBox(cell);
    return HeadlessInput::pointOn(*table, XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
  }
  // The colour at a point of the second row, `x` pixels from the view's left.
  Rgb rowColourAt(int x) {
    Zo::Box<int> const box = table->getCellBox(XY<int>(0, 1));
    return rgbOf(widgetPixel(*table, XY<int>(table->getView()->getX() + x, (box.y0 + box.y1) / 2)));
  }
  // Whether the whole of a column lies in the view.
  bool columnInView(int column) const {
    return table->columnLeft(column) >= 0 && table->columnLeft(column) + table->getColumnWidth(column) <= viewWidth();
  }
};

TEST_F(TableSidewaysTest, ColumnsThatFitShowNoSidewaysBar) {
  openTable(&narrow);
  EXPECT_FALSE(sideways().isBarShown());
  EXPECT_FALSE(bar().isVisible());
  EXPECT_EQ(table->columnsWidth(), viewWidth());
  EXPECT_EQ(table->getVisibleBox().height(), 5 * UifStd::getRowHeight()) << "the rows keep all their room";
}

TEST_F(TableSidewaysTest, ColumnsWiderThanTheViewBringABarUnderTheRows) {
  openTable(&wide);
  ASSERT_TRUE(sideways().isBarShown());
  EXPECT_TRUE(bar().isVisible());
  EXPECT_EQ(table->columnsWidth(), kColumns * kColumnWidth);
  EXPECT_EQ(sideways().contentWidth(), kColumns * kColumnWidth);
  EXPECT_EQ(table->getVisibleBox().height(), 5 * UifStd::getRowHeight() - ScrollBar::thickness())
      << "the bar's height comes off the rows";
  Zo::Box<int> const view = table->getVisibleBox();
  Zo::Box<int> const barBox = bar().canvasBox();
  EXPECT_EQ(barBox.y1, view.y0) << "right under the rows";
  EXPECT_EQ(barBox.x0, view.x0);
  EXPECT_EQ(barBox.width(), view.width());
  EXPECT_TRUE(near(rgbOf(widgetPixel(bar(), XY<int>(1, 1))),
                   rgbOf(ScrollBar::Look::make(bar().getPalette(), bar().height(), true).background)))
      << "the bar is painted";
}

TEST_F(TableSidewaysTest, DraggingTheThumbScrollsTheColumnsAndTheirPixels) {
  openTable(&wide);
  EXPECT_TRUE(near(rowColourAt(10), rgbOf(ColouredColumns::colourOf(0)))) << rowColourAt(10);
  int const grab = bar().thumbStart() + bar().thumbLength() / 2;
  int const y = bar().height() / 2;
  HeadlessInput::drag(HeadlessInput::pointOn(bar(), XY<int>(grab, y)),
                      HeadlessInput::pointOn(bar(), XY<int>(bar().width() - 1, y)));
  EXPECT_EQ(sideways().offset(), maxOffset());
  EXPECT_EQ(table->columnLeft(0), -maxOffset());
  EXPECT_TRUE(columnInView(kColumns - 1));
  EXPECT_TRUE(near(rowColourAt(viewWidth() - 10), rgbOf(ColouredColumns::colourOf(kColumns - 1))))
      << rowColourAt(viewWidth() - 10) << "the last column is painted at the view's right edge";
  int const first = maxOffset() / kColumnWidth;
  EXPECT_TRUE(
      near(rowColourAt(0 + (first + 1) * kColumnWidth - maxOffset() - 10), rgbOf(ColouredColumns::colourOf(first))))
      << rowColourAt(0 + (first + 1) * kColumnWidth - maxOffset() - 10);
}

TEST_F(TableSidewaysTest, ShiftAndTheWheelScrollSidewaysAndLeaveTheRowsWhereTheyAre) {
  wide.rows = 40;
  openTable(&wide);
  shiftWheel(cellPoint(XY<int>(0, 1)), -1);
  int const step = 3 * HorizontalScroller::stepWidth();
  EXPECT_EQ(sideways().offset(), step);
  EXPECT_EQ(table->getScrollOffset(), 0);
  EXPECT_TRUE(near(rowColourAt(kColumnWidth - step + 10), rgbOf(ColouredColumns::colourOf(1))))
      << rowColourAt(kColumnWidth - step + 10);
  HeadlessInput::wheel(HeadlessInput::pointOn(*table->getView()), -1);
  EXPECT_EQ(sideways().offset(), step) << "without Shift the wheel scrolls the rows";
  EXPECT_GT(table->getScrollOffset(), 0);
}

TEST_F(TableSidewaysTest, ShiftAndTheWheelStopAtEitherEnd) {
  openTable(&wide);
  XY<int> const middle = HeadlessInput::pointOn(*table->getView());
  shiftWheel(middle, -10);
  EXPECT_EQ(sideways().offset(), maxOffset());
  shiftWheel(middle, 20);
  EXPECT_EQ(sideways().offset(), 0);
}

TEST_F(TableSidewaysTest, ShiftAndTheWheelScrollTheRowsWhenTheColumnsFit) {
  openTable(&narrow);
  shiftWheel(HeadlessInput::pointOn(*table->getView()), -1);
  EXPECT_EQ(sideways().offset(), 0);
  EXPECT_GT(table->getScrollOffset(), 0);
}

TEST_F(TableSidewaysTest, TabToAColumnOutOfSightScrollsItIn) {
  openTable(&wide);
  HeadlessInput::click(cellPoint(XY<int>(0, 1)));
  ASSERT_FALSE(columnInView(5));
  for (int column = 1; column <= 5; ++column)
    key(kKeyTab);
  EXPECT_EQ(table->getCurPos(), XY<int>(5, 1));
  EXPECT_TRUE(columnInView(5));
  EXPECT_EQ(table->columnLeft(5) + kColumnWidth, viewWidth()) << "scrolled only as far as needed";
  EXPECT_TRUE(near(rowColourAt(viewWidth() - 10), rgbOf(ColouredColumns::colourOf(5))))
      << rowColourAt(viewWidth() - 10);
  key(kKeyTab, kKeyShift);
  EXPECT_EQ(table->columnLeft(5) + kColumnWidth, viewWidth()) << "column 4 is in sight already";
}

TEST_F(TableSidewaysTest, ArrowsHomeAndEndKeepTheCurrentCellInSight) {
  openTable(&wide);
  HeadlessInput::click(cellPoint(XY<int>(0, 1)));
  key(kKeyEnd);
  EXPECT_EQ(table->getCurPos(), XY<int>(kColumns - 1, 1));
  EXPECT_EQ(sideways().offset(), maxOffset());
  for (int column = kColumns - 1; column > 1; --column)
    key(kKeyLeft);
  EXPECT_EQ(table->getCurPos().x, 1);
  EXPECT_EQ(table->columnLeft(1), 0) << "the cell's left edge at the view's";
  key(kKeyHome);
  EXPECT_EQ(sideways().offset(), 0);
  key(kKeyRight);
  key(kKeyRight);
  key(kKeyRight);
  key(kKeyRight);
  EXPECT_TRUE(columnInView(4));
}

TEST_F(TableSidewaysTest, AClickOnAScrolledCellMakesThatCellCurrent) {
  openTable(&wide);
  table->setSidewaysOffset(250);
  XY<int> const point =
      HeadlessInput::pointOn(*table, XY<int>(table->getView()->getX() + 20, table->getCellBox(XY<int>(0, 2)).y0 + 5));
  HeadlessInput::click(point);
  EXPECT_EQ(table->getCurPos(), XY<int>(2, 2)) << "250 + 20 pixels in lies in the third column";
  EXPECT_EQ(sideways().offset(), 200) << "its left edge brought into sight";
}

TEST_F(TableSidewaysTest, TheTitlesScrollWithTheColumns) {
  openTable(&wide);
  table->setSidewaysOffset(maxOffset());
  Glob const& header = *table->getHeader();
  HeadlessInput::clickOn(header, XY<int>(viewWidth() - 20, header.height() / 2));
  EXPECT_EQ(wide.sortedBy, kColumns - 1) << "the title under the pointer is the last column's";
}

TEST_F(TableSidewaysTest, AnEditorHidesWhileItsCellIsScrolledAwayAndComesBack) {
  openTable(&wide);
  ASSERT_TRUE(table->beginEdit(XY<int>(1, 1)));
  Glob* editor = table->getEditWidget();
  ASSERT_NE(editor, nullptr);
  EXPECT_TRUE(editor->isVisible());
  table->setSidewaysOffset(150);
  EXPECT_FALSE(editor->isVisible()) << "its cell's left edge is out of sight";
  EXPECT_TRUE(table->isEditing());
  table->setSidewaysOffset(50);
  EXPECT_TRUE(editor->isVisible());
  EXPECT_EQ(editor->getX(), table->getCellBox(XY<int>(1, 1)).x0);
  HeadlessInput::typeText("Moved");
  key(kKeyTab);
  EXPECT_EQ(wide.stored, (std::vector<std::wstring>{L"1:Moved"}));
  EXPECT_EQ(table->getEditPos(), XY<int>(2, 1));
  EXPECT_TRUE(table->getEditWidget()->isVisible());
}

TEST_F(TableSidewaysTest, WideningTheTableUntilTheColumnsFitTakesTheBarAway) {
  openTable(&wide);
  table->setSidewaysOffset(300);
  table->resize(kColumns * kColumnWidth + 20, table->height());
  EXPECT_FALSE(sideways().isBarShown());
  EXPECT_FALSE(bar().isVisible());
  EXPECT_EQ(sideways().offset(), 0);
  EXPECT_EQ(table->columnLeft(0), 0);
  EXPECT_EQ(table->getVisibleBox().height(), 5 * UifStd::getRowHeight());
  table->resize(420, table->height());
  EXPECT_TRUE(sideways().isBarShown());
}

TEST_F(TableSidewaysTest, ColumnsDraggedWiderBringTheBar) {
  openTable(&narrow);
  ASSERT_FALSE(sideways().isBarShown());
  table->setColumnWidth(2, 400);
  EXPECT_TRUE(sideways().isBarShown());
  EXPECT_GT(table->columnsWidth(), viewWidth());
}

TEST_F(TableSidewaysTest, TheBarAndTheRowsBarShareTheCornerWithoutOverlapping) {
  wide.rows = 40;
  openTable(&wide);
  ASSERT_TRUE(table->getScrollBar()->isVisible());
  ASSERT_TRUE(bar().isVisible());
  Zo::Box<int> const across = bar().canvasBox();
  Zo::Box<int> const down = table->getScrollBar()->canvasBox();
  EXPECT_LE(across.x1, down.x0);
  EXPECT_GE(down.y0, across.y1) << "the rows' bar stops above the sideways one";
  EXPECT_EQ(viewWidth(), 420 - ScrollBar::thickness());
  EXPECT_EQ(maxOffset(), kColumns * kColumnWidth - viewWidth());
  table->setSidewaysOffset(10000);
  EXPECT_EQ(sideways().offset(), maxOffset());
}

} // namespace
