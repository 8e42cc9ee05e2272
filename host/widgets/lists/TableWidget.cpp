#include <zowidgets/host/widgets/lists/TableWidget.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/detail/FocusRing.h>
#include <zowidgets/host/widgets/lists/HTMLStringEditor.h>
#include <zowidgets/host/widgets/lists/WStringEditor.h>
#include <zowidgets/host/widgets/lists/detail/TableHeader.h>
#include <zowidgets/host/widgets/lists/detail/TableRow.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr char const* kFrameWidthParam = "TableFrameWidth";

int rowHeightFor(TableWidget::InitArgs const& args) {
  return args.rowHeight > 0 ? args.rowHeight : UifStd::getRowHeight();
}

} // namespace

TableWidget::Look TableWidget::lookFor(Palette const& palette) {
  Look look;
  look.background = palette.window(-1);
  look.currentRow = palette.window(1);
  look.currentRowFocused = palette.selection();
  look.tagged = Colour::mix(palette.window(-1), palette.selection(), 0.4);
  look.grid = Colour::mix(palette.window(-1), palette.text(), 0.15);
  look.text = palette.text();
  look.currentText = palette.text(2);
  look.cellOutline = FocusRing::colourOver(palette, look.currentRowFocused);
  look.titleBackground = palette.window(1);
  look.titleText = palette.text();
  look.frame = palette.window(-3);
  look.frameWidth =
      std::max(1, static_cast<int>(std::lround(UifStd::getTheme().get(kFrameWidthParam, 1.0) * UifStd::getScale())));
  return look;
}

TableWidget::TableWidget(InitArgs const& args)
    : VirtualRowsBase(args, rowHeightFor(args)), adaptor_(args.adaptor), options_(args.options),
      textEditor_(std::make_unique<WStringEditor>()) {
  editors_[DBFieldTypes::kReadOnly] = std::make_unique<ReadOnlyCellEditor>();
  editors_[DBFieldTypes::kHTMLString] = std::make_unique<HTMLStringEditor>();
  if (options_ & kShowTitles) {
    header_ = new TableHeader(this, XY<int>(std::max(width(), 1), titleHeight()));
    addWidget(header_);
  }
  // The rows' view was placed before this class could shape the user area.
  layoutChildren();
  placeHeader();
  refresh();
}

// The adaptor may be gone already: put the editor away without asking it.
TableWidget::~TableWidget() {
  if (editor_)
    editor_->hide();
}

int TableWidget::calcHeight(int numRows, int options, Theme const& theme) {
  int const row = UifStd::getRowHeight();
  int height = std::max(numRows, 0) * row;
  if (options & kShowTitles)
    height += row;
  if (options & kFramed)
    height += 2 * std::max(1, static_cast<int>(std::lround(theme.get(kFrameWidthParam, 1.0) * UifStd::getScale())));
  return height;
}

int TableWidget::calcHeight(int numRows, int options) { return calcHeight(numRows, options, UifStd::getTheme()); }

int TableWidget::frameWidth() const { return (options_ & kFramed) ? lookFor(getPalette()).frameWidth : 0; }

int TableWidget::titleHeight() const { return (options_ & kShowTitles) ? UifStd::getRowHeight() : 0; }

Glob* TableWidget::getHeader() const noexcept { return header_; }

Zo::Box<int> TableWidget::getUserArea() const {
  Zo::Box<int> area = StandardPanel::getUserArea();
  int const frame = frameWidth();
  int const bottom = area.y0 + frame + sideways_.barHeight();
  area = Zo::Box<int>(area.x0 + frame, bottom, std::max(area.x1 - frame, area.x0 + frame),
                      std::max(area.y1 - frame - titleHeight(), bottom));
  return area;
}

void TableWidget::placeHeader() {
  if (!header_)
    return;
  Zo::Box<int> const rows = getUserArea();
  header_->resize(rows.width(), titleHeight());
  header_->setPosition(XY<int>(rows.x0, rows.y1));
}

