#pragma once

#include <zowidgets/host/widgets/lists/VirtualRowsBase.h>
#include <zowidgets/host/widgets/lists/iTableAdaptor.h>
#include <zowidgets/host/widgets/panels/HorizontalScroller.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <map>
#include <memory>
#include <vector>

class TableWidget;
class TableHeader;
class Theme;

// What a table tells its listeners.
struct TableWidgetEvent {
  enum eType : int {
    kCurrentChanged = 1, // the current cell moved
    kCellStored = 2,     // an edit went into the model
    kSorted = 3,         // the rows were ordered by a column
    kColumnResized = 4,  // the user dragged a column's edge
    kTagsChanged = 5,    // rows were tagged or untagged by the user
  };
  int type = kCurrentChanged;
  XY<int> cell;
  TableWidget* table = nullptr;
};

// Rows and columns from an iTableAdaptor, with widgets only for the rows in
// sight and the cell being edited, so a million rows cost what a screenful
// does. Rows may each have their own height (iTableAdaptor::getRowHeight).
//
// One cell is current; its row is highlighted, or, where that is switched
// off (a log), only while the table has the keyboard.
// The arrows, Page Up/Down, Home/End and Tab move it. Return, F2, a double
// click, a click on the current cell or typing a character opens the cell's
// editor (registered per field type); in it Return stores through the
// adaptor, Tab stores and moves to the next cell, Escape drops the edit.
// Ctrl-click and Shift-click tag rows through the adaptor. With titles, a
// click on one sorts by it and a drag of a column's right edge resizes it.
// Columns wider together than the view scroll sideways (HorizontalScroller).
class ZO_API TableWidget : public VirtualRowsBase, public Broadcaster<TableWidgetEvent> {
public:
  class iCellEditor;

  // Options, as bits.
  enum eOption : int {
    kShowTitles = 1, // a title row above the cells
    kFramed = 2,     // a sunken frame round the rows
  };
  // Flags for setCurPos, as bits.
  enum eCurPosFlag : int {
    kShowCell = 1,    // scroll the cell into sight
    kRowAtBottom = 4, // scroll so the row is the last one in sight
    kQuiet = 8,       // tell no listener
  };

  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : StandardPanel::InitArgs(info) {}
    iTableAdaptor* adaptor = nullptr; // not owned; must outlive the table
    int options = 0;
    int rowHeight = 0; // 0: the interface's row height
  };

  explicit TableWidget(InitArgs const& args);
  ~TableWidget() override;
  char const* idstring() const override { return "TableWidget"; }

  // The height that shows `numRows` rows with these options, for a table
  // without a border of its own (InitArgs::setBorder(Border())).
  static int calcHeight(int numRows, int options, Theme const& theme);
  static int calcHeight(int numRows, int options = 0);

  void setAdaptor(iTableAdaptor* adaptor);
  iTableAdaptor* getAdaptor() const noexcept { return adaptor_; }
  // Asks the adaptor again for the columns and rows; the current cell stays
  // on the row with the same id.
  void refresh();
  // Redraws the rows in sight from the model, without re-asking the size.
  void redrawRows();
  int getOptions() const noexcept { return options_; }

  // Editors by field type; the table owns them. A type without one gets the
  // text editor.
  void registerEditor(int fieldType, std::unique_ptr<iCellEditor> editor);
  iCellEditor& editorFor(int fieldType) const;

  // Columns.
  int numColumns() const noexcept { return static_cast<int>(columns_.size()); }
  TableColumnDescription const& getColumn(int column) const { return columns_.at(column); }
  // The column's width in pixels as laid out now.
  int getColumnWidth(int column) const;
  // Fixes a column's width (at least its least width), as a drag does.
  void setColumnWidth(int column, int width);
  int getSortColumn() const noexcept { return sortColumn_; }
  bool isSortAscending() const noexcept { return sortAscending_; }
  // Sorts by a column through the adaptor; false when it cannot.
  bool sortBy(int column, bool ascending);

  // The current cell; (-1, -1) when there is none.
  XY<int> getCurPos() const noexcept { return curPos_; }
  void setCurPos(XY<int> cell, int flags = kShowCell);
  void setHighlightCurrentRow(bool highlight);
  bool highlightsCurrentRow() const noexcept { return highlightCurrentRow_; }
  // Hidden, no cell is ever edited: the table is for reading, and Tab
  // passes it by instead of walking its cells.
  void hideTextEntryBox(bool hide);
  bool isTextEntryHidden() const noexcept { return textEntryHidden_; }
  // Whole rows the view shows.
  int numLines() const { return linesPerPage(); }

  // Editing.
  bool beginEdit(XY<int> cell);
  // Stores the edit through the editor and adaptor; false when nothing was
  // being edited or the model refused it. The editor closes either way.
  bool commitEdit();
  void cancelEdit();
  bool isEditing() const noexcept { return editor_ != nullptr; }
  XY<int> getEditPos() const noexcept { return editPos_; }
  // The widget the cell is edited in; null when not editing.
  Glob* getEditWidget() const noexcept { return editWidget_; }

  // The cell under a point of this table, (-1, -1) for none; and a cell's
  // box in this table's coordinates.
  XY<int> cellAt(XY<int> point) const;
  Zo::Box<int> getCellBox(XY<int> cell) const;
  // The left edge of a column from the left of the rows' view, after the
  // sideways scroll.
  int columnLeft(int column) const;
  // The columns side by side, and the sideways scroll over them.
  int columnsWidth() const;
  HorizontalScroller const& sideways() const noexcept { return sideways_; }
  void setSidewaysOffset(int offset) { sideways_.setOffset(offset); }
  // The title row; null without kShowTitles.
  Glob* getHeader() const noexcept;

  int rowCount() const override { return rowCount_; }
  Zo::Box<int> getUserArea() const override;
  void resize(double width, double height) override;
  int handleKeyboardEvent(int key) override;
  int handleMouseEvent(Event const& event) override;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;
  void handleKbdFocus(bool gained) override;
  int contextCursor(XY<int> point) const override;

  // The table's look, from the palette and the interface metrics.
  struct Look {
    Colour background;
    Colour currentRow;
    Colour currentRowFocused;
    Colour tagged;
    Colour grid;
    Colour text;
    Colour currentText;
    Colour cellOutline;
    Colour titleBackground;
    Colour titleText;
    Colour frame;
    int frameWidth = 1;
  };
  static Look lookFor(Palette const& palette);

  // Called by the title row.
  void titleClicked(int column);
  void columnDragged(int column, int width, bool finished);
  void titleDropped(int from, int to);

