#include <zowidgets/host/widgets/lists/detail/TableHeader.h>

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/toolkit/CursorCodes.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <cstdlib>

TableHeader::TableHeader(TableWidget* table, XY<int> size) : Glob(GlobCreationInfo(size)), table_(table) {
  setPaintsOpaquely(true);
}

int TableHeader::gripAt(int x) const {
  int const reach = UifStd::getWidgetGap();
  for (int column = 0; column < table_->numColumns(); ++column) {
    int const edge = table_->columnLeft(column) + table_->getColumnWidth(column);
    if (std::abs(x - edge) <= reach && table_->getColumn(column).isResizeable())
      return column;
  }
  return -1;
}

int TableHeader::columnAt(int x) const {
  for (int column = 0; column < table_->numColumns(); ++column) {
    int const left = table_->columnLeft(column);
    if (x >= left && x < left + table_->getColumnWidth(column))
      return column;
  }
  return -1;
}

int TableHeader::contextCursor(XY<int> point) const {
  return dragging_ >= 0 || gripAt(point.x) >= 0 ? kCursorResizeHorizontal : Glob::contextCursor(point);
}

int TableHeader::react(Event const& event) {
  switch (event.type) {
  case Event::kMouseDown:
    if (!mouse_left_event(event))
      return 0;
    dragging_ = gripAt(event.position.x);
    if (dragging_ >= 0) {
      dragStartX_ = event.position.x;
      dragStartWidth_ = table_->getColumnWidth(dragging_);
    } else {
      pressed_ = columnAt(event.position.x);
    }
    return 1;
  case Event::kMouseMove:
    if (dragging_ < 0)
      return 0;
    table_->columnDragged(dragging_, dragStartWidth_ + event.position.x - dragStartX_, false);
    return 1;
  case Event::kMouseUp: {
    if (dragging_ >= 0) {
      int const column = dragging_;
      dragging_ = -1;
      table_->columnDragged(column, dragStartWidth_ + event.position.x - dragStartX_, true);
      return 1;
    }
    int const pressed = pressed_;
    pressed_ = -1;
    if (pressed < 0 || event.position.y < 0 || event.position.y >= height())
      return 1;
    int const released = columnAt(event.position.x);
    if (released == pressed)
      table_->titleClicked(pressed);
    else if (released >= 0)
      table_->titleDropped(pressed, released);
    return 1;
  }
  default:
    return Glob::react(event);
  }
}

void TableHeader::drawBackground(CanvasRenderer& renderer) {
  TableWidget::Look const look = TableWidget::lookFor(getPalette());
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), look.titleBackground));
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), 1), look.grid));
}

void TableHeader::draw(CanvasRenderer& renderer) {
  TableWidget::Look const look = TableWidget::lookFor(getPalette());
  int const margin = TableColumnDescription::textMargin();
  double const arrow = height() / 5.0;
  // The lines between titles stand where the rows' lines between cells do:
  // on the first pixel of each column after the first, and one past the last.
  for (int column = 0; column < table_->numColumns(); ++column) {
    int const left = table_->columnLeft(column);
    int const right = left + table_->getColumnWidth(column);
    if (column > 0)
      renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(left, 0, left + 1, height()), look.grid));
    if (column + 1 == table_->numColumns())
      renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(right, 0, right + 1, height()), look.grid));
    bool const sorted = table_->getSortColumn() == column;
    double const textRight = right - margin - (sorted ? 3 * arrow : 0);
    renderer.renderPrimitive(Glib::TextDescription(
        table_->getColumn(column).getTitle().getString(), Zo::Box<double>(left + margin, 0, textRight, height()),
        UifStd::getFont(), look.titleText, table_->getColumn(column).getAlignment()));
    if (sorted) {
      double const cx = right - margin - arrow;
      double const cy = height() / 2.0;
      // Up for ascending, down for descending (y counts up).
      std::vector<XY<double>> points = table_->isSortAscending() ? std::vector<XY<double>>{{cx - arrow, cy - arrow / 2},
                                                                                           {cx + arrow, cy - arrow / 2},
                                                                                           {cx, cy + arrow / 2}}
                                                                 : std::vector<XY<double>>{{cx - arrow, cy + arrow / 2},
                                                                                           {cx + arrow, cy + arrow / 2},
                                                                                           {cx, cy - arrow / 2}};
      renderer.renderPrimitive(Glib::TriangleFanDescription{points, {look.titleText}});
    }
  }
}