void TableWidget::resize(double width, double height) {
  Drawable::Suspender const oneRepaint;
  VirtualRowsBase::resize(width, height);
  placeHeader();
  placeEditWidget();
}

void TableWidget::setAdaptor(iTableAdaptor* adaptor) {
  closeEditor();
  adaptor_ = adaptor;
  curPos_ = XY<int>(-1, -1);
  sortColumn_ = -1;
  refresh();
}

void TableWidget::readColumns() {
  columns_ = adaptor_ ? adaptor_->getColumnDefinitions() : std::vector<TableColumnDescription>();
  widthsFor_ = -1;
}

int TableWidget::rowWithID(std::int64_t id, int hint) const {
  if (hint >= 0 && hint < rowCount_ && adaptor_->getRowID(hint) == id)
    return hint;
  for (int row = 0; row < rowCount_; ++row)
    if (adaptor_->getRowID(row) == id)
      return row;
  return -1;
}

void TableWidget::refresh() {
  Drawable::Suspender const oneRepaint;
  // The model may have changed under the current row: find it by the id it
  // had when it became current.
  bool const hadCurrent = adaptor_ && curPos_.y >= 0;
  if (editor_)
    cancelEdit();
  readColumns();
  rowCount_ = adaptor_ ? std::max(adaptor_->getSize(), 0) : 0;
  if (hadCurrent) {
    int const row = rowWithID(curID_, curPos_.y);
    curPos_ = row < 0 ? XY<int>(-1, -1) : XY<int>(std::min(curPos_.x, numColumns() - 1), row);
  } else {
    curPos_ = XY<int>(-1, -1);
  }
  rowsChanged();
  if (header_)
    header_->invalidate();
}

void TableWidget::redrawRows() { refreshRows(0, rowCount_); }

void TableWidget::registerEditor(int fieldType, std::unique_ptr<iCellEditor> editor) {
  if (!editor)
    return;
  if (editor_ && editor_ == &editorFor(fieldType))
    cancelEdit();
  editors_[fieldType] = std::move(editor);
  redrawRows();
}

TableWidget::iCellEditor& TableWidget::editorFor(int fieldType) const {
  auto found = editors_.find(fieldType);
  return found == editors_.end() ? *textEditor_ : *found->second;
}

// --- Columns ----------------------------------------------------------------

void TableWidget::ensureColumns() const {
  int const available = getView()->width();
  if (available == widthsFor_ && widths_.size() == columns_.size())
    return;
  widthsFor_ = available;
  widths_.assign(columns_.size(), 0);
  lefts_.assign(columns_.size(), 0);
  int fixed = 0;
  int shares = 0;
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    if (columns_[column].getWidth() > 0) {
      widths_[column] = std::max(columns_[column].getWidth(), columns_[column].calcMinWidth());
      fixed += widths_[column];
    } else {
      ++shares;
    }
  }
  // Columns without a width share what is left, the last taking the odd
  // pixels so that they meet the right edge exactly.
  int left = std::max(available - fixed, 0);
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    if (columns_[column].getWidth() > 0)
      continue;
    int const share = shares == 1 ? left : left / shares;
    widths_[column] = std::max(share, columns_[column].calcMinWidth());
    left = std::max(left - share, 0);
    --shares;
  }
  int x = 0;
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    lefts_[column] = x;
    x += widths_[column];
  }
}

int TableWidget::getColumnWidth(int column) const {
  if (column < 0 || column >= numColumns())
    return 0;
  ensureColumns();
  return widths_[column];
}

int TableWidget::columnLeft(int column) const {
  if (column < 0 || column >= numColumns())
    return 0;
  ensureColumns();
  return lefts_[column] - sideways_.offset();
}

int TableWidget::columnsWidth() const {
  ensureColumns();
  return lefts_.empty() ? 0 : lefts_.back() + widths_.back();
}

void TableWidget::fitSideways() {
  if (sideways_.setWidths(columnsWidth(), getView()->width())) {
    // The bar takes its height from the rows, or gives it back.
    refitView();
    return;
  }
  Zo::Box<int> const rows = getUserArea();
  sideways_.placeBar(XY<int>(rows.x0, rows.y0 - sideways_.barHeight()));
}

