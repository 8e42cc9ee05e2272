#include <zowidgets/host/widgets/lists/detail/TableRow.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/widgets/buttons/detail/FocusRing.h>
#include <zowidgets/host/widgets/lists/TableCellEditor.h>

TableRow::TableRow(TableWidget* table, int index, XY<int> size)
    : Glob(GlobCreationInfo(size)), table_(table), index_(index) {
  setPaintsOpaquely(true);
  iTableAdaptor* adaptor = table_->getAdaptor();
  if (!adaptor)
    return;
  custom_.assign(static_cast<std::size_t>(table_->numColumns()), nullptr);
  for (int column = 0; column < table_->numColumns(); ++column) {
    XY<int> const cellSize(table_->getColumnWidth(column), size.y);
    if (Glob* widget = adaptor->createCustomWidget(XY<int>(column, index_), cellSize)) {
      addWidget(widget);
      custom_[column] = widget;
    }
  }
  placeCustomWidgets();
}

void TableRow::placeCustomWidgets() {
  for (int column = 0; column < static_cast<int>(custom_.size()); ++column)
    if (Glob* widget = custom_[column]) {
      widget->resize(table_->getColumnWidth(column), height());
      widget->setPosition(XY<int>(table_->columnLeft(column), 0));
    }
}

void TableRow::refresh(bool current, bool focused, bool tagged) {
  current_ = current;
  focused_ = focused;
  tagged_ = tagged;
  placeCustomWidgets();
  invalidate();
}

// Presses, moves and keys go on to the table, which owns the cells.
int TableRow::react(Event const&) { return 0; }

void TableRow::drawBackground(CanvasRenderer& renderer) {
  TableWidget::Look const look = TableWidget::lookFor(getPalette());
  Colour ground = look.background;
  if (tagged_)
    ground = look.tagged;
  if (current_)
    ground = focused_ ? look.currentRowFocused : look.currentRow;
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), ground));
}

void TableRow::draw(CanvasRenderer& renderer) {
  iTableAdaptor* adaptor = table_->getAdaptor();
  if (!adaptor || index_ >= adaptor->getSize())
    return;
  TableWidget::Look const look = TableWidget::lookFor(getPalette());
  Palette palette = getPalette();
  if (current_ && focused_)
    palette.setText(look.currentText);
  adaptor->lockData();
  for (int column = 0; column < table_->numColumns(); ++column) {
    int const left = table_->columnLeft(column);
    int const right = left + table_->getColumnWidth(column);
    if (column > 0)
      renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(left, 0, left + 1, height()), look.grid));
    if (column < static_cast<int>(custom_.size()) && custom_[column])
      continue;
    XY<int> const cell(column, index_);
    if (table_->isEditing() && table_->getEditPos() == cell)
      continue; // the editor's box covers it
    iTableAdaptor::CellData const data = adaptor->getCellData(cell, palette);
    iTableAdaptor::CellContext context;
    context.table = table_;
    context.adaptor = adaptor;
    context.pos = cell;
    context.box = Zo::Box<int>(left, 0, right, height());
    context.renderer = &renderer;
    context.isCurrentRow = current_;
    context.isTagged = tagged_;
    if (!adaptor->drawField(context, data))
      table_->editorFor(data.fieldType).drawField(context, data);
  }
  adaptor->unlockData();
  if (current_ && focused_ && table_->getCurPos().x >= 0 && table_->getCurPos().x < table_->numColumns()) {
    int const left = table_->columnLeft(table_->getCurPos().x);
    int const right = left + table_->getColumnWidth(table_->getCurPos().x);
    // The focus ring's width, so that the cell the keys act on stands out
    // from the highlighted row it lies in.
    double const ring = FocusRing::width();
    double const inset = ring / 2.0;
    renderer.renderPrimitive(
        Glib::RoundedRectDescription(Zo::Box<double>(left + inset, inset, right - inset, height() - inset), 0.0,
                                     Colour::invalid(), look.cellOutline, ring));
  }
}
