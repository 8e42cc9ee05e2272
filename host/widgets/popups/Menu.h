#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/toolkit/GlobHandle.h>

#include <algorithm>
#include <functional>
#include <vector>

// One row of a menu: a choice, a heading over a group of choices, or a
// separator line. Invalid colours fall back to the menu's palette.
struct ZO_API MenuItem {
  // What a row does when chosen from a panel's menu, before the panel hears
  // of the choice.
  using Action = std::function<void(MenuItem const&)>;

  enum eStyle : int {
    kNormal = 0,
    kHeading = 1,   // a label over the rows below it; never chosen
    kSeparator = 2, // a thin line between groups
  };

  MenuItem() = default;
  MenuItem(UIString text, Colour textColour = Colour::invalid(), Colour background = Colour::invalid(),
           UIString tooltip = {})
      : text(std::move(text)), textColour(textColour), background(background), tooltip(std::move(tooltip)) {}
  static MenuItem heading(UIString text);
  static MenuItem separator();

  // A normal, active row: the only kind the user can choose.
  bool isSelectable() const noexcept { return style == kNormal && active; }

  UIString text;
  Colour textColour = Colour::invalid();
  Colour background = Colour::invalid();
  UIString tooltip;
  int style = kNormal;
  bool active = true;
  Action action;
};

// A row's text may hold two columns: what follows "||" is drawn against the
// row's right edge, as a drive's size beside its name ("Home||(1.8 TB)").
struct ZO_API MenuLabelColumns {
  LightweightString<wchar_t> left;
  LightweightString<wchar_t> right; // empty when the text has no "||"
  static MenuLabelColumns split(LightweightString<wchar_t> const& text);
  // The width both columns need in `font`, with a gap between them.
  static int measure(LightweightString<wchar_t> const& text, Glib::FontDesc const& font);
};

namespace MenuData {
// How a shown menu ended, or where its highlight moved.
struct ZO_API Change {
  enum eKind : int {
    kChosen = 0,      // the user chose row `index`
    kCancelled = 1,   // Escape, or a press outside the menu
    kHighlighted = 2, // the highlight moved to row `index` (-1: none)
  };
  int kind = kChosen;
  int index = -1;
};
} // namespace MenuData

// The rows of a menu and the row currently selected (-1 for none).
class ZO_API Menu {
public:
  Menu() = default;
  explicit Menu(std::vector<MenuItem> items, int selected = -1);

  std::vector<MenuItem> const& items() const noexcept { return items_; }
  int size() const noexcept { return static_cast<int>(items_.size()); }
  MenuItem const& item(int index) const { return items_.at(static_cast<std::size_t>(index)); }
  // Out-of-range or unselectable rows select nothing.
  void setSelected(int index);
  int getSelected() const noexcept { return selected_; }
  // The nearest selectable row from `from` (excluded) in steps of `step`
  // (+1 down, -1 up); -1 when there is none.
  int nextSelectable(int from, int step) const;

private:
  std::vector<MenuItem> items_;
  int selected_ = -1;
};

class ScrollBar;

// A menu shown as a popup window. It takes the keyboard focus while open:
// Up and Down move the highlight over choosable rows, Return chooses, Escape
// cancels. A click on a row chooses it; a press anywhere outside the window
// cancels. Either way the window tells its owner once and deletes itself.
// Rows that do not fit in `maxHeight` scroll, by a scroll bar at the right,
// the wheel, and the highlight kept in view.
class ZO_API MenuWindow : public Glob {
public:
  using ChangeHandler = std::function<void(MenuData::Change const&)>;

  struct InitArgs : GlobCreationInfo {
    Menu menu;
    ChangeHandler onChange;
    int minWidth = 0;
    int maxHeight = 0; // 0: as tall as the rows
  };

  explicit MenuWindow(InitArgs const& args);
  char const* idstring() const override { return "MenuWindow"; }
  eWindowKind windowKind() const override { return eWindowKind::kPopupMenu; }

  // The size the menu's rows need, at least `minWidth` wide.
  static XY<int> calcSize(Menu const& menu, int minWidth = 0);
  // Opens a menu window whose top-left corner is at `topLeft` on the screen,
  // moved as needed to keep it all on the screen near `near`; a menu taller
  // than the screen is the screen's height and scrolls.
  static MenuWindow* open(Menu const& menu, XY<int> topLeft, ChangeHandler onChange, int minWidth = 0,
                          Canvas* near = nullptr, Palette const* palette = nullptr);
  // Opens a menu under its owner (a button) whose screen box is `owner`, or
  // above it when only there it has room: never over the owner while one
  // side has room for it.
  static MenuWindow* openUnder(Menu const& menu, Zo::Box<int> const& owner, ChangeHandler onChange, int minWidth = 0,
                               Canvas* near = nullptr, Palette const* palette = nullptr);

  // Ends the menu with `change` (chosen or cancelled); later calls do nothing.
  void close(MenuData::Change const& change);
  // Another window was made the active one: cancelled.
  void dismissPopup() override { close(MenuData::Change{MenuData::Change::kCancelled, -1}); }
  // The window it was opened near.
  Glob* popupOwnerWindow() const override { return ownerWindow_.get(); }
  // Forgets the owner: it hears nothing more.
  void detach() { onChange_ = nullptr; }
  bool isClosing() const noexcept { return closing_; }
  Menu const& menu() const noexcept { return menu_; }
  int getHighlighted() const noexcept { return highlighted_; }
  // The row's box in this window, and the row at a point (-1 for none).
  Zo::Box<int> rowBox(int index) const;
  int rowAt(XY<int> point) const;
  // How far the rows are scrolled up, in pixels; 0 shows the first row.
  int getScrollOffset() const noexcept { return offset_; }
  int maxScrollOffset() const noexcept { return std::max(0, contentHeight_ - height()); }
  void setScrollOffset(int offset);
  ScrollBar* getScrollBar() const noexcept { return bar_; }

  int react(Event const& event) override;
  int intercept(Event const& event) override;

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  // What open and openUnder share: the window sized for the menu, at most
  // the screen's height, and shown with its top-left corner at `topLeft`
  // (kept on the screen).
  static InitArgs argsFor(Menu const& menu, ChangeHandler onChange, int minWidth, Palette const* palette);
  static MenuWindow* openAt(InitArgs args, XY<int> topLeft, Canvas* near);
  static int rowHeight(MenuItem const& item);
  // The window's size: the rows', or at most `maxHeight` (0: no limit) with a
  // scroll bar beside them.
  static XY<int> calcShownSize(Menu const& menu, int minWidth, int maxHeight);
  // `reveal` scrolls the row into view.
  void setHighlighted(int index, bool reveal = true);
  void scrollToShow(int index);
  bool takeBarMessage(Event const& event);
  int reactToKey(int key);
  void drawRow(CanvasRenderer& renderer, int index) const;
  int rowsWidth() const;

  Menu menu_;
  ChangeHandler onChange_;
  int highlighted_ = -1;
  int contentHeight_ = 0;
  int offset_ = 0;
  ScrollBar* bar_ = nullptr;
  GlobHandle ownerWindow_;
  bool closing_ = false;
};
