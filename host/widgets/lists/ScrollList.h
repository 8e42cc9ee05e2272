#pragma once

#include <zowidgets/host/widgets/lists/VirtualRowsBase.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <vector>

class ScrollList;
class ScrollListItemWidget;

// What a list tells its listeners: the selection changed, or a row was
// activated (double-clicked, or Return pressed on it).
struct ScrollListEvent {
  enum eKind : int { kSelectionChanged = 0, kItemActivated = 1 };
  int kind = kSelectionChanged;
  ScrollList* list = nullptr;
  int index = -1; // the row concerned: the current row, or the one activated
};

// A scrolling list of text rows, each row a widget made by makeWidget.
// Rows are made only for the lines in sight and dropped when they scroll
// away (VirtualRowsBase), so a list of a million lines costs a million
// strings and a screenful of widgets. The list keeps the selection and the keyboard cursor (the
// current row): a click selects one row, Shift-click a range from the
// anchor, Ctrl-click toggles one (in multiple selection); the arrow keys,
// Page Up/Down, Home and End move the cursor, with Shift extending the
// range, Ctrl moving the cursor alone and Ctrl-Space toggling it.
class ZO_API ScrollList : public VirtualRowsBase, public Broadcaster<ScrollListEvent> {
public:
  enum eSelectionMode : int { kSingleSelection = 0, kMultipleSelection = 1 };
  static constexpr char const* kSelectionChangedMsg = "ScrollListSelectionChanged";
  static constexpr char const* kItemActivatedMsg = "ScrollListItemActivated";

  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : StandardPanel::InitArgs(info) {}
    std::vector<LightweightString<wchar_t>> strings;
    unsigned short lineHeight = 0; // 0: the interface's row height
    int selectionMode = kSingleSelection;
  };

  explicit ScrollList(InitArgs const& args);
  char const* idstring() const override { return "ScrollList"; }

  // Replaces every line; the selection goes and the view returns to the top.
  void setStrings(std::vector<LightweightString<wchar_t>> const& strings);
  std::vector<LightweightString<wchar_t>> const& getStrings() const noexcept { return strings_; }
  int size() const noexcept { return static_cast<int>(strings_.size()); }
  int rowCount() const override { return size(); }

  // A new height remakes the rows in sight; the selection stays.
  virtual void setLineHeight(unsigned short height);
  unsigned short getLineHeight() const noexcept { return static_cast<unsigned short>(getRowHeight()); }

  void setSelectionMode(int mode);
  int getSelectionMode() const noexcept { return mode_; }

  // The current row when it is selected, else the first selected row; -1
  // without a selection.
  int getSelectedIndex() const;
  std::vector<int> getSelectedIndices() const;
  int getSelectionCount() const noexcept { return selectedCount_; }
  bool isSelected(int index) const;
  // Selects this row alone and makes it current (-1 clears). Does not
  // broadcast: only the user's changes are reported.
  void setSelectedIndex(int index);
  void setSelected(int index, bool selected);
  void clearSelection();
  void selectAll();
  int getCurrentIndex() const noexcept { return current_; }

  // The row widget of a line in sight, else null.
  ScrollListItemWidget* getRowWidget(int index) const;
  // The line under a point of the list, -1 for none.
  int indexAt(XY<int> point) const { return rowIndexAt(point); }

  // What a row does with the user's press: selection by the modifiers held,
  // and activation on a double click.
  void handleRowPress(int index, int modifiers, int clicks);

  int handleKeyboardEvent(int key) override;
  int handleMouseEvent(Event const& event) override;
  void handleKbdFocus(bool gained) override;

protected:
  // Makes the widget of one line; the list places and sizes it.
  virtual ScrollListItemWidget* makeWidget(unsigned short index, LightweightString<wchar_t> const& text,
                                           Palette const& palette, unsigned short width, unsigned short height);

  Glob* makeRow(int index, int width, int height) override;
  void updateRow(int index, Glob* row) override;

private:
  void setCurrent(int index);
  void selectRange(int from, int to);
  // A user's change: tells the listeners and the parent.
  void reportSelectionChanged();
  void activate(int index);
  void moveCursor(int index, int modifiers);

  std::vector<LightweightString<wchar_t>> strings_;
  std::vector<bool> selected_;
  int selectedCount_ = 0;
  int current_ = -1;
  int anchor_ = -1;
  int mode_ = kSingleSelection;
};
