#pragma once

#include <zowidgets/host/widgets/lists/TableWidget.h>

// The title row of a table: each column's title, an arrow on the sorted
// column, and a divider at each column's right edge. A click on a title asks
// the table to sort; a drag of a resizable column's edge widens it; a title
// dragged onto another asks the table to swap the two.
class TableHeader : public Glob {
public:
  TableHeader(TableWidget* table, XY<int> size);
  char const* idstring() const override { return "TableHeader"; }

  // The column whose right edge is under x (within a grip's reach), -1 for
  // none; only resizable columns have grips.
  int gripAt(int x) const;
  // The column under x, -1 for none.
  int columnAt(int x) const;

  int react(Event const& event) override;
  int contextCursor(XY<int> point) const override;

protected:
  void drawBackground(CanvasRenderer& renderer) override;
  void draw(CanvasRenderer& renderer) override;

private:
  TableWidget* table_;
  int dragging_ = -1; // the column being resized
  int dragStartX_ = 0;
  int dragStartWidth_ = 0;
  int pressed_ = -1; // the title pressed
};
