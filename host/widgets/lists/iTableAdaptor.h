#pragma once

#include <zowidgets/host/base/Box.h>
#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/widgets/lists/TableColumnDescription.h>

#include <cstdint>
#include <vector>

class CanvasRenderer;
class Glob;
class TableWidget;
struct Event;

// The kinds of cell a table knows without being told: each has an editor
// registered on every table. Other numbers are free for an application's
// own editors (TableWidget::registerEditor).
namespace DBFieldTypes {
enum eType : int {
  kWString = 0,    // text, edited in a text box
  kReadOnly = 1,   // text that cannot be edited
  kHTMLString = 2, // a line of HTML with clickable links
};
} // namespace DBFieldTypes

// What a TableWidget shows: the model answers for the size, the columns and
// each cell, asked only for the cells in sight. Everything past getCellData
// has a default body, so a read-only table needs three functions.
//
// Cells are named by XY(column, row).
class ZO_API iTableAdaptor {
public:
  // What a cell shows and how.
  struct CellData {
    Palette palette;
    int fieldType = DBFieldTypes::kWString;
    Glib::FontDesc font; // the interface font unless set
    UIString text;
    // Extra space before the text, on top of the column's margin.
    int leftOffset = 0;
    bool readOnly = false;
  };

  // Where a cell is being drawn, edited or stored.
  struct CellContext {
    TableWidget* table = nullptr;
    iTableAdaptor* adaptor = nullptr;
    XY<int> pos;
    // The cell in the coordinates of whatever draws it.
    Zo::Box<int> box;
    CanvasRenderer* renderer = nullptr; // set while drawing
    bool isCurrentRow = false;
    bool isTagged = false;
  };

  virtual ~iTableAdaptor() = default;

  virtual int getSize() = 0;
  virtual std::vector<TableColumnDescription> getColumnDefinitions() = 0;
  // `palette` is the table's; a cell may change colours in its copy.
  virtual CellData getCellData(XY<int> const& pos, Palette const& palette) = 0;
  // A row's own height; 0 for the table's row height. Asked in row order, as
  // far as the view has reached, again after the rows change or the table is
  // resized.
  virtual std::uint16_t getRowHeight(unsigned int) { return 0; }
  // A press, release or move over a cell before the table acts on it; true
  // when the adaptor took it.
  virtual bool handleMouseClickEvent(XY<int> const&, Event const&) { return false; }
  // Names a row across sorting and refreshes, so the current row follows its
  // data. The row's number unless the model has ids.
  virtual std::int64_t getRowID(int row) { return row; }
  virtual bool getTag(int) { return false; }
  // Draws a cell itself; false leaves it to the cell's editor.
  virtual bool drawField(CellContext&, CellData const&) { return false; }
  // Stores an edited cell's text; false when the model refused it (the
  // default: a table is read-only until its adaptor stores).
  virtual bool storeFieldText(CellContext&, LightweightString<wchar_t> const&) { return false; }
  // Marks the rows from `first` to `last` (either order) as tagged or not.
  virtual void setTags(int, int, bool) {}
  // The pointer moved over a cell.
  virtual void handleMouseContainment(XY<int> const&) {}
  // A drag began on a cell; true when the adaptor took it.
  virtual bool handleMouseDragStart(XY<int> const&, Event const&) { return false; }
  // The user moved down past the last row; true when a row was added.
  virtual bool requestAddRow() { return false; }
  // The user dragged one column's title onto another's; true when the model
  // swapped their fields (the table then asks for the columns again).
  virtual bool swapFields(int, int) { return false; }
  virtual int getNumTagged() { return 0; }
  // Orders the rows by a column; false when the model cannot.
  virtual bool sort(int, bool) { return false; }
  // Held around each batch of reads, for a model another thread writes.
  virtual void lockData() {}
  virtual void unlockData() {}
  // A widget to show in a cell in place of its drawing, sized `size`; the
  // table owns it while the row is in sight.
  virtual Glob* createCustomWidget(XY<int> const&, XY<int>) { return nullptr; }
};