void TableWidget::scrolledSideways() {
  Drawable::Suspender const oneRepaint;
  redrawRows();
  if (header_)
    header_->invalidate();
  placeEditWidget();
}

void TableWidget::columnsChanged() {
  Drawable::Suspender const oneRepaint;
  widthsFor_ = -1;
  redrawRows();
  if (header_)
    header_->invalidate();
  fitSideways();
  placeEditWidget();
}

void TableWidget::setColumnWidth(int column, int width) {
  if (column < 0 || column >= numColumns())
    return;
  columns_[column].setWidth(std::max(width, columns_[column].calcMinWidth()));
  columnsChanged();
}

void TableWidget::columnDragged(int column, int width, bool finished) {
  if (column < 0 || column >= numColumns() || !columns_[column].isResizeable())
    return;
  setColumnWidth(column, width);
  if (finished)
    report(TableWidgetEvent::kColumnResized, XY<int>(column, -1));
}

bool TableWidget::sortBy(int column, bool ascending) {
  if (!adaptor_ || column < 0 || column >= numColumns())
    return false;
  if (editor_)
    commitEdit();
  bool const hadCurrent = curPos_.y >= 0 && curPos_.y < rowCount_;
  if (!adaptor_->sort(column, ascending))
    return false;
  sortColumn_ = column;
  sortAscending_ = ascending;
  if (hadCurrent)
    curPos_.y = rowWithID(curID_, curPos_.y);
  if (curPos_.y < 0)
    curPos_ = XY<int>(-1, -1);
  rowsChanged();
  if (curPos_.y >= 0)
    scrollToShow(curPos_.y);
  if (header_)
    header_->invalidate();
  report(TableWidgetEvent::kSorted, XY<int>(column, -1));
  return true;
}

void TableWidget::titleClicked(int column) { sortBy(column, sortColumn_ == column ? !sortAscending_ : true); }

void TableWidget::titleDropped(int from, int to) {
  if (!adaptor_ || from == to || !adaptor_->swapFields(from, to))
    return;
  if (editor_)
    cancelEdit();
  readColumns();
  columnsChanged();
}

// --- Rows -------------------------------------------------------------------

void TableWidget::measureRowHeights(RowOffsets& offsets) const {
  if (!adaptor_) {
    offsets.setUniform(rowCount_, getRowHeight());
    return;
  }
  iTableAdaptor* adaptor = adaptor_;
  offsets.setMeasured(rowCount_, getRowHeight(), [adaptor](int row) { return adaptor->getRowHeight(row); });
}

Glob* TableWidget::makeRow(int index, int width, int height) {
  return new TableRow(this, index, XY<int>(width, height));
}

void TableWidget::updateRow(int index, Glob* row) {
  // Switched off, the highlight still shows while the keys act on the
  // table, so that they are seen to do something.
  bool const current = (highlightCurrentRow_ || hasKbdFocus()) && index == curPos_.y;
  bool const tagged = adaptor_ && adaptor_->getTag(index);
  static_cast<TableRow*>(row)->refresh(current, hasKbdFocus(), tagged);
}

void TableWidget::rowsPlaced() {
  fitSideways();
  placeEditWidget();
}

XY<int> TableWidget::cellAt(XY<int> point) const {
  int const row = rowIndexAt(point);
  if (row < 0)
    return XY<int>(-1, -1);
  int const x = point.x - getView()->getX();
  for (int column = 0; column < numColumns(); ++column)
    if (x >= columnLeft(column) && x < columnLeft(column) + getColumnWidth(column))
      return XY<int>(column, row);
  return XY<int>(-1, -1);
}

