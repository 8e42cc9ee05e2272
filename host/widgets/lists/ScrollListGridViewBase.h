#pragma once

#include <zowidgets/host/widgets/panels/VerticalScrollingBase.h>

#include <vector>

// A scrolling grid of item widgets in rows, with titled separators between
// groups: the base of pickers such as a grid of symbols. A subclass adds a
// separator, then rows, and puts its item widgets into each row it adds
// (TopLeft for the first, RightOf the one before for the next) before
// handing them to addItemWidget. Items are numbered in the order given.
// A click on an item selects it and sends kItemClickMsg ("SLIClickMsg") to
// the grid's parent; with the focus, the arrow keys move the selection
// (Up and Down to the nearest item of the row above or below), Home and End
// go to the ends, and Return or Space send the message for the selection.
class ZO_API ScrollListGridViewBase : public VerticalScrollingBase {
public:
  static constexpr char const* kItemClickMsg = "SLIClickMsg";

  // One cell. Its ground shows selection and hover; subclasses draw their
  // content over it (or replace drawBackground altogether).
  class ZO_API ItemWidgetBase : public StandardPanel {
  public:
    using InitArgs = StandardPanel::InitArgs;
    explicit ItemWidgetBase(InitArgs const& args);
    char const* idstring() const override { return "ItemWidgetBase"; }

    bool isSelected() const noexcept { return selected_; }
    // Its number in the grid, -1 before addItemWidget.
    int getItemIndex() const noexcept { return index_; }
    bool isMouseInside() const noexcept { return mouseInside_; }
    // The pointer came in or went out; the ground redraws for the hover.
    virtual void handleMouseContainment(bool inside);

    int react(Event const& event) override;
    int handleMouseEvent(Event const& event) override;

  protected:
    void drawBackground(CanvasRenderer& renderer) override;
    // Over the content: the focus ring, on the item the keys act on while
    // the grid has them.
    void draw(CanvasRenderer& renderer) override;

  private:
    friend class ScrollListGridViewBase;
    ScrollListGridViewBase* grid_ = nullptr;
    int index_ = -1;
    bool selected_ = false;
    bool mouseInside_ = false;
  };

  using InitArgs = VerticalScrollingBase::InitArgs;
  explicit ScrollListGridViewBase(InitArgs const& args);
  char const* idstring() const override { return "ScrollListGridViewBase"; }

  // A full-width heading for the items that follow.
  Glob* addSeparator(UIString const& title);
  // A new row below the last, as wide as the view; items go into it.
  Glob* addRow();
  // Takes an item already added to the last row.
  void addItemWidget(ItemWidgetBase* item);

  int getSelectedItem() const noexcept { return selected_; }
  // The item the keys act on: the selected one; with none selected (a
  // picker clears its selection after each pick), the one selected last,
  // else the first; -1 in an empty grid. It wears the focus ring while the
  // grid has the keyboard, the arrows move on from it, and Return or Space
  // picks it.
  int keyboardItem() const noexcept;
  // Selects one item (-1 clears) and scrolls its row into sight.
  void setSelectedItem(int index);
  void clearSelection() { setSelectedItem(-1); }
  int getItemCount() const noexcept { return static_cast<int>(items_.size()); }
  ItemWidgetBase* getItem(int index) const;
  int getRowCount() const noexcept { return static_cast<int>(rows_.size()); }
  int getSeparatorCount() const noexcept { return static_cast<int>(separators_.size()); }
  // How many items of a given width fit side by side in a row.
  int itemsPerRow(int itemWidth) const;

  // An item was pressed: select it and tell the parent.
  void handleItemPress(ItemWidgetBase* item);

  int handleKeyboardEvent(int key) override;
  void handleKbdFocus(bool gained) override;

  // What the grid says while it holds no items (a search that found
  // nothing, say); empty, the default, says nothing.
  void setEmptyText(UIString const& text);
  UIString const& getEmptyText() const noexcept { return emptyText_; }

protected:
  // Forgets rows, items and separators: for subclasses that have just
  // deleted every managed widget (unmanageAllWidgets(true)) to refill.
  void forgetGridContents();
  void draw(CanvasRenderer& renderer) override;

private:
  int rowOf(int item) const;
  // The item of another row nearest across to a given item.
  int nearestInRow(int row, int item) const;
  void moveSelection(int index);

  std::vector<Glob*> rows_;
  std::vector<ItemWidgetBase*> items_;
  std::vector<Glob*> separators_;
  std::vector<int> itemRows_; // the row of each item
  int selected_ = -1;
  int selectedLast_ = -1;
  UIString emptyText_;
};
