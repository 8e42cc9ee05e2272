// Painting a settings panel of 100 rows: ours against Qt 5. Our side is a
// StandardPanel on the headless screen holding SettingsRow widgets; the peer
// paints the same primitives with QPainter into an offscreen QImage of the
// same size. Both draw antialiased, with the same strings in the same font
// ("DejaVu Sans" at the interface size) and the same colours.
//
// Before timing, each picture is wiped to a colour neither draws; after
// timing, pixels are read back: the knob and the value-box outline of every
// row after full paints; of the repainted row after one-row paints, while
// the rows beside it must still show the wipe colour.

#include "QtSettingsPanel.h"
#include "ZoSettingsPanel.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace SettingsPanelLook;

constexpr int kRepaintedRow = kRows / 2;
Colour const kWiped(1.0, 0.0, 1.0);

bool near(std::uint32_t argb, Colour const& colour) {
  std::uint32_t const expected = colour.get_vlib_colour();
  for (int shift = 0; shift < 32; shift += 8)
    if (std::abs(static_cast<int>((argb >> shift) & 0xFF) - static_cast<int>((expected >> shift) & 0xFF)) > 1)
      return false;
  return true;
}

// The middle of a row's knob, and a point on the left edge of its value box.
XY<int> knobPoint(int row) { return XY<int>(rowBox(row).x0 + knobCentre(row), rowBox(row).y0 + rowHeight() / 2); }
XY<int> outlinePoint(int row) { return XY<int>(rowBox(row).x0 + valueBox().x0, rowBox(row).y0 + rowHeight() / 2); }

template <class Panel> bool rowShows(Panel const& panel, int row, RowColours const& colours) {
  return near(panel.pixel(knobPoint(row)), colours.knob) && near(panel.pixel(outlinePoint(row)), colours.valueOutline);
}

template <class Panel> void checkFullPaint(benchmark::State& state, Panel const& panel, RowColours const& colours) {
  for (int row = 0; row < kRows; ++row)
    if (!rowShows(panel, row, colours)) {
      state.SkipWithError("a row is missing after full paints");
      return;
    }
}

template <class Panel> void checkOneRowPaint(benchmark::State& state, Panel const& panel, RowColours const& colours) {
  if (!rowShows(panel, kRepaintedRow, colours))
    state.SkipWithError("the repainted row is missing");
  else if (!near(panel.pixel(knobPoint(kRepaintedRow - 1)), kWiped) ||
           !near(panel.pixel(knobPoint(kRepaintedRow + 1)), kWiped))
    state.SkipWithError("rows beside the repainted one were painted too");
}

void checkPaintCount(benchmark::State& state, ZoSettingsPanel& panel, int paintsBefore) {
  if (panel.canvas().paintCount() - paintsBefore != static_cast<int>(state.iterations()))
    state.SkipWithError("the canvas painted a different number of times than asked");
}

bool readyToPaint(benchmark::State& state, ZoSettingsPanel const& panel) {
  if (panel.rowsWhereTheLookSays())
    return true;
  state.SkipWithError("the rows are not where the Qt peer draws them");
  return false;
}

bool readyToPaint(benchmark::State& state, QtSettingsPanel const& panel) {
  if (panel.hasOurFont())
    return true;
  state.SkipWithError("Qt found no DejaVu Sans at the interface size");
  return false;
}

void zoPaintFullPanel(benchmark::State& state) {
  ZoSettingsPanel panel;
  if (!readyToPaint(state, panel))
    return;
  RowColours const colours(panel.panel().getPalette());
  panel.fill(kWiped);
  int const paintsBefore = panel.canvas().paintCount();
  // Redraws are not held, so invalidating paints at once.
  for (auto _ : state)
    panel.panel().invalidate();
  checkPaintCount(state, panel, paintsBefore);
  checkFullPaint(state, panel, colours);
}

void qtPaintFullPanel(benchmark::State& state) {
  ensureQtApplication();
  Palette const palette;
  QtSettingsPanel panel(palette);
  if (!readyToPaint(state, panel))
    return;
  // Ours painted once when it was realized; so does the peer, filling its
  // glyph caches.
  panel.paintAll();
  panel.fill(kWiped);
  for (auto _ : state)
    panel.paintAll();
  checkFullPaint(state, panel, RowColours(palette));
}

// Repaints row 50 of our panel at each iteration: `prepare` readies the row
// once, `change` alters it before each paint.
template <class Prepare, class Change>
void zoPaintRepaintedRow(benchmark::State& state, Prepare prepare, Change change) {
  ZoSettingsPanel panel;
  if (!readyToPaint(state, panel))
    return;
  RowColours const colours(panel.panel().getPalette());
  panel.fill(kWiped);
  int const paintsBefore = panel.canvas().paintCount();
  auto& row = static_cast<SettingsRow&>(panel.row(kRepaintedRow));
  prepare(row);
  for (auto _ : state) {
    change(row);
    row.invalidate();
  }
  checkPaintCount(state, panel, paintsBefore);
  checkOneRowPaint(state, panel, colours);
}

void zoPaintOneRow(benchmark::State& state) {
  zoPaintRepaintedRow(
      state, [](SettingsRow&) {}, [](SettingsRow&) {});
}

// The same with the repainted row not declaring that it paints opaquely, so
// that the panel's background is painted under it first.
void zoPaintOneRowNotDeclaredOpaque(benchmark::State& state) {
  zoPaintRepaintedRow(
      state, [](SettingsRow& row) { row.setPaintsOpaquely(false); }, [](SettingsRow&) {});
}

// The same with a number never shown before at every paint, so that its text
// is laid out and its mask made anew: the cost of a value that changes
// (setting the row's string is timed too; it is small beside the rest).
void zoPaintOneRowNewValue(benchmark::State& state) {
  long long value = 0;
  zoPaintRepaintedRow(
      state, [](SettingsRow&) {},
      [&value](SettingsRow& row) {
        row.setValueText(LightweightString<wchar_t>(std::to_wstring(1000000 + ++value).c_str()));
      });
}

void qtPaintOneRow(benchmark::State& state) {
  ensureQtApplication();
  Palette const palette;
  QtSettingsPanel panel(palette);
  if (!readyToPaint(state, panel))
    return;
  panel.paintAll();
  panel.fill(kWiped);
  for (auto _ : state)
    panel.paintRow(kRepaintedRow);
  checkOneRowPaint(state, panel, RowColours(palette));
}

BENCHMARK(zoPaintFullPanel)->Unit(benchmark::kMicrosecond);
BENCHMARK(qtPaintFullPanel)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoPaintOneRow)->Unit(benchmark::kMicrosecond);
BENCHMARK(qtPaintOneRow)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoPaintOneRowNotDeclaredOpaque)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoPaintOneRowNewValue)->Unit(benchmark::kMicrosecond);

} // namespace