Zo::Box<int> TableWidget::getCellBox(XY<int> cell) const {
  RowOffsets const& offsets = getRowOffsets();
  if (cell.y < 0 || cell.y >= offsets.count() || cell.x < 0 || cell.x >= numColumns())
    return Zo::Box<int>();
  Glob const* view = getView();
  int const height = offsets.heightOf(cell.y);
  int const y0 = view->getY() + view->height() - offsets.top(cell.y) - height + getScrollOffset();
  int const x0 = view->getX() + columnLeft(cell.x);
  return Zo::Box<int>(x0, y0, x0 + getColumnWidth(cell.x), y0 + height);
}

iTableAdaptor::CellContext TableWidget::contextFor(XY<int> cell) const {
  iTableAdaptor::CellContext context;
  context.table = const_cast<TableWidget*>(this);
  context.adaptor = adaptor_;
  context.pos = cell;
  context.box = getCellBox(cell);
  context.isCurrentRow = cell.y == curPos_.y;
  context.isTagged = adaptor_ && cell.y >= 0 && adaptor_->getTag(cell.y);
  return context;
}

// --- The current cell -------------------------------------------------------

void TableWidget::report(int type, XY<int> cell) { broadcast(TableWidgetEvent{type, cell, this}); }

void TableWidget::setCurPos(XY<int> cell, int flags) {
  if (adaptor_ && cell.y >= rowCount_)
    refresh(); // the model grew since it was last asked
  if (rowCount_ == 0 || numColumns() == 0)
    return;
  cell = XY<int>(std::clamp(cell.x, 0, numColumns() - 1), std::clamp(cell.y, 0, rowCount_ - 1));
  if (editor_ && editPos_ != cell)
    commitEdit();
  XY<int> const old = curPos_;
  curPos_ = cell;
  curID_ = adaptor_ ? adaptor_->getRowID(cell.y) : cell.y;
  refreshRows(old.y, old.y);
  refreshRows(cell.y, cell.y);
  if (flags & kRowAtBottom) {
    RowOffsets const& offsets = getRowOffsets();
    setScrollOffset(offsets.top(cell.y) + offsets.heightOf(cell.y) - getView()->height());
  } else if (flags & kShowCell) {
    scrollToShow(cell.y);
  }
  if (flags & kShowCell) {
    ensureColumns();
    sideways_.scrollToShow(lefts_[cell.x], lefts_[cell.x] + widths_[cell.x]);
  }
  if (!(flags & kQuiet) && old != cell)
    report(TableWidgetEvent::kCurrentChanged, cell);
}

void TableWidget::setHighlightCurrentRow(bool highlight) {
  highlightCurrentRow_ = highlight;
  redrawRows();
}

void TableWidget::hideTextEntryBox(bool hide) {
  textEntryHidden_ = hide;
  if (hide && editor_)
    cancelEdit();
}

void TableWidget::tagRows(int from, int to, bool tagged) {
  if (!adaptor_)
    return;
  adaptor_->setTags(std::min(from, to), std::max(from, to), tagged);
  redrawRows();
  report(TableWidgetEvent::kTagsChanged, XY<int>(-1, to));
}

XY<int> TableWidget::neighbour(XY<int> cell, int step) const {
  int const columns = numColumns();
  long long const index = static_cast<long long>(cell.y) * columns + cell.x + step;
  if (columns == 0 || index < 0 || index >= static_cast<long long>(rowCount_) * columns)
    return XY<int>(-1, -1);
  return XY<int>(static_cast<int>(index % columns), static_cast<int>(index / columns));
}

// --- Editing ----------------------------------------------------------------

bool TableWidget::beginEdit(XY<int> cell) {
  if (textEntryHidden_ || !adaptor_ || cell.x < 0 || cell.x >= numColumns() || cell.y < 0 || cell.y >= rowCount_)
    return false;
  if (editor_ && editPos_ == cell)
    return true;
  setCurPos(cell, kShowCell);
  iTableAdaptor::CellData const data = adaptor_->getCellData(cell, getPalette());
  if (data.readOnly)
    return false;
  iCellEditor& editor = editorFor(data.fieldType);
  Glob* widget = editor.getWidget(this);
  if (!widget)
    return false;
  editor_ = &editor;
  editWidget_ = widget;
  editPos_ = cell;
  iTableAdaptor::CellContext const context = contextFor(cell);
  editor.clearChanged();
  editor.initWidgetFromData(context, data);
  placeEditWidget();
  refreshRows(cell.y, cell.y);
  widget->claimKbdFocus();
  return true;
}

