// Tables of 100,000 and 1,000,000 rows in four columns: ours (TableWidget
// over an iTableAdaptor, on the headless screen) against Qt 5's QTableView
// over a QAbstractTableModel of the same cells, rendered offscreen into a
// QImage of the same size. Both make each cell's text when it is asked for.
//
// Timed: making the view and its first paint; scrolling by one page with the
// paint that follows; and widening one column by 20 pixels (then narrowing
// it back) with the paint that follows. After timing, each side must show
// what it was asked to.

#include "host/widgets/TableBenchViews.h"

#include <QtWidgets/QScrollBar>

#include <benchmark/benchmark.h>

namespace {

using namespace tablebench;

void zoTableBuildAndFirstPaint(benchmark::State& state) {
  useHeadlessScreen();
  int const rows = static_cast<int>(state.range(0));
  for (auto _ : state) {
    ZoTable table(rows);
    if (table.table->rowCount() != rows || table.panel->canvas()->paintCount() == 0)
      state.SkipWithError("the table was not filled and painted");
  }
}

void qtTableBuildAndFirstPaint(benchmark::State& state) {
  ensureQtApplication();
  int const rows = static_cast<int>(state.range(0));
  for (auto _ : state) {
    QtTable table(rows);
    table.paint();
    if (table.view.model()->rowCount() != rows)
      state.SkipWithError("the view has no rows");
  }
}

// Down a page at each iteration, back to the top at the end.
void zoTableScrollOnePage(benchmark::State& state) {
  useHeadlessScreen();
  int const rows = static_cast<int>(state.range(0));
  ZoTable table(rows);
  int const line = table.table->getRowHeight();
  int const page = table.table->numLines() * line;
  int const last = (rows - table.table->numLines()) * line;
  int const paintsBefore = table.panel->canvas()->paintCount();
  int offset = 0;
  for (auto _ : state) {
    offset = offset + page > last ? 0 : offset + page;
    table.table->setScrollOffset(offset);
  }
  if (table.panel->canvas()->paintCount() - paintsBefore < static_cast<int>(state.iterations()))
    state.SkipWithError("a scroll was not painted");
  if (!table.table->getRowGlob(table.table->getFirstVisibleIndex()))
    state.SkipWithError("the row scrolled to is not shown");
}

void qtTableScrollOnePage(benchmark::State& state) {
  ensureQtApplication();
  QtTable table(static_cast<int>(state.range(0)));
  table.paint();
  QScrollBar* bar = table.view.verticalScrollBar();
  int const page = bar->pageStep();
  for (auto _ : state) {
    bar->setValue(bar->value() + page > bar->maximum() ? 0 : bar->value() + page);
    table.paint();
  }
  if (table.view.rowAt(2) != bar->value())
    state.SkipWithError("the row scrolled to is not shown");
}

void zoTableWidenOneColumn(benchmark::State& state) {
  useHeadlessScreen();
  ZoTable table(static_cast<int>(state.range(0)));
  table.panel->canvas()->paintPending();
  int const paintsBefore = table.panel->canvas()->paintCount();
  bool wide = false;
  for (auto _ : state) {
    wide = !wide;
    table.table->setColumnWidth(2, wide ? 130 : 110);
    table.panel->canvas()->paintPending();
  }
  if (table.panel->canvas()->paintCount() - paintsBefore < static_cast<int>(state.iterations()))
    state.SkipWithError("a resize was not painted");
  if (table.table->getColumnWidth(2) != (wide ? 130 : 110))
    state.SkipWithError("the column does not have its width");
}

void qtTableWidenOneColumn(benchmark::State& state) {
  ensureQtApplication();
  QtTable table(static_cast<int>(state.range(0)));
  table.paint();
  bool wide = false;
  for (auto _ : state) {
    wide = !wide;
    table.view.setColumnWidth(2, wide ? 130 : 110);
    table.paint();
  }
  if (table.view.columnWidth(2) != (wide ? 130 : 110))
    state.SkipWithError("the column does not have its width");
}

BENCHMARK(zoTableBuildAndFirstPaint)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(qtTableBuildAndFirstPaint)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(zoTableScrollOnePage)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(qtTableScrollOnePage)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoTableWidenOneColumn)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(qtTableWidenOneColumn)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

} // namespace
