// A tree view of 100,000 rows: ours (TreeView over an iTreeViewAdaptor, on
// the headless screen) against Qt 5's QTreeView over a QAbstractItemModel of
// the same strings, rendered offscreen into a QImage of the same size. Both
// show the rows in the default font of each toolkit, one column, no header.
//
// Ours is measured over an adaptor in the list form (all items handed over
// at once) and in the counted form (items by index, as Qt's model).
//
// Timed: making the view over the data and its first paint; and scrolling
// by one page, with the paint that follows. After timing, each side must
// show the row it was scrolled to.

#include "QtApplication.h"
#include "host/widgets/BenchWindow.h"

#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/TreeView.h>

#include <QtCore/QAbstractItemModel>
#include <QtGui/QImage>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTreeView>

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace {

constexpr int kRows = 100'000;
XY<int> const kViewSize(320, 600);

std::vector<std::wstring> const& clipNames() {
  static std::vector<std::wstring> const names = [] {
    std::vector<std::wstring> made;
    made.reserve(kRows);
    for (int i = 0; i < kRows; ++i)
      made.push_back(L"Clip " + std::to_wstring(i));
    return made;
  }();
  return names;
}

class ClipsAdaptor : public iTreeViewAdaptor {
public:
  std::vector<Item> getChildItems(LightweightString<wchar_t> const& parentId) const override {
    std::vector<Item> items;
    if (!parentId.empty())
      return items;
    items.resize(kRows);
    std::vector<std::wstring> const& names = clipNames();
    for (int i = 0; i < kRows; ++i) {
      items[i].id = LightweightString<wchar_t>(names[i].c_str());
      items[i].text = UIString(items[i].id);
    }
    return items;
  }
  bool hasChildItems(LightweightString<wchar_t> const&) const override { return false; }
};

// The same strings in the counted form, read in place as Qt's model reads
// them: the tree asks only for the items it shows.
class CountedClipsAdaptor : public iTreeViewAdaptor {
public:
  std::optional<std::size_t> getChildCount(LightweightString<wchar_t> const& parentId) const override {
    return parentId.empty() ? kRows : 0;
  }
  Item getChildItem(LightweightString<wchar_t> const&, std::size_t index) const override {
    Item item;
    item.id = LightweightString<wchar_t>(clipNames()[index].c_str());
    item.text = UIString(item.id);
    return item;
  }
};

// The same strings as a flat Qt model, read in place.
class ClipsModel : public QAbstractItemModel {
public:
  QModelIndex index(int row, int column, QModelIndex const& parent) const override {
    return parent.isValid() || column != 0 ? QModelIndex() : createIndex(row, 0);
  }
  QModelIndex parent(QModelIndex const&) const override { return {}; }
  int rowCount(QModelIndex const& parent) const override { return parent.isValid() ? 0 : kRows; }
  int columnCount(QModelIndex const&) const override { return 1; }
  QVariant data(QModelIndex const& index, int role) const override {
    if (role != Qt::DisplayRole || !index.isValid())
      return {};
    return QString::fromStdWString(clipNames()[index.row()]);
  }
};

template <class Adaptor> struct ZoTree {
  Adaptor adaptor;
  BenchWindow<TreeView> window;
  StandardPanel* panel;
  TreeView* tree;

  ZoTree() : window(args(adaptor)), panel(window.panel), tree(window.widget) {}

  static TreeView::InitArgs args(Adaptor& adaptor) {
    TreeView::InitArgs made(kViewSize);
    made.adaptor = &adaptor;
    return made;
  }
};

struct QtTree {
  ClipsModel model;
  QTreeView view;
  QImage image{kViewSize.x, kViewSize.y, QImage::Format_ARGB32_Premultiplied};

  QtTree() {
    view.setHeaderHidden(true);
    view.setRootIsDecorated(false);
    view.setUniformRowHeights(true);
    view.resize(kViewSize.x, kViewSize.y);
    view.setModel(&model);
  }
  void paint() { view.render(&image); }
};

template <class Adaptor> void zoTreeBuildAndFirstPaint(benchmark::State& state) {
  useHeadlessScreen();
  clipNames();
  for (auto _ : state) {
    ZoTree<Adaptor> tree;
    if (tree.tree->rowCount() != kRows || tree.panel->canvas()->paintCount() == 0)
      state.SkipWithError("the tree was not filled and painted");
  }
}

void qtTreeBuildAndFirstPaint(benchmark::State& state) {
  ensureQtApplication();
  clipNames();
  for (auto _ : state) {
    QtTree tree;
    tree.paint();
    if (tree.view.model()->rowCount() != kRows)
      state.SkipWithError("the view has no rows");
  }
}

// Down a page at each iteration, back to the top at the end.
template <class Adaptor> void zoTreeScrollOnePage(benchmark::State& state) {
  useHeadlessScreen();
  ZoTree<Adaptor> tree;
  int const page = tree.tree->linesPerPage() * tree.tree->getRowHeight();
  int const paintsBefore = tree.panel->canvas()->paintCount();
  int offset = 0;
  for (auto _ : state) {
    offset = offset + page > (kRows - tree.tree->linesPerPage()) * tree.tree->getRowHeight() ? 0 : offset + page;
    tree.tree->setScrollOffset(offset);
  }
  if (tree.panel->canvas()->paintCount() - paintsBefore < static_cast<int>(state.iterations()))
    state.SkipWithError("a scroll was not painted");
  if (!tree.tree->getRowGlob(tree.tree->getFirstVisibleIndex()))
    state.SkipWithError("the row scrolled to is not shown");
}

void qtTreeScrollOnePage(benchmark::State& state) {
  ensureQtApplication();
  QtTree tree;
  tree.paint();
  QScrollBar* bar = tree.view.verticalScrollBar();
  int const page = bar->pageStep();
  for (auto _ : state) {
    bar->setValue(bar->value() + page > bar->maximum() ? 0 : bar->value() + page);
    tree.paint();
  }
  if (tree.view.indexAt(QPoint(2, 2)).row() != bar->value())
    state.SkipWithError("the row scrolled to is not shown");
}

BENCHMARK(zoTreeBuildAndFirstPaint<ClipsAdaptor>)->Name("zoTreeBuildAndFirstPaint")->Unit(benchmark::kMillisecond);
BENCHMARK(zoTreeBuildAndFirstPaint<CountedClipsAdaptor>)
    ->Name("zoCountedTreeBuildAndFirstPaint")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(qtTreeBuildAndFirstPaint)->Unit(benchmark::kMillisecond);
BENCHMARK(zoTreeScrollOnePage<ClipsAdaptor>)->Name("zoTreeScrollOnePage")->Unit(benchmark::kMicrosecond);
BENCHMARK(zoTreeScrollOnePage<CountedClipsAdaptor>)->Name("zoCountedTreeScrollOnePage")->Unit(benchmark::kMicrosecond);
BENCHMARK(qtTreeScrollOnePage)->Unit(benchmark::kMicrosecond);

} // namespace