void TableWidget::placeEditWidget() {
  if (!editor_ || !is_good_glob_ptr(editWidget_))
    return;
  Zo::Box<int> const cell = getCellBox(editPos_);
  Zo::Box<int> const view = getView()->canvasBox();
  Zo::Box<int> const viewHere(getView()->getX(), getView()->getY(), getView()->getX() + view.width(),
                              getView()->getY() + view.height());
  // A cell scrolled partly out of sight hides its editor rather than let it
  // stand over the titles or the frame.
  bool const inSight = cell.width() > 0 && cell.y0 >= viewHere.y0 && cell.y1 <= viewHere.y1 && cell.x0 >= viewHere.x0 &&
                       cell.x0 < viewHere.x1;
  if (inSight) {
    editWidget_->resize(std::min(cell.x1, viewHere.x1) - cell.x0, cell.height());
    editWidget_->setPosition(XY<int>(cell.x0, cell.y0));
  }
  editWidget_->setVisible(inSight);
}

void TableWidget::closeEditor() {
  if (!editor_)
    return;
  bool const hadFocus = editor_->hasFocus();
  Glob* const widget = editWidget_;
  editor_->hide();
  editor_ = nullptr;
  editWidget_ = nullptr;
  int const row = editPos_.y;
  editPos_ = XY<int>(-1, -1);
  // The keys come back here from the editor, and from its hidden widget when
  // they were handed back to it (a drop-down it opened gives them back to it
  // as it closes with the edit): a hidden widget must not take keys.
  Glob* const focus = get_kbd_focus();
  bool const leftWithWidget =
      focus && is_good_glob_ptr(widget) && (focus == widget || isParentedTo(focus, widget)) && !focus->isShowing();
  if (hadFocus || leftWithWidget)
    claimKbdFocus();
  refreshRows(row, row);
}

bool TableWidget::commitEdit() {
  if (!editor_)
    return false;
  iTableAdaptor::CellContext context = contextFor(editPos_);
  bool const changed = editor_->hasChanged(context);
  int const stored = changed ? editor_->storeData(context) : 0;
  editor_->clearChanged();
  closeEditor();
  if (stored > 0) {
    // An editor may write several rows at once.
    redrawRows();
    report(TableWidgetEvent::kCellStored, context.pos);
  }
  return !changed || stored > 0;
}

void TableWidget::cancelEdit() {
  if (!editor_)
    return;
  editor_->reset();
  editor_->clearChanged();
  closeEditor();
}

bool TableWidget::editNeighbour(int step) {
  XY<int> const next = neighbour(editor_ ? editPos_ : curPos_, step);
  if (editor_)
    commitEdit();
  if (next.x < 0)
    return false;
  setCurPos(next, kShowCell);
  beginEdit(next);
  return true;
}

// --- Input ------------------------------------------------------------------

int TableWidget::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (editor_ && editor_->isResponsibleForMessage(message, sender)) {
    commitEdit();
    return 1;
  }
  if (sideways_.handleMessage(message, sender))
    return 1;
  return VirtualRowsBase::handleMessageEvent(message, sender);
}

