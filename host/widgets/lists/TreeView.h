#pragma once

#include <zowidgets/host/widgets/lists/VirtualRowsBase.h>
#include <zowidgets/host/widgets/lists/iTreeViewAdaptor.h>
#include <zowidgets/host/widgets/panels/HorizontalScroller.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <memory>
#include <set>
#include <vector>

class TreeView;

// What a tree tells its listeners: the user selected, opened, closed or
// activated (double-clicked, or Return) an item.
struct TreeViewEvent {
  enum eType : int { kSelection = 10, kExpanded = 11, kCollapsed = 12, kActivated = 13 };
  int type = kSelection;
  LightweightString<wchar_t> id;
  TreeView* tree = nullptr;
};

// A tree of items from an iTreeViewAdaptor, one row per item in sight: an
// item's children are asked for when it first opens, and from a counted
// adaptor one by one as they come into sight. Rows exist only for
// the lines on screen (VirtualRowsBase). The mouse opens and closes items by
// their arrows (or a double click) and selects by a click; the keys move the
// selection (Up, Down, Page Up, Page Down, Home, End), Right opens an item or
// goes to its first child, Left closes it or goes to its parent, Return
// activates it. Rows wider than the view scroll sideways
// (HorizontalScroller): the widest row seen since the last refresh sets the
// range.
class ZO_API TreeView : public VirtualRowsBase, public Broadcaster<TreeViewEvent> {
public:
  enum eAppearance : int { kShowExpanders = 0, kFlat = 1 };
  enum eScrollbarDisplay : int { kScrollbarAsNeeded = 0, kScrollbarNever = 1 };

  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : StandardPanel::InitArgs(info) {}
    iTreeViewAdaptor* adaptor = nullptr; // not owned; must outlive the tree
    int appearance = kShowExpanders;     // an eAppearance; the rows are made in it from the start
  };

  explicit TreeView(InitArgs const& args);
  ~TreeView() override;
  char const* idstring() const override { return "TreeView"; }

  void setAdaptor(iTreeViewAdaptor* adaptor);
  // Asks the adaptor again for everything. With keepState, items whose ids
  // come back keep their open state and the selection; otherwise the tree
  // starts closed with nothing selected.
  void refresh(int keepState = 1);
  // Selects an item by id, opening its ancestors if they are loaded, and
  // scrolls it into sight; false when no loaded item has the id. Not
  // reported to listeners. Finding an id among counted children not yet
  // seen asks the adaptor for them.
  bool setSelectedItem(LightweightString<wchar_t> const& id);
  LightweightString<wchar_t> getSelectedItem() const;
  int getSelectedIndex() const noexcept { return selected_; }
  bool expand(LightweightString<wchar_t> const& id);
  bool collapse(LightweightString<wchar_t> const& id);
  bool isExpanded(LightweightString<wchar_t> const& id) const;
  void setAppearance(int appearance);
  int getAppearance() const noexcept { return appearance_; }
  void setScrollbarDisplay(int display);

  int rowCount() const override { return static_cast<int>(visible_.size()); }
  // The item of a row in sight order, and its depth (0 for the root's
  // children).
  iTreeViewAdaptor::Item const* itemAt(int row) const;
  int depthAt(int row) const;
  int rowOf(LightweightString<wchar_t> const& id) const;

  int handleKeyboardEvent(int key) override;
  int handleMouseEvent(Event const& event) override;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override;
  void handleKbdFocus(bool gained) override;
  Zo::Box<int> getUserArea() const override;

  // The width of one level of indent, and of the arrow area of a row.
  static int indentStep();
  HorizontalScroller const& sideways() const noexcept { return sideways_; }
  void setSidewaysOffset(int offset) { sideways_.setOffset(offset); }

protected:
  Glob* makeRow(int index, int width, int height) override;
  void updateRow(int index, Glob* row) override;
  void rowsPlaced() override;

private:
  struct Node;
  // A row in sight: a child of a loaded item, by index, so that the rows of
  // a counted adaptor need no node until they are seen.
  struct Shown {
    Node* parent;
    std::size_t index;
  };
  Node& nodeAt(int row) const;
  Node& childOf(Node& parent, std::size_t index) const;
  void loadChildren(Node& node);
  bool hasChildren(Node& node) const;
  void openAt(int row, bool report);
  void closeAt(int row, bool report);
  void selectRow(int row, bool report);
  void report(int type, int row);
  // Appends a node's shown descendants, depth first.
  void collectShown(Node& node, std::vector<Shown>& out) const;
  Node* find(Node& from, LightweightString<wchar_t> const& id) const;
  int rowOf(Node const& node) const;
  int expanderRight(int row) const;
  // Shows the start of a row's arrow, icon and text when it is out of sight.
  void showRowStart(int row);

  iTreeViewAdaptor* adaptor_ = nullptr;
  std::unique_ptr<Node> root_;
  std::vector<Shown> visible_;
  int selected_ = -1;
  int appearance_ = kShowExpanders;
  // The widest row met since the rows were last refreshed: the sideways
  // range, so that scrolling up and down does not make the bar come and go.
  int widest_ = 0;
  bool sidewaysAllowed_ = true;
  // Last: placing its bar asks getUserArea.
  HorizontalScroller sideways_{*this, [this] { getView()->invalidate(); }};
};
