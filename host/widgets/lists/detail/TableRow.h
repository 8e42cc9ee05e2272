#pragma once

#include <zowidgets/host/widgets/lists/TableWidget.h>

#include <vector>

// One line of a table. It draws its cells from the table it belongs to,
// which drops its rows before it goes, and holds the custom widgets the
// adaptor gave for its cells. Presses and keys belong to the table.
class TableRow : public Glob {
public:
  TableRow(TableWidget* table, int index, XY<int> size);
  char const* idstring() const override { return "TableRow"; }

  int getIndex() const noexcept { return index_; }
  // Brings the row up to date with the table: look, custom widgets' places,
  // and a redraw.
  void refresh(bool current, bool focused, bool tagged);
  int react(Event const& event) override;

protected:
  void drawBackground(CanvasRenderer& renderer) override;
  void draw(CanvasRenderer& renderer) override;

private:
  void placeCustomWidgets();

  TableWidget* table_;
  int index_;
  std::vector<Glob*> custom_; // by column; null where the cell is drawn
  bool current_ = false;
  bool focused_ = false;
  bool tagged_ = false;
};