int TableWidget::handleKeyboardEvent(int key) {
  int const bare = key & ~kKeyModifierMask;
  bool const shift = (key & kKeyShift) != 0;
  bool const ctrl = (key & kKeyCtrl) != 0;
  if (editor_) {
    // Keys the edit box left alone.
    switch (bare) {
    case kKeyEscape:
      cancelEdit();
      return 1;
    case kKeyTab:
      return editNeighbour(shift ? -1 : 1) ? 1 : 0;
    default:
      return VirtualRowsBase::handleKeyboardEvent(key);
    }
  }
  if (rowCount_ == 0 || numColumns() == 0)
    return VirtualRowsBase::handleKeyboardEvent(key);
  XY<int> const at = curPos_.y < 0 ? XY<int>(0, 0) : curPos_;
  auto moveTo = [&](XY<int> cell) {
    if (shift && (bare == kKeyUp || bare == kKeyDown || bare == kKeyPageUp || bare == kKeyPageDown)) {
      if (tagAnchor_ < 0)
        tagAnchor_ = at.y;
      cell.y = std::clamp(cell.y, 0, rowCount_ - 1);
      tagRows(tagAnchor_, cell.y, true);
    } else {
      tagAnchor_ = -1;
    }
    setCurPos(cell, kShowCell);
  };
  int const page = std::max(1, numLines() - 1);
  switch (bare) {
  case kKeyUp:
    moveTo(XY<int>(at.x, curPos_.y < 0 ? 0 : at.y - 1));
    return 1;
  case kKeyDown:
    if (curPos_.y == rowCount_ - 1 && adaptor_->requestAddRow()) {
      refresh();
      moveTo(XY<int>(at.x, rowCount_ - 1));
      return 1;
    }
    moveTo(XY<int>(at.x, curPos_.y < 0 ? 0 : at.y + 1));
    return 1;
  case kKeyLeft:
    moveTo(XY<int>(at.x - 1, at.y));
    return 1;
  case kKeyRight:
    moveTo(XY<int>(curPos_.y < 0 ? 0 : at.x + 1, at.y));
    return 1;
  case kKeyPageUp:
    moveTo(XY<int>(at.x, at.y - page));
    return 1;
  case kKeyPageDown:
    moveTo(XY<int>(at.x, at.y + page));
    return 1;
  // Along the row, or with Ctrl down the column; a table of one column (a
  // log, a list of names) has no row to go along, so they go down it.
  case kKeyHome:
    moveTo(XY<int>(ctrl ? at.x : 0, ctrl || numColumns() == 1 ? 0 : at.y));
    return 1;
  case kKeyEnd:
    moveTo(XY<int>(ctrl ? at.x : numColumns() - 1, ctrl || numColumns() == 1 ? rowCount_ - 1 : at.y));
    return 1;
  case kKeyTab: {
    // A table that edits nothing (a file list) is one stop: Tab goes on to
    // the next widget. Otherwise Tab walks the cells, and past the first or
    // last one leaves the table.
    if (textEntryHidden_)
      return 0;
    XY<int> const next = curPos_.y < 0 ? XY<int>(0, 0) : neighbour(curPos_, shift ? -1 : 1);
    if (next.x < 0)
      return 0;
    setCurPos(next, kShowCell);
    return 1;
  }
  case kKeyReturn:
    return curPos_.y >= 0 && beginEdit(curPos_) ? 1 : 0;
  case kKeyEscape:
    // Tags all go at once; with none, Escape is left to the window. Not
    // every adaptor counts its tags, so the rows are asked.
    if (adaptor_->getNumTagged() == 0) {
      bool anyTagged = false;
      for (int row = 0; row < rowCount_ && !anyTagged; ++row)
        anyTagged = adaptor_->getTag(row);
      if (!anyTagged)
        return 0;
    }
    tagRows(0, rowCount_ - 1, false);
    tagAnchor_ = -1;
    return 1;
  case 'a':
  case 'A':
    if (ctrl) {
      tagRows(0, rowCount_ - 1, true);
      return 1;
    }
    break;
  case ' ':
    if (ctrl && curPos_.y >= 0) {
      tagRows(curPos_.y, curPos_.y, !adaptor_->getTag(curPos_.y));
      return 1;
    }
    break;
  default:
    break;
  }
  // A character starts an edit; the text event that follows lands in the
  // editor's box, replacing the selected text.
  bool const printable = bare >= ' ' && bare < kKeySpecial && !ctrl && (key & kKeyAlt) == 0;
  if (printable && curPos_.y >= 0 && beginEdit(curPos_))
    return 1;
  return VirtualRowsBase::handleKeyboardEvent(key);
}

