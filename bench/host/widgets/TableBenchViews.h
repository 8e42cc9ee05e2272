#pragma once

// Our table and Qt's over the same four columns, each the same size on its
// offscreen target, with titles and without row numbers, rows of uniform
// height. Shared by the speed benchmarks and the memory probe.

#include "QtApplication.h"
#include "host/widgets/BenchWindow.h"
#include "host/widgets/TableBenchData.h"

#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>

#include <QtCore/QAbstractTableModel>
#include <QtGui/QImage>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>

namespace tablebench {

inline XY<int> const kViewSize(520, 600);

class ClipsTable : public iTableAdaptor {
public:
  explicit ClipsTable(int rows) : rows_(rows) {}
  int getSize() override { return rows_; }
  std::vector<TableColumnDescription> getColumnDefinitions() override {
    std::vector<TableColumnDescription> columns;
    for (int column = 0; column < 4; ++column)
      columns.emplace_back(UIString(columnTitle(column)), column == 0 ? 0 : 110);
    return columns;
  }
  CellData getCellData(XY<int> const& pos, Palette const& palette) override {
    CellData data;
    data.palette = palette;
    data.text = UIString(LightweightString<wchar_t>(cellText(pos.y, pos.x).c_str()));
    return data;
  }

private:
  int rows_;
};

class ClipsModel : public QAbstractTableModel {
public:
  explicit ClipsModel(int rows) : rows_(rows) {}
  int rowCount(QModelIndex const& parent) const override { return parent.isValid() ? 0 : rows_; }
  int columnCount(QModelIndex const& parent) const override { return parent.isValid() ? 0 : 4; }
  QVariant data(QModelIndex const& index, int role) const override {
    if (role != Qt::DisplayRole || !index.isValid())
      return {};
    return QString::fromStdWString(cellText(index.row(), index.column()));
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
      return {};
    return QString::fromWCharArray(columnTitle(section));
  }

private:
  int rows_;
};

struct ZoTable {
  ClipsTable adaptor;
  BenchWindow<TableWidget> window;
  StandardPanel* panel;
  TableWidget* table;

  explicit ZoTable(int rows) : adaptor(rows), window(args(adaptor)), panel(window.panel), table(window.widget) {}

  static TableWidget::InitArgs args(ClipsTable& adaptor) {
    TableWidget::InitArgs made(kViewSize);
    made.adaptor = &adaptor;
    made.options = TableWidget::kShowTitles;
    return made;
  }
};

struct QtTable {
  ClipsModel model;
  QTableView view;
  QImage image{kViewSize.x, kViewSize.y, QImage::Format_ARGB32_Premultiplied};

  explicit QtTable(int rows) : model(rows) {
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.horizontalHeader()->setStretchLastSection(false);
    view.resize(kViewSize.x, kViewSize.y);
    view.setModel(&model);
    for (int column = 1; column < 4; ++column)
      view.setColumnWidth(column, 110);
  }
  void paint() { view.render(&image); }
};

} // namespace tablebench
