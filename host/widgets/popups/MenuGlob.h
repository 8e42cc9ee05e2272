#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/toolkit/Glob.h>
#include <zowidgets/host/widgets/popups/Menu.h>

#include <vector>

// A widget that carries the rows of its own context menu. Whoever shows the
// menu asks getMenuItems; by default that is the rows added here, under a
// heading of the menu's title when it has one. Panels rebuild them before
// each showing: clearMenu, then the rows that fit where the user clicked.
class ZO_API MenuGlob : public Glob {
public:
  using InitArgs = GlobCreationInfo;

  explicit MenuGlob(InitArgs const& args) : Glob(args) {}
  char const* idstring() const override { return "MenuGlob"; }

  // The rows to show for a click (null: no click, as from a menu button);
  // none means no menu.
  virtual std::vector<MenuItem> getMenuItems(Event const* event);

  // Forgets the rows and the title.
  void clearMenu();
  void addMenuItem(MenuItem const& item) { menuItems_.push_back(item); }
  // A row that runs `action` when chosen.
  void addMenuItem(UIString const& text, MenuItem::Action const& action);
  void addMenuSeparator() { menuItems_.push_back(MenuItem::separator()); }
  // The heading over the rows; empty for none.
  void setMenuTitle(UIString const& title) { menuTitle_ = title; }
  UIString const& getMenuTitle() const noexcept { return menuTitle_; }
  // The rows added, without the title.
  std::vector<MenuItem> const& heldMenuItems() const noexcept { return menuItems_; }

private:
  UIString menuTitle_;
  std::vector<MenuItem> menuItems_;
};
