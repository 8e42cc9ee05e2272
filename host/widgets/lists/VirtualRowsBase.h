#pragma once

#include <zowidgets/host/widgets/lists/RowOffsets.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

#include <map>

class ScrollBar;

// A panel that shows many rows in a scrolling view, with a widget only for
// each row in sight. Scrolling drops the rows that leave and
// asks makeRow for those that arrive, so the cost follows the view, not the
// row count. The scroll bar shows only when the rows overflow; the wheel
// scrolls three rows a step. Rows share one height unless a subclass
// measures them (measureRowHeights). The base of lists, trees and tables.
class ZO_API VirtualRowsBase : public StandardPanel {
public:
  using InitArgs = StandardPanel::InitArgs;

  VirtualRowsBase(InitArgs const& args, int rowHeight);
  ~VirtualRowsBase() override;

  virtual int rowCount() const = 0;
  // The common row height; a row of its own height may differ.
  int getRowHeight() const noexcept { return rowHeight_; }
  RowOffsets const& getRowOffsets() const;

  // Scrolling, in pixels from the top of the first row.
  int getScrollOffset() const noexcept { return offset_; }
  void setScrollOffset(int offset);
  // Scrolls as little as needed to show the whole of a row.
  void scrollToShow(int index);
  int getFirstVisibleIndex() const;
  int getLastVisibleIndex() const;
  // Whole rows the view holds.
  int linesPerPage() const;
  // The part of the canvas where rows show: rows are cut to it.
  Zo::Box<int> getVisibleBox() const;
  // How many row widgets exist: those of the rows in sight.
  int liveRowCount() const;
  // The row under a point of this panel, -1 for none.
  int rowIndexAt(XY<int> point) const;
  // The row widget of a row in sight, else null.
  Glob* getRowGlob(int index) const;
  // Without leave, the scroll bar never shows (the wheel and keys still
  // scroll).
  void setScrollBarAllowed(bool allowed);
  Glob* getView() const noexcept { return view_; }
  ScrollBar* getScrollBar() const noexcept { return scrollBar_; }

  void resize(double width, double height) override;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;
  int handleMouseEvent(Event const& event) override;

protected:
  // Makes the widget of one row; the base adds, places and sizes it.
  virtual Glob* makeRow(int index, int width, int height) = 0;
  // Fills in where each row starts, each time the rows change or the panel
  // is resized: by default every row has the common height. A subclass whose
  // rows differ says how to ask them (RowOffsets::setMeasured).
  virtual void measureRowHeights(RowOffsets& offsets) const { offsets.setUniform(rowCount(), rowHeight_); }
  // Brings a live row's look up to date (selection, focus, ...).
  virtual void updateRow(int, Glob*) {}
  // After the rows in sight were made, dropped or moved.
  virtual void rowsPlaced() {}
  // The rows changed in number or content: every row is made afresh.
  void rowsChanged();
  // A new row height; the row at the top stays there.
  void changeRowHeight(int height);
  // The user area changed without a resize (a sideways bar came or went):
  // fits the view to it and places the rows again.
  void refitView();
  // Calls updateRow on the live rows from `from` to `to`.
  void refreshRows(int from, int to);
  void draw(CanvasRenderer& renderer) override;

private:
  void ensureRows() const;
  void fitViewToUserArea();
  // The bar's thumb for the content's height and the offset.
  void showScrollPosition();
  int contentHeight() const;
  void measureRows();
  int maxOffset() const;
  // Makes the rows that came into sight, drops those that left, and puts
  // each where the offset says.
  void syncRows();
  void dropAllRows();

  Glob* view_ = nullptr;
  ScrollBar* scrollBar_ = nullptr;
  std::map<int, Glob*> rows_;
  RowOffsets offsets_;
  int rowHeight_;
  int offset_ = 0;
  bool rowsPending_ = true;
  // The view's size and the rows' offsets wait for the first use.
  bool fitPending_ = true;
  bool scrollBarAllowed_ = true;
};