void TableWidget::clickCell(XY<int> cell, Event const& event) {
  bool const shift = (event.modifiers & kKeyShift) != 0;
  bool const ctrl = (event.modifiers & kKeyCtrl) != 0;
  bool const wasCurrent = cell == curPos_;
  if (ctrl) {
    tagRows(cell.y, cell.y, !adaptor_->getTag(cell.y));
    tagAnchor_ = cell.y;
  } else if (shift) {
    tagRows(tagAnchor_ < 0 ? (curPos_.y < 0 ? cell.y : curPos_.y) : tagAnchor_, cell.y, true);
  } else {
    tagAnchor_ = cell.y;
  }
  setCurPos(cell, kShowCell);
  if (!shift && !ctrl && (event.clicks >= 2 || wasCurrent))
    beginEdit(cell);
}

int TableWidget::handleMouseEvent(Event const& event) {
  if (sideways_.handleWheel(event))
    return 1;
  if (event.type == Event::kMouseWheel || !adaptor_)
    return VirtualRowsBase::handleMouseEvent(event);
  XY<int> const cell = cellAt(event.position);
  if (event.type == Event::kMouseMove) {
    if (cell.x >= 0)
      adaptor_->handleMouseContainment(cell);
    if (event.buttons != 0 && pressCell_.x >= 0 && !dragReported_) {
      int const dx = event.position.x - pressPoint_.x;
      int const dy = event.position.y - pressPoint_.y;
      if (std::lround(std::sqrt(dx * dx + dy * dy)) >= UifStd::getWidgetGap()) {
        dragReported_ = true;
        adaptor_->handleMouseDragStart(pressCell_, event);
      }
    }
  }
  if (cell.x < 0) {
    if (event.type == Event::kMouseDown)
      claimKbdFocus();
    return VirtualRowsBase::handleMouseEvent(event);
  }
  if (adaptor_->handleMouseClickEvent(cell, event))
    return 1;
  iTableAdaptor::CellData const data = adaptor_->getCellData(cell, getPalette());
  // An editor busy with another cell keeps its widget to that cell.
  iCellEditor& cellEditor = editorFor(data.fieldType);
  if (&cellEditor != editor_ && cellEditor.handleEvent(contextFor(cell), data, event))
    return 1;
  if (event.type != Event::kMouseDown || !mouse_left_event(event))
    return event.type == Event::kMouseUp ? 1 : VirtualRowsBase::handleMouseEvent(event);
  pressPoint_ = event.position;
  pressCell_ = cell;
  dragReported_ = false;
  if (editor_ && editPos_ != cell)
    commitEdit();
  claimKbdFocus();
  clickCell(cell, event);
  return 1;
}

void TableWidget::handleKbdFocus(bool gained) {
  VirtualRowsBase::handleKbdFocus(gained);
  refreshRows(curPos_.y, curPos_.y);
}

int TableWidget::contextCursor(XY<int> point) const {
  XY<int> const cell = adaptor_ ? cellAt(point) : XY<int>(-1, -1);
  if (cell.x < 0)
    return VirtualRowsBase::contextCursor(point);
  iTableAdaptor::CellData const data = adaptor_->getCellData(cell, getPalette());
  return editorFor(data.fieldType).contextCursor(contextFor(cell), data, point);
}

void TableWidget::draw(CanvasRenderer& renderer) {
  VirtualRowsBase::draw(renderer);
  int const frame = frameWidth();
  if (frame <= 0)
    return;
  Zo::Box<int> const outer = StandardPanel::getUserArea();
  Colour const colour = lookFor(getPalette()).frame;
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(outer.x0, outer.y0, outer.x1, outer.y0 + frame), colour));
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(outer.x0, outer.y1 - frame, outer.x1, outer.y1), colour));
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(outer.x0, outer.y0, outer.x0 + frame, outer.y1), colour));
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(outer.x1 - frame, outer.y0, outer.x1, outer.y1), colour));
}