protected:
  void measureRowHeights(RowOffsets& offsets) const override;
  Glob* makeRow(int index, int width, int height) override;
  void updateRow(int index, Glob* row) override;
  void rowsPlaced() override;
  void draw(CanvasRenderer& renderer) override;

private:
  void readColumns();
  // Lays the columns out for the view's width when it changed.
  void ensureColumns() const;
  void columnsChanged();
  // Shows the sideways bar when the columns overflow the view, and places it.
  void fitSideways();
  void scrolledSideways();
  void placeHeader();
  void placeEditWidget();
  void closeEditor();
  iTableAdaptor::CellContext contextFor(XY<int> cell) const;
  // The row that now has the id `id` had, searching from `hint`.
  int rowWithID(std::int64_t id, int hint) const;
  void clickCell(XY<int> cell, Event const& event);
  void tagRows(int from, int to, bool tagged);
  void report(int type, XY<int> cell);
  // The cell `step` cells on in reading order, or (-1, -1) past either end.
  XY<int> neighbour(XY<int> cell, int step) const;
  bool editNeighbour(int step);
  int frameWidth() const;
  int titleHeight() const;

  iTableAdaptor* adaptor_ = nullptr;
  int options_ = 0;
  int rowCount_ = 0;
  std::vector<TableColumnDescription> columns_;
  mutable std::vector<int> widths_;
  mutable std::vector<int> lefts_;
  mutable int widthsFor_ = -1;
  TableHeader* header_ = nullptr;
  std::map<int, std::unique_ptr<iCellEditor>> editors_;
  std::unique_ptr<iCellEditor> textEditor_;
  XY<int> curPos_{-1, -1};
  std::int64_t curID_ = -1; // the current row's id when it became current
  int tagAnchor_ = -1;
  iCellEditor* editor_ = nullptr;
  Glob* editWidget_ = nullptr;
  XY<int> editPos_{-1, -1};
  XY<int> pressPoint_;
  XY<int> pressCell_{-1, -1};
  bool dragReported_ = false;
  int sortColumn_ = -1;
  bool sortAscending_ = true;
  bool highlightCurrentRow_ = true;
  bool textEntryHidden_ = false;
  // Last: placing its bar asks getUserArea, which reads the members above.
  HorizontalScroller sideways_{*this, [this] { scrolledSideways(); }};
};
