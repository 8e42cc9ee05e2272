// The font chooser: ours (FontChooserPanel on the headless screen, each row
// drawn in its own family) against Qt 5 painting the same rows with
// QPainter::setFont per row into a QImage of the list's size; and one filter
// keystroke against a plain case-blind substring loop over the same names.
//
// Timed:
// - opening the chooser over every installed family, with its first paint;
//   Qt paints the rows of our first page, each in its family at our size;
// - one keystroke in the filter ("sans" one time, "san" the next) with the
//   repaint that follows; the plain loop over the same names; and the
//   repaint alone, so that "the loop plus one repaint" can be added up.
// After timing, each side must show what it was asked to.

#include "QtApplication.h"

#include <zowidgets/fonts/FontChooserPanel.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/TreeView.h>

#include <QtGui/QFont>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cwctype>
#include <memory>
#include <string>
#include <vector>

namespace {

FontChooserPanel* openChooser() {
  FontChooserPanel::InitArgs args;
  args.screenPosition = XY<int>(0, 0);
  auto* panel = new FontChooserPanel(args);
  GlobManager::realize(panel);
  return panel;
}

struct Chooser {
  std::unique_ptr<FontChooserPanel> panel{openChooser()};
  int paints() const { return panel->canvas()->paintCount(); }
};

// The families of our first page, top to bottom.
std::vector<std::string> const& firstPageFamilies() {
  static std::vector<std::string> const families = [] {
    useHeadlessScreen();
    Chooser chooser;
    std::vector<std::string> names;
    std::vector<FontItem const*> const shown = chooser.panel->getShownItems();
    int const rows = std::min<int>(chooser.panel->getTree()->linesPerPage(), static_cast<int>(shown.size()));
    for (int row = 0; row < rows; ++row)
      names.push_back(shown[static_cast<std::size_t>(row)]->name().str());
    return names;
  }();
  return families;
}

std::vector<std::wstring> const& allNames() {
  static std::vector<std::wstring> const names = [] {
    useHeadlessScreen();
    Chooser chooser;
    std::vector<std::wstring> made;
    for (FontItem const* item : chooser.panel->getItems())
      made.push_back(item->wideName().str());
    return made;
  }();
  return names;
}

void zoFontChooserFirstPage(benchmark::State& state) {
  useHeadlessScreen();
  firstPageFamilies();
  for (auto _ : state) {
    Chooser chooser;
    if (chooser.panel->getTree()->rowCount() == 0 || chooser.paints() == 0)
      state.SkipWithError("the chooser was not filled and painted");
  }
  state.counters["families"] = static_cast<double>(allNames().size());
}

void qtFontRowsFirstPage(benchmark::State& state) {
  ensureQtApplication();
  std::vector<std::string> const& families = firstPageFamilies();
  useHeadlessScreen();
  Chooser sizes;
  TreeView const* tree = sizes.panel->getTree();
  int const rowHeight = tree->getRowHeight();
  int const pixelSize = getDefaultFontSize(); // the interface size our rows use
  QImage image(tree->width(), tree->height(), QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter painter(&image);
    painter.fillRect(image.rect(), QColor(40, 40, 44));
    int y = 0;
    for (std::string const& family : families) {
      QFont font(QString::fromStdString(family));
      font.setPixelSize(pixelSize);
      painter.setFont(font);
      painter.setPen(QColor(220, 220, 220));
      painter.drawText(QRect(6, y, image.width() - 6, rowHeight), Qt::AlignVCenter | Qt::AlignLeft,
                       QString::fromStdString(family));
      y += rowHeight;
    }
  }
  if (families.empty() || image.pixelColor(1, 1) != QColor(40, 40, 44))
    state.SkipWithError("nothing was painted");
}

// Alternates the filter between "sans" and "san", as one keystroke typed
// and taken back: applyFilter is what the filter box calls on each change.
void zoFontChooserFilterKeystroke(benchmark::State& state) {
  useHeadlessScreen();
  Chooser chooser;
  int const paintsBefore = chooser.paints();
  bool longer = true;
  for (auto _ : state) {
    chooser.panel->applyFilter(longer ? L"sans" : L"san");
    longer = !longer;
  }
  if (chooser.paints() - paintsBefore < static_cast<int>(state.iterations()))
    state.SkipWithError("a keystroke was not painted");
  for (FontItem const* item : chooser.panel->getShownItems()) {
    std::wstring name = item->wideName().str();
    std::transform(name.begin(), name.end(), name.begin(), [](wchar_t c) { return std::towlower(c); });
    if (name.find(L"san") == std::wstring::npos)
      state.SkipWithError("the filter let through a name without the text");
  }
}

void zoFontChooserRepaint(benchmark::State& state) {
  useHeadlessScreen();
  Chooser chooser;
  int const paintsBefore = chooser.paints();
  for (auto _ : state)
    chooser.panel->getTree()->invalidate();
  if (chooser.paints() - paintsBefore < static_cast<int>(state.iterations()))
    state.SkipWithError("the list was not repainted");
}

// The plain loop: which names hold the text, case ignored.
void plainSubstringFilter(benchmark::State& state) {
  std::vector<std::wstring> const& names = allNames();
  std::vector<std::size_t> shown;
  bool longer = true;
  for (auto _ : state) {
    std::wstring const text = longer ? L"sans" : L"san";
    longer = !longer;
    shown.clear();
    for (std::size_t index = 0; index < names.size(); ++index) {
      std::wstring lower = names[index];
      std::transform(lower.begin(), lower.end(), lower.begin(), [](wchar_t c) { return std::towlower(c); });
      if (lower.find(text) != std::wstring::npos)
        shown.push_back(index);
    }
    benchmark::DoNotOptimize(shown.data());
  }
  if (shown.empty())
    state.SkipWithError("no name holds the text");
}

BENCHMARK(zoFontChooserFirstPage)->Unit(benchmark::kMillisecond);
BENCHMARK(qtFontRowsFirstPage)->Unit(benchmark::kMillisecond);
BENCHMARK(zoFontChooserFilterKeystroke)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoFontChooserRepaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainSubstringFilter)->Unit(benchmark::kMicrosecond);

} // namespace
